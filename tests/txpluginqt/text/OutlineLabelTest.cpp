// What is particular to labels with a halo.
#include "LabelTest.h"

using namespace TZObjects;

namespace
{

constexpr Entry kOutlines[] = {Entry::OutlineAbout, Entry::OutlineAt};

class OutlineLabelTest : public LabelTest
{
protected:
    /// Paints without scale: about the label's middle, or from its top left corner.
    struct Picture
    {
        Entry entry;
        const Label& label;
        Qt::FillRule rule = Qt::OddEvenFill;
        double centreSpacing = 0.0; ///< What of the line spacing the centring takes into account.
        bool stroke = true;
        bool fillFirst = false;
        int haloAlpha = 255;
        int fillAlpha = -1;

        void operator()(QPainter& painter) const
        {
            const PlainBlock block(label.Text(), DirectFont(label.font));
            const auto n = static_cast<double>(block.lines.size());
            // Qt rounds the glyphs' places, so that it matters where the path has its origin.
            const QPointF half = entry == Entry::OutlineAbout
                                     ? QPointF(0.0, 0.0)
                                     : QPointF(block.width, n * block.height + (n - 1) * centreSpacing) / 2.0;
            painter.translate(label.x + half.x(), label.y + half.y());
            painter.rotate(label.angle);
            const QPainterPath path = block.Path(-half, block.height + label.lineSpacing, 1, rule);
            QColor halo(label.font.haloColor.getR(), label.font.haloColor.getG(), label.font.haloColor.getB());
            halo.setAlpha(haloAlpha);
            const TXColor& fill = label.fill;
            const QColor fillColor(fill.getR(), fill.getG(), fill.getB(), fillAlpha < 0 ? fill.getA() : fillAlpha);
            if (fillFirst)
                painter.fillPath(path, fillColor);
            if (stroke)
                painter.strokePath(path, QPen(halo, label.font.haloWidth));
            if (!fillFirst)
                painter.fillPath(path, fillColor);
        }
    };

    OutlineLabelTest()
    {
        label.left = label.x;
        label.top = label.y;
        label.font.height = 30;
        label.font.haloWidth = 4;
        label.font.haloColor = TXColor(30, 200, 60, 90);
    }

