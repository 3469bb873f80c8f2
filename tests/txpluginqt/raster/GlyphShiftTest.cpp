// The state that Qt leaves a font's faces in when it loads images of glyphs, and labels drawn in all such states.
#include <map>
#include <random>

#include <QFontMetricsF>
#include <QPainterPath>

#include <tests/support/ImageCompare.h>
#include <tests/support/QuietTest.h>
#include <tests/support/Twins.h>
#include <tests/txpluginqt/text/ExpectedLabel.h>
#include <txpluginqt/raster/FontState.h>
#include <txpluginqt/text/LabelOutlines.h>

#include <tests/txpluginqt/text/cache/CacheSize.h>

using namespace TZObjects;
using namespace txqt;

namespace
{

constexpr const wchar_t* kNames[] = {L"Neustadt 17", L"Wandsbek", L"Azul", L"Quoin", L"fjord x", L"two\nlines"};

QFont FontOf(const char* family, int pixels)
{
    QFont font(family);
    font.setPixelSize(pixels);
    return font;
}

class GlyphShiftTest : public QuietTest
{
protected:
    double Real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random); }
    int Int(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }

    /// What a host paints by itself.
    void DrawTextDirectly(const QFont& font, const QString& text, double x)
    {
        QImage image(200, 60, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        painter.setFont(font);
        painter.drawText(QPointF(x, 40.0), text);
    }

    /// Each is drawn seldom, so that Qt has to load its image at many a place.
    static QString NextGlyph()
    {
        static int next = 0;
        return QString(QChar(0x100 + next++ % 0x150));
    }

    std::mt19937 random{11};
};

TEST_F(GlyphShiftTest, OutlinesAreTheSameWhereItIsTheSame)
{
    const QFont font = FontOf("DejaVu Sans", 12);
    std::map<qint64, QPainterPath> outlines;
    std::map<qint64, int> times;
    int differing = 0;
    for (int i = 0; i < 200; ++i)
    {
        DrawTextDirectly(i % 3 ? font : FontOf("DejaVu Sans", 13), NextGlyph(), Real(5.0, 90.0));
        if (i % 7 == 0)
            QFontMetricsF(FontOf("DejaVu Sans", 20 + i)).boundingRect("x");
        const qint64 shift = GlyphShift(font);
        QPainterPath path;
        for (const wchar_t* const name : kNames)
            path.addText(QPointF(3.25, 7.0), font, QString::fromWCharArray(name));
        if (GlyphShift(font) != shift)
            continue;
        const auto [known, isNew] = outlines.emplace(shift, path);
        EXPECT_EQ(known->second, path) << shift;
        ++times[shift];
        differing += isNew && path != outlines.begin()->second ? 1 : 0;
    }
    EXPECT_GE(outlines.size(), 3u) << "Qt places glyphs at quarters of a pixel";
    EXPECT_GE(differing, 1) << "it need not be known otherwise";
    for (const auto& [shift, count] : times)
        EXPECT_GE(count, 2) << shift;
}

TEST_F(GlyphShiftTest, IsZeroAfterMeasuringAndElseThatOfTheFaceDrawnLast)
{
    const QFont font = FontOf("DejaVu Serif", 15);
    const QFont larger = FontOf("DejaVu Serif", 25);
    for (const QFont& measured : {font, larger})
        QFontMetricsF(measured).boundingRect("a");
    // A test before may have drawn with this face.
    QFontMetricsF(FontOf("DejaVu Sans", 17)).boundingRect("never measured");
    EXPECT_EQ(GlyphShift(font), 0);
    DrawTextDirectly(font, "b", 5.3);
    const qint64 shift = GlyphShift(font);
    EXPECT_NE(shift, 0);
    EXPECT_EQ(GlyphShift(font), shift) << "asking changes nothing";
    EXPECT_EQ(GlyphShift(FontOf("DejaVu Serif", 15)), shift) << "the same font, never used";
    EXPECT_NE(GlyphShift(larger), 0) << "all sizes have one face";
    EXPECT_EQ(GlyphShift(FontOf("DejaVu Sans", 15)), 0) << "another face";
    DrawTextDirectly(font, "c", 5.8);
    EXPECT_NE(GlyphShift(font), shift);
    DrawTextDirectly(font, "b", 6.3);
    QFontMetricsF(larger).boundingRect("never measured");
    EXPECT_EQ(GlyphShift(font), 0);
}

