// What is particular to DrawString's rich labels.
#include <QFontMetricsF>

#include "LabelTest.h"

using namespace TZObjects;

namespace
{

constexpr Entry kStrings[] = {Entry::StringInBox, Entry::StringMoved, Entry::StringByFontAngle, Entry::StringAt};

constexpr char kHtml[] = "<span style=\"font-weight:700\">Main</span> Street<br>below";

class RichLabelTest : public LabelTest
{
protected:
    RichLabelTest() { label.text = L"<BOL>Main</BOL> Street\nbelow"; }

    /// Draws the label's document, its top left at @p anchor.
    Paint At(const QPointF& anchor) const
    {
        return [=](QPainter& painter)
        {
            QTextDocument document;
            SetHtml(document, kHtml, painter.font());
            painter.translate(anchor);
            painter.scale(label.scale, label.scale);
            DrawDocument(painter, document, painter.pen().color());
        };
    }

    QSizeF Size() const
    {
        QTextDocument document;
        SetHtml(document, kHtml, DirectFont(label.font));
        return document.size();
    }

    Label label;
};

TEST_F(RichLabelTest, TheMovedStringIsNotMoved)
{
    for (const Entry entry : {Entry::StringMoved, Entry::StringByFontAngle})
    {
        EXPECT_TRUE(SameAs(entry, label, At(QPointF(label.x, label.y))));
        EXPECT_TRUE(DiffersFrom(entry, label, At(QPointF(label.x + label.dx, label.y + label.dy))));
    }
}

TEST_F(RichLabelTest, GrowsAndShrinksAboutItsMiddle)
{
    for (const double scale : {0.5, 2.0})
    {
        label.scale = scale;
        const QPointF corner(label.x - (scale - 1.0) * Size().width() / 2.0,
                             label.y - (scale - 1.0) * Size().height() / 2.0);
        EXPECT_TRUE(SameAs(Entry::StringMoved, label, At(corner)));
        EXPECT_TRUE(DiffersFrom(Entry::StringMoved, label, At(QPointF(label.x, label.y))));
    }
}

TEST_F(RichLabelTest, IsAlignedToItsBoxFromTheOrigin)
{
    label.x = 60.0;
    label.left = 40.0;
    label.right = 100.0;
    for (const double scale : {0.5, 1.0, 2.0})
    {
        label.scale = scale;
        const double width = Size().width() * scale;
        const double y = label.y + (label.top - label.y) * scale;
        label.hAlign = 1;
        EXPECT_TRUE(SameAs(Entry::StringInBox, label, At(QPointF(60.0 - 20.0 * scale, y))));
        label.hAlign = 3;
        EXPECT_TRUE(SameAs(Entry::StringInBox, label, At(QPointF(60.0 + 40.0 * scale - width, y))));
        for (const int align : {2, 0, 7})
        {
            label.hAlign = align;
            EXPECT_TRUE(SameAs(Entry::StringInBox, label, At(QPointF(60.0 - width / 2.0, y))));
        }
    }
}

TEST_F(RichLabelTest, TheSpacedStringGrowsAboutTheMiddleOfItsLinesMeasuredAlone)
{
    label.scale = 2.0;
    label.lineSpacing = 30.0;
    const QFont font = DirectFont(label.font);
    QTextDocument first;
    SetHtml(first, "<span style=\"font-weight:700\">Main</span> Street", font);
    // Whole units for a rich line; the bounds for a plain one.
    const QSizeF rich(int(first.size().width()), int(first.size().height()));
    const QSizeF plain = QFontMetricsF(font).boundingRect("below").size();
    const auto corner = [&](double width, double height)
    { return At(QPointF(label.x - width / 2.0, label.y - height / 2.0)); };
    EXPECT_TRUE(
        SameAs(Entry::StringAt, label, corner(std::max(rich.width(), plain.width()), rich.height() + plain.height())));
    EXPECT_TRUE(DiffersFrom(Entry::StringAt, label, corner(Size().width(), Size().height())));
    EXPECT_TRUE(
        DiffersFrom(Entry::StringAt, label, corner(first.size().width(), first.size().height() + plain.height())));
}

TEST_F(RichLabelTest, TheSpacedStringMeasuresPlainLinesWithTheSelectedFontAsItIsNow)
{
    // The plain line is the widest, and only it is measured with the changed font.
    label.text = L"<BOL>i</BOL>\nbroad enough";
    label.scale = 2.0;
    label.x = 60.0;
    Label narrow = label;
    narrow.font.height = 9;
    const QFont small = DirectFont(narrow.font);
    QTextDocument rich;
    SetHtml(rich, "<span style=\"font-weight:700\">i</span>", DirectFont(label.font));
    const QSizeF plain = QFontMetricsF(small).boundingRect("broad enough").size();
    ASSERT_GT(plain.width(), rich.size().width());
    const auto paint = [&](QPainter& painter)
    {
        QTextDocument document;
        SetHtml(document, "<span style=\"font-weight:700\">i</span><br>broad enough", painter.font());
        painter.translate(label.x - plain.width() / 2.0, label.y - (int(rich.size().height()) + plain.height()) / 2.0);
        painter.scale(2.0, 2.0);
        DrawDocument(painter, document, painter.pen().color());
    };
    afterSelecting = [](TXFont& font) { font.SetFontHeight(9); };
    EXPECT_TRUE(SameAs(Entry::StringAt, label, paint));
}

TEST_F(RichLabelTest, IsLaidOutInThePaintersFont)
{
    label.scale = 1.0;
    afterSelecting = [](TXFont& font) { font.SetFontHeight(31); };
    for (const Entry entry : {Entry::StringMoved, Entry::StringByFontAngle, Entry::StringAt})
        EXPECT_TRUE(SameAs(entry, label, At(QPointF(label.x, label.y))));
    EXPECT_TRUE(SameAs(Entry::StringInBox, label, At(QPointF(label.left, label.top))));
}

TEST_F(RichLabelTest, IsRecognisedByItsFirstLineOnly)
{
    Label plain;
    plain.text = L"Main\n<BOL>St</BOL>";
    for (const Entry entry : kStrings)
        EXPECT_TRUE(SameAs(entry, plain,
                           [&](QPainter& painter)
                           {
                               // The converted text, as plain text.
                               Label shown = plain;
                               shown.text = L"Main\n<span style=\"font-weight:700\">St</span>";
                               DrawDirectly(painter, entry, shown);
                           }));
}

TEST_F(RichLabelTest, SlantedFontsSlantItBeforeTheRotation)
{
    label.font.italic = TXFont::ItalicSlant;
    label.angle = 40.0;
    label.x = 60.0;
    const auto paint = [&](bool slantFirst)
    {
        return [&, slantFirst](QPainter& painter)
        {
            painter.translate(label.x, label.y);
            if (!slantFirst)
                painter.rotate(40.0);
            painter.rotate(351.0);
            painter.shear(0.0, 0.16);
            if (slantFirst)
                painter.rotate(40.0);
            At(QPointF())(painter);
        };
    };
    for (const Entry entry : {Entry::StringMoved, Entry::StringAt})
    {
        EXPECT_TRUE(SameAs(entry, label, paint(true)));
        EXPECT_TRUE(DiffersFrom(entry, label, paint(false)));
    }
    label.angle = 0.0;
    EXPECT_TRUE(DiffersFrom(Entry::StringMoved, label, At(QPointF(label.x, label.y))));
}

TEST_F(RichLabelTest, LineFeedsBreakLines)
{
    Label joined = label;
    joined.text = L"<BOL>Main</BOL> Street below";
    for (const Entry entry : kStrings)
        EXPECT_TRUE(DiffersFrom(entry, label, [&](QPainter& painter) { DrawDirectly(painter, entry, joined); }));
    EXPECT_TRUE(SameAs(Entry::StringAt, label, At(QPointF(label.x, label.y))));
}

TEST_F(RichLabelTest, TagsFormatTheLabel)
{
    struct Formatted
    {
        const wchar_t* text;
        const char* html;
    };
    for (const Formatted& each :
         {Formatted{L"<BOL>Mx</BOL>", "<b>Mx</b>"}, Formatted{L"<ITA>Mx</ITA>", "<i>Mx</i>"},
          Formatted{L"<UND>Mx</UND>", "<u>Mx</u>"}, Formatted{L"<ACP>Mx</ACP>", "<span>MX</span>"},
          Formatted{L"<SCP>Mx</SCP>", "<span>mx</span>"}})
    {
        label.text = each.text;
        EXPECT_TRUE(SameAs(Entry::StringAt, label,
                           [&](QPainter& painter)
                           {
                               QTextDocument document;
                               SetHtml(document, each.html, painter.font());
                               painter.translate(label.x, label.y);
                               DrawDocument(painter, document, painter.pen().color());
                           }));
    }
}

} // namespace
