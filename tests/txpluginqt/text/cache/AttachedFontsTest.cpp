// Fonts that come from an attached painter: of a device's resolution, or with properties that the interface does not
// set.
#include <QPainter>

#include <tests/support/ImageCompare.h>
#include <tests/support/PixelFont.h>
#include <tests/support/QuietTest.h>
#include <tests/txpluginqt/text/ExpectedLabel.h>
#include <tests/txpluginqt/text/Measures.h>

using namespace TZObjects;

namespace
{

QImage Device(int dotsPerInch = 96)
{
    QImage device(260, 90, QImage::Format_ARGB32_Premultiplied);
    device.setDotsPerMeterX(qRound(dotsPerInch / 0.0254));
    device.setDotsPerMeterY(qRound(dotsPerInch / 0.0254));
    device.fill(Qt::white);
    return device;
}

/// A surface whose selected font is the one of a painter on a device.
class AttachedFont
{
public:
    AttachedFont(QImage& device, const QFont& font) : painter(&device)
    {
        painter.setFont(font);
        surface->SelectFont(MakeFont({}));
        surface->Attach(&painter);
        selected = surface->GetFont();
    }
    ~AttachedFont() { surface->Detach(); }
    AttachedFont(const AttachedFont&) = delete;
    AttachedFont& operator=(const AttachedFont&) = delete;

    TXGraphics& Surface() { return *surface; }
    TXFont& Font() { return *selected; }
    const QFont& Direct() const { return painter.font(); }

private:
    QPainter painter;
    TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
    TXRefPtr<TXFont> selected;
};

/// The label that the tests draw, at (20, 30).
QImage Drawn(int dotsPerInch, const QFont& font, const wchar_t* text)
{
    QImage image = Device(dotsPerInch);
    AttachedFont attached(image, font);
    EXPECT_TRUE(attached.Surface().DrawOutlineString(20.0, 30.0, 20.0, 30.0, TXGraphics::TextAlignTop,
                                                     TXGraphics::TextAlignLeft, text, TXColor(200, 0, 0, 255), 0.0, 0.0,
                                                     1.0));
    return image;
}

QImage DrawnDirectly(int dotsPerInch, const QFont& font, const wchar_t* text)
{
    QImage image = Device(dotsPerInch);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(20.0, 30.0);
    const PlainBlock block(QString::fromWCharArray(text), painter.font());
    const QPainterPath path = block.Path(QPointF(0.0, 0.0), block.height, 1, Qt::OddEvenFill);
    painter.strokePath(path, QPen(Qt::black, 1.0));
    painter.fillPath(path, QColor(200, 0, 0));
    return image;
}

class AttachedFontsTest : public QuietTest
{
};

TEST_F(AttachedFontsTest, OfThreeResolutionsDrawTheirSpacings)
{
    QFont font = PixelFont(19);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 4.0);
    for (int i = 0; i < 2; ++i)
        for (const int dotsPerInch : {72, 100, 300})
            EXPECT_TRUE(SamePixels(Drawn(dotsPerInch, font, L"Main\nStreet"),
                                   DrawnDirectly(dotsPerInch, font, L"Main\nStreet")))
                << dotsPerInch;
    EXPECT_NE(DrawnDirectly(72, font, L"Main"), DrawnDirectly(300, font, L"Main"));
}

TEST_F(AttachedFontsTest, OfThreeResolutionsMeasureTheirSpacingsAndPoints)
{
    QFont font = PixelFont(19);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 4.0);
    const TXString plain(L"Main");
    const TXString rich(L"<span style=\"font-size:14pt\">Main</span>");
    // What is measured is kept from the second time on.
    for (int i = 0; i < 3; ++i)
        for (const int dotsPerInch : {72, 100, 300})
        {
            QImage image = Device(dotsPerInch);
            AttachedFont attached(image, font);
            double width = 0.0;
            double height = 0.0;
            ASSERT_TRUE(attached.Font().GetTextExtent(plain, width, height, true));
            EXPECT_GE(width, QFontMetricsF(attached.Direct()).horizontalAdvance("Main"));
            EXPECT_EQ(width, std::max(QFontMetricsF(attached.Direct()).horizontalAdvance("Main"),
                                      QFontMetricsF(attached.Direct()).boundingRect("Main").width()))
                << dotsPerInch;
            ASSERT_TRUE(attached.Font().GetTextExtent(rich, width, height, true));
            QTextDocument document;
            document.setDefaultFont(attached.Direct());
            document.setHtml("<span style=\"font-size:14pt\">Main</span>");
            EXPECT_EQ(QSizeF(width, height), document.size()) << dotsPerInch;
            double ascent = 0.0;
            double descent = 0.0;
            attached.Font().GetFontMetricsInfo(height, ascent, descent, true);
            EXPECT_EQ(height, QFontMetricsF(attached.Direct()).height());
        }
}

TEST_F(AttachedFontsTest, OfColouredBitmapsDrawAsQtDrawsNow)
{
    for (int size = 31; size < 37; ++size)
    {
        QFont font = PixelFont(size);
        const wchar_t* const text = L"a\U0001F30Db";
        // Qt itself gives the globe another width until it has made its outline.
        Drawn(96, font, text);
        EXPECT_TRUE(SamePixels(Drawn(96, font, text), DrawnDirectly(96, font, text))) << size;
        const TXString label(text);
        QImage image = Device();
        AttachedFont attached(image, font);
        for (int i = 0; i < 3; ++i)
        {
            double width = 0.0;
            double height = 0.0;
            ASSERT_TRUE(attached.Font().GetTextExtent(label, width, height, true));
            EXPECT_EQ(width, QFontMetricsF(font).horizontalAdvance(QString::fromWCharArray(text)));
        }
    }
}

TEST_F(AttachedFontsTest, MeasuringBeforeDrawingFindsTheLaterWidth)
{
    for (int size = 41; size < 45; ++size)
    {
        FontChoice choice;
        choice.height = size;
        const TXRefPtr<TXFont> font = MakeFont(choice);
        const TXString label(L"a\U0001F30Db");
        double before = 0.0;
        double height = 0.0;
        for (int i = 0; i < 3; ++i)
            ASSERT_TRUE(font->GetTextExtent(label, before, height, true));
        QPainterPath().addText(0.0, 0.0, DirectFont(choice), QString::fromStdWString(label));
        double after = 0.0;
        ASSERT_TRUE(font->GetTextExtent(label, after, height, true));
        EXPECT_EQ(after, QFontMetricsF(DirectFont(choice)).horizontalAdvance(QString::fromStdWString(label)));
        EXPECT_NE(after, before) << "it need not be known otherwise";
    }
}

TEST_F(AttachedFontsTest, InSmallCapitalsTakeLettersFromOtherFaces)
{
    // The base face has no letters, and Qt crashes unless the others were loaded before.
    int size = 51;
    for (const wchar_t* const text : {L"a", L"abc", L"Abc \u4e2d", L"\u00df", L"\u05d0q\nz", L"12", L""})
    {
        QFont font("Noto Color Emoji");
        font.setPixelSize(size++);
        font.setCapitalization(QFont::SmallCaps);
        Drawn(96, font, text);
        EXPECT_TRUE(SamePixels(Drawn(96, font, text), DrawnDirectly(96, font, text)));
        QImage image = Device();
        AttachedFont attached(image, font);
        Label label;
        label.text = text;
        for (const Entry entry : kAllEntries)
            EXPECT_TRUE(Draw(attached.Surface(), entry, label));
    }
}

} // namespace