    Label label;
};

TEST_F(OutlineLabelTest, OverlappingGlyphsAreFilledByTheOddEvenRule)
{
    label.text = L"WOBW";
    label.font.letterSpacing = -11.0;
    for (const Entry entry : kOutlines)
    {
        Picture wrong{entry, label};
        wrong.rule = Qt::WindingFill;
        EXPECT_TRUE(SameAs(entry, label, Picture{entry, label}));
        EXPECT_TRUE(DiffersFrom(entry, label, wrong));
    }
}

TEST_F(OutlineLabelTest, TheCentringIgnoresTheLineSpacing)
{
    label.text = L"two\nlines";
    label.font.height = 20;
    label.lineSpacing = 14.0;
    label.angle = 180.0;
    Picture wrong{Entry::OutlineAt, label};
    wrong.centreSpacing = label.lineSpacing;
    EXPECT_TRUE(SameAs(Entry::OutlineAt, label, Picture{Entry::OutlineAt, label}));
    EXPECT_TRUE(DiffersFrom(Entry::OutlineAt, label, wrong));
}

TEST_F(OutlineLabelTest, TheHaloIsStrokedWhateverTheFontSays)
{
    for (const Entry entry : kOutlines)
        for (const bool halo : {false, true})
        {
            label.font.halo = halo;
            Picture bare{entry, label};
            bare.stroke = false;
            EXPECT_TRUE(SameAs(entry, label, Picture{entry, label}));
            EXPECT_TRUE(DiffersFrom(entry, label, bare));
        }
}

TEST_F(OutlineLabelTest, TheHaloIsOpaqueAndTheFillKeepsItsAlpha)
{
    for (const Entry entry : kOutlines)
    {
        label.font.haloColor = TXColor(30, 200, 60, 90);
        label.fill = TXColor(200, 30, 30, 110);
        Picture clearHalo{entry, label};
        clearHalo.haloAlpha = label.font.haloColor.getA();
        Picture opaqueFill{entry, label};
        opaqueFill.fillAlpha = 255;
        EXPECT_TRUE(SameAs(entry, label, Picture{entry, label}));
        EXPECT_TRUE(DiffersFrom(entry, label, clearHalo));
        EXPECT_TRUE(DiffersFrom(entry, label, opaqueFill));
        // Even without any alpha the halo is there.
        label.font.haloColor = TXColor(30, 200, 60, 0);
        label.fill = TXColor(0, 0, 0, 0);
        EXPECT_TRUE(SameAs(entry, label, Picture{entry, label}));
    }
}

TEST_F(OutlineLabelTest, WideHalosAreStrokedInTheirWidth)
{
    label.halo = true;
    for (const int width : {100, 32767, 32768, 1000000, 2147483647})
        for (const Entry entry : kAllEntries)
        {
            label.font.haloWidth = width;
            EXPECT_TRUE(SameAsDirect(entry, label));
        }
}

TEST_F(OutlineLabelTest, TheFillCoversTheInnerHalfOfTheHalo)
{
    for (const Entry entry : kOutlines)
    {
        Picture fillFirst{entry, label};
        fillFirst.fillFirst = true;
        EXPECT_TRUE(SameAs(entry, label, Picture{entry, label}));
        EXPECT_TRUE(DiffersFrom(entry, label, fillFirst));
    }
}

TEST_F(OutlineLabelTest, TagsAreDroppedByOneFormAndDrawnByTheOther)
{
    struct Shown
    {
        const wchar_t* text;
        const wchar_t* withoutFormatting;
    };
    label.font.height = 16;
    // Entities become characters, line feeds spaces, and breaks line feeds; plain text stays as it is.
    for (const Shown& each : {Shown{L"<BOL>x</BOL>", L"x"}, Shown{L"<UND>a&amp;b</UND>\nc", L"a&b c"},
                              Shown{L"<ITA>x</ITA>y<br>z", L"xy\nz"}, Shown{L"a &amp; b", L"a &amp; b"}})
    {
        label.text = each.text;
        Label bare = label;
        bare.text = each.withoutFormatting;
        EXPECT_TRUE(SameAs(Entry::OutlineAbout, label, Picture{Entry::OutlineAbout, bare}));
        EXPECT_TRUE(SameAs(Entry::OutlineAt, label, Picture{Entry::OutlineAt, label}));
    }
}

TEST_F(OutlineLabelTest, TheSlantComesBeforeTheRotation)
{
    label.font.italic = TXFont::ItalicSlant;
    label.font.height = 20;
    label.x = 60.0;
    label.left = 50.0;
    for (const double angle : {0.0, 1e-17, 40.0})
    {
        label.angle = angle;
        const auto paint = [&](bool slantFirst, double turn)
        {
            return [&, slantFirst, turn](QPainter& painter)
            {
                const PlainBlock block(label.Text(), DirectFont(label.font));
                painter.translate(label.x, label.y);
                if (!slantFirst)
                    painter.rotate(label.angle);
                painter.rotate(turn);
                painter.shear(0.0, turn > 0.0 ? 0.16 : 0.0);
                if (slantFirst && label.angle > 1e-10)
                    painter.rotate(label.angle);
                const QPainterPath path =
                    block.Path(QPointF(label.left - label.x, label.top - label.y), block.height, 1, Qt::OddEvenFill);
                StrokeHalo(painter, path, label.font);
                FillInColor(painter, path, label.fill);
            };
        };
        EXPECT_TRUE(SameAs(Entry::OutlineAbout, label, paint(true, 351.0)));
        EXPECT_TRUE(DiffersFrom(Entry::OutlineAbout, label, paint(true, 0.0)));
        EXPECT_TRUE(SameAsDirect(Entry::OutlineAt, label));
        if (angle < 1.0)
            continue;
        EXPECT_TRUE(DiffersFrom(Entry::OutlineAbout, label, paint(false, 351.0)));
    }
}

} // namespace
