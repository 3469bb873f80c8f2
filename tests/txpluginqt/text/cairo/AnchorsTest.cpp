// Where each operation puts the top left of a label, and how it turns.
#include <cmath>

#include "ShortLabel.h"

using namespace TZObjects;

namespace
{

const double kRadiansPerDegree = 3.141592653589793 / 180;

/// The label "Hag" as one line with its top left at (@p x, @p y), turned there.
void DrawTurned(cairo_t* cr, double x, double y, double degrees, double scale, const TXColor& color,
                const TXColor* haloColor = nullptr)
{
    cairo_save(cr);
    const cairo_font_extents_t font = UseSize(cr, 20 * scale);
    const Glyphs glyphs(cairo_get_scaled_font(cr), "Hag", 0, font.ascent);
    cairo_translate(cr, x, y);
    cairo_rotate(cr, degrees * kRadiansPerDegree);
    glyphs.AddTo(cr);
    if (haloColor)
        StrokeHalo(cr, *haloColor, 3);
    FillPath(cr, color);
    cairo_restore(cr);
}

struct Turn
{
    double angle;
    double scale;
};

class Anchors : public QuietTest, public ::testing::WithParamInterface<Turn>
{
protected:
    Anchors()
    {
        call.x = 90;
        call.y = 60;
        call.left = call.dx = 97;
        call.top = call.dy = 52;
        call.angle = GetParam().angle;
        call.scale = GetParam().scale;
        // A quarter turn takes (x, y) to (-y, x).
        const double dx = (call.left - call.x) * call.scale;
        const double dy = (call.top - call.y) * call.scale;
        const double sine = std::sin(call.angle * kRadiansPerDegree);
        const double cosine = std::cos(call.angle * kRadiansPerDegree);
        cornerX = call.x + (dx * cosine - dy * sine);
        cornerY = call.y + (dx * sine + dy * cosine);
    }

    ShortLabel call;
    double cornerX;
    double cornerY;
};

TEST_P(Anchors, OfBoxesTurnAboutTheirOrigin)
{
    CairoTwins twins;
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringInBox, call));
    DrawTurned(twins.Direct(), cornerX, cornerY, call.angle, call.scale, Look().pen);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_P(Anchors, OfOutlinesWithACornerTurnAboutTheirOrigin)
{
    CairoTwins twins;
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::OutlineAbout, call));
    const TXColor halo = Look().haloColor;
    DrawTurned(twins.Direct(), cornerX, cornerY, call.angle, call.scale, call.fill, &halo);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_P(Anchors, OfColumnsWithACornerTurnAboutTheirOrigin)
{
    CairoTwins twins;
    call.text = L"H";
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::VerticalAbout, call));

    cairo_t* const cr = twins.Direct();
    const cairo_font_extents_t font = UseSize(cr, 20 * call.scale);
    const Glyphs glyphs(cairo_get_scaled_font(cr), "H", 0, 0);
    cairo_save(cr);
    cairo_translate(cr, cornerX, cornerY);
    cairo_rotate(cr, call.angle * kRadiansPerDegree);
    cairo_translate(cr, 0, (font.ascent + std::abs(glyphs.Extents().y_bearing)) * 0.5);
    glyphs.AddTo(cr);
    FillPath(cr, call.fill);
    cairo_restore(cr);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_P(Anchors, OfPointsAreThePoints)
{
    CairoTwins twins;
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, call));
    DrawTurned(twins.Direct(), 90, 60, call.angle, call.scale, Look().pen);
    EXPECT_TRUE(twins.SameAndInked());

    twins.Wipe();
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::OutlineAt, call));
    const TXColor halo = Look().haloColor;
    DrawTurned(twins.Direct(), 90, 60, call.angle, call.scale, call.fill, &halo);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_P(Anchors, OfOffsetsAreTheSums)
{
    CairoTwins twins;
    call.left = call.dx = 12.5;
    call.top = call.dy = -20.25;
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringMoved, call));
    DrawTurned(twins.Direct(), 102.5, 39.75, call.angle, call.scale, Look().pen);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_P(Anchors, OfOffsetsWithoutAnAngleTurnByTheFonts)
{
    Look look;
    look.angle = static_cast<int>(call.angle);
    CairoTwins twins(look);
    call.left = call.dx = 12.5;
    call.top = call.dy = -20.25;
    call.angle = 13;
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringByFontAngle, call));
    DrawTurned(twins.Direct(), 102.5, 39.75, look.angle, call.scale, look.pen);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_P(Anchors, AreImagePixelsWhateverThePainterIsSetTo)
{
    CairoTwins twins;
    twins.Surface().SetWindowOrg(25, 13);
    twins.Surface().SetOpacity(0.3);
    twins.Surface().SetCompositionMode(TXGraphics::CompositionMode_Clear);
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, call));
    DrawTurned(twins.Direct(), 90, 60, call.angle, call.scale, Look().pen);
    EXPECT_TRUE(twins.SameAndInked());
}

INSTANTIATE_TEST_SUITE_P(Turns, Anchors,
                         ::testing::Values(Turn{0, 1}, Turn{0, 2}, Turn{30, 1}, Turn{90, 1.5}, Turn{-45, 0.5},
                                           Turn{359, 2}));

} // namespace