TEST_F(GlyphShiftTest, IsThatOfAnyFaceThatTheFontHasLoaded)
{
    const QFont font = FontOf("DejaVu Sans", 16);
    const QString chinese = QString::fromWCharArray(L"\u5317\u4eac");
    QFontMetricsF(font).boundingRect("never measured either" + chinese);
    EXPECT_EQ(GlyphShift(font), 0);
    DrawTextDirectly(FontOf("WenQuanYi Micro Hei", 16), chinese.mid(0, 1), 5.3);
    EXPECT_NE(GlyphShift(font), 0);
}

TEST_F(GlyphShiftTest, OutlinesDuringWhichItChangedAreNotKept)
{
    const CacheSize size(kUsualCacheSize);
    const QFont font = FontOf("DejaVu Sans", 37);
    QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    // The face is loaded, but none of its letters.
    EXPECT_EQ(GlyphShift(font), 0);
    // How much is kept of a label and its halo, of which Qt has to load the letters the first time.
    const auto kept = [&]
    {
        DrawTextDirectly(FontOf("DejaVu Sans", 12), NextGlyph(), 5.3);
        EXPECT_NE(GlyphShift(font), 0);
        const std::size_t before = LabelCache::OfThread().Bytes();
        LabelOutlines(font, "never measured", {{{0.0, 0.0}, "never measured"}}, Qt::WindingFill)
            .Stroke(painter, QPen(Qt::red, 3.0));
        return LabelCache::OfThread().Bytes() - before;
    };
    EXPECT_EQ(kept(), 0u);
    EXPECT_GT(kept(), 0u);
}

/// Labels in any order with what has Qt load glyphs, each compared with the same drawn directly after it.
class LabelsAmongGlyphImages : public GlyphShiftTest, public ::testing::WithParamInterface<std::size_t>
{
protected:
    Label NextLabel()
    {
        Label label;
        label.text = kNames[Int(0, 5)];
        label.font.height = 12 + 4 * Int(0, 2);
        label.font.haloWidth = Int(1, 4);
        label.x = Real(10.0, 60.0);
        label.y = Real(10.0, 60.0);
        label.left = label.x - Int(0, 9);
        label.top = label.y - Int(0, 9);
        return label;
    }

    void LoadSomething(Twins& twins, const FontChoice& choice)
    {
        Label label = NextLabel();
        label.font = choice;
        switch (Int(0, 4))
        {
        case 0:
            label.text = L"<BOL>" + NextGlyph().toStdWString() + L"</BOL> " + NextGlyph().toStdWString();
            twins.Surface().SelectFont(MakeFont(label.font));
            Draw(twins.Surface(), Entry::StringMoved, label);
            break;
        case 1:
            twins.Surface().SelectFont(MakeFont(label.font));
            twins.Surface().FontMarker(label.x, label.y, 14.0, 14.0, Int(0, 1) * 20.0, TXString(L"DejaVu Sans"),
                                       static_cast<short>(NextGlyph()[0].unicode()));
            break;
        case 2:
            DrawTextDirectly(FontOf("DejaVu Sans", label.font.height), NextGlyph(), label.x);
            break;
        case 3:
        {
            double width = 0.0;
            double height = 0.0;
            static int nextHeight = 40;
            label.font.height = nextHeight++;
            MakeFont(label.font)->GetTextExtent(TXString(L"measured"), width, height, true);
            break;
        }
        default:
            break;
        }
    }
};

TEST_P(LabelsAmongGlyphImages, AreDrawnAsDirectlyAfterThem)
{
    const CacheSize size(GetParam());
    Twins twins(150, 100);
    int inked = 0;
    std::map<qint64, int> shifts;
    for (int i = 0; i < 600; ++i)
    {
        const Label label = NextLabel();
        LoadSomething(twins, label.font);
        twins.Wipe();
        const QImage empty = twins.Actual().copy();
        ++shifts[GlyphShift(DirectFont(label.font))];
        const Entry entry = kAllEntries[i % 8];
        twins.Surface().SelectFont(MakeFont(label.font));
        twins.Direct().setFont(DirectFont(label.font));
        ASSERT_TRUE(Draw(twins.Surface(), entry, label));
        DrawDirectly(twins.Direct(), entry, label);
        ASSERT_TRUE(SamePixels(twins.Actual(), twins.Expected())) << i << ": " << NameOf(entry) << ' ' << label;
        inked += twins.Actual() != empty;
    }
    EXPECT_GE(inked, 550);
    EXPECT_GE(shifts.size(), 4u);
}

INSTANTIATE_TEST_SUITE_P(Sizes, LabelsAmongGlyphImages,
                         ::testing::Values(std::size_t(0), std::size_t(65536), kUsualCacheSize));

} // namespace
