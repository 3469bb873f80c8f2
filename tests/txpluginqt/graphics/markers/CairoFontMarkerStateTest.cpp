// The face that a character through cairo is drawn with, and what it leaves in the font, the context and the painter.
#include "CairoFontMarkerTest.h"

#include <tests/support/ImageCompare.h>
#include <tests/support/PainterState.h>

using namespace TZObjects;

namespace
{

TEST_F(CairoFontMarkerTest, TheFaceIsItalicAndBoldAsTheFontIs)
{
    for (const bool bold : {false, true})
        for (const auto italics : {TXFont::ItalicNone, TXFont::ItalicFace, TXFont::ItalicSlant})
        {
            look.bold = bold;
            look.italic = italics;
            look.family = L"DejaVu Serif";
            Select(look);
            symbol.fontName = L"DejaVu Sans";
            EXPECT_TRUE(SameAsDirect());
            EXPECT_FALSE(twins.Untouched());
        }
}

TEST_F(CairoFontMarkerTest, TheFaceIsSelectedAnewOnlyForAnotherName)
{
    // What became of the font since it was selected shows with the next name.
    look.bold = true;
    look.italic = TXFont::ItalicFace;
    twins.Font().SetFontBold(true);
    twins.Font().SetFontItalic(true);
    EXPECT_TRUE(SameAsDirect());
    const QImage upright = twins.Actual().copy();
    symbol.fontName = L"DejaVu Serif";
    EXPECT_TRUE(SameAsDirect());
    symbol.fontName = L"DejaVu Sans";
    EXPECT_TRUE(SameAsDirect());
    EXPECT_NE(twins.Actual(), upright);
    symbol.fontName = L"dejavu sans";
    EXPECT_TRUE(SameAsDirect());
    EXPECT_EQ(twins.Font().GetFontName(), TXString(L"dejavu sans"));
    symbol.fontName = L"DejaVu Sans ";
    EXPECT_TRUE(SameAsDirect());
}

TEST_F(CairoFontMarkerTest, AfterSetFontNameAloneAMarkerDrawsInTheOldFace)
{
    ASSERT_TRUE(SameAsDirect());
    const QImage old = twins.Actual().copy();
    twins.Font().SetFontName(L"DejaVu Serif");
    twins.Wipe();
    const auto draw = [&]
    {
        return twins.Surface().FontMarker(symbol.x, symbol.y, symbol.width, symbol.height, symbol.angle,
                                          TXString(L"DejaVu Serif"), symbol.character);
    };
    // The font has the marker's name already, so that the face is not selected.
    EXPECT_TRUE(draw());
    EXPECT_TRUE(SamePixels(twins.Actual(), old));
    twins.Surface().SelectFont(&twins.Font());
    twins.Wipe();
    EXPECT_TRUE(draw());
    EXPECT_NE(twins.Actual(), old);
}

TEST_F(CairoFontMarkerTest, AnEmptyNameSelectsTheDefaultFaceAndKeepsTheFonts)
{
    symbol.fontName.clear();
    EXPECT_TRUE(SameAsDirect());
    EXPECT_EQ(twins.Font().GetFontName(), TXString(L"DejaVu Sans"));
    symbol.fontName = L"WenQuanYi Micro Hei";
    EXPECT_TRUE(SameAsDirect());
    symbol.fontName.clear();
    EXPECT_TRUE(SameAsDirect());
    EXPECT_EQ(twins.Font().GetFontName(), TXString(L"WenQuanYi Micro Hei"));
}

TEST_F(CairoFontMarkerTest, ALocalisedNameReachesCairoAsItIs)
{
    symbol.fontName = L"\u5B8B\u4F53";
    EXPECT_TRUE(SameAsDirect());
    EXPECT_EQ(twins.Font().GetFontName(), TXFont::GetEnglishNameForKnownFont(L"\u5B8B\u4F53"));
    EXPECT_TRUE(SameAsDirect());
}

TEST_F(CairoFontMarkerTest, ChangesOnlyTheNameOfTheFont)
{
    look.bold = true;
    look.underline = true;
    look.strikeOut = true;
    look.halo = true;
    look.haloWidth = 4;
    look.letterSpacing = 2.5;
    look.angle = 33;
    Select(look);
    TXFont& font = twins.Font();
    font.SetFontWidth(7);
    QFont expected = *static_cast<QFont*>(font.GetInternalObject());
    const QFont painterFont = twins.SurfacePainter().font();
    symbol.width = 31.0;
    symbol.height = 47.0;
    symbol.fontName = L"DejaVu Sans Mono";
    EXPECT_TRUE(SameAsDirect());

    expected.setFamily("DejaVu Sans Mono");
    EXPECT_EQ(*static_cast<QFont*>(font.GetInternalObject()), expected);
    EXPECT_EQ(font.GetFontName(), TXString(L"DejaVu Sans Mono"));
    EXPECT_EQ(font.GetFontWidth(), 7);
    EXPECT_EQ(font.GetFontHeight(), 20);
    EXPECT_TRUE(font.GetFontHalo());
    EXPECT_EQ(font.GetFontHaloWidth(), 4);
    EXPECT_EQ(font.GetFontAngle(), 33);
    EXPECT_EQ(twins.SurfacePainter().font(), painterFont);
}

TEST_F(CairoFontMarkerTest, WithoutAContextTheAnswerIsTrueAndNothingIsDrawn)
{
    for (const int format : {TXImage::Format_RGB16, TXImage::Format_RGB888, TXImage::Format_Grayscale8})
    {
        const TXRefPtr<TXImage> image = NewImage(96, 72, static_cast<TXImage::Format>(format));
        auto& pixels = *static_cast<QImage*>(image->GetInternalObject());
        pixels.fill(Qt::white);
        const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
        surface->EnableCairoDrawing(true);
        EXPECT_TRUE(Draw(*surface, symbol)) << "without an image";
        surface->SelectFont(MakeFont(look));
        surface->SelectImage(image);
        symbol.fontName = L"DejaVu Serif";
        EXPECT_TRUE(Draw(*surface, symbol));
        EXPECT_EQ(InkedPixels(pixels), 0);
        // Once there is a context, its face is the font's.
        EXPECT_EQ(surface->GetFont()->GetFontName(), TXString(L"DejaVu Serif"));
    }
}

TEST_F(CairoFontMarkerTest, AContextThatHasFailedIsMadeAnew)
{
    for (const wchar_t* const name : {L"DejaVu Sans", L"DejaVu Serif"})
    {
        cairo_restore(twins.Context());
        ASSERT_NE(cairo_status(twins.Context()), CAIRO_STATUS_SUCCESS);
        symbol.fontName = name;
        EXPECT_TRUE(SameAsDirect());
        EXPECT_FALSE(twins.Untouched());
    }
}

TEST_F(CairoFontMarkerTest, LeavesTheContextsStateAsItIs)
{
    for (cairo_t* const context : {twins.Context(), twins.Direct()})
    {
        cairo_rectangle(context, 20, 10, 35, 60);
        cairo_clip(context);
        cairo_set_source_rgba(context, 0.1, 0.9, 0.3, 0.4);
        cairo_set_line_width(context, 7);
        cairo_rectangle(context, 1, 2, 3, 4);
    }
    for (const double height : {9.0, 14.0, 44.0})
        for (const double angle : {0.0, 25.0})
        {
            symbol.height = height;
            symbol.angle = angle;
            EXPECT_TRUE(SameAsDirect());
            EXPECT_FALSE(twins.Untouched());
        }
    // As many states were taken from the stack as were put there.
    cairo_restore(twins.Context());
    EXPECT_EQ(cairo_status(twins.Context()), CAIRO_STATUS_INVALID_RESTORE);
}

TEST_F(CairoFontMarkerTest, IsClippedWhereTheContextIs)
{
    const TXPoint triangle[] = {{20, 10}, {120, 40}, {40, 90}};
    const int count = 3;
    symbol.height = 60.0;
    EXPECT_TRUE(SameAsDirect());
    const QImage whole = twins.Actual().copy();
    twins.Surface().SetClipRegion(triangle, &count, 1, false, TXColor());
    cairo_t* const direct = twins.Direct();
    cairo_new_path(direct);
    cairo_move_to(direct, 20, 10);
    cairo_line_to(direct, 120, 40);
    cairo_line_to(direct, 40, 90);
    cairo_close_path(direct);
    cairo_clip(direct);
    twins.Wipe();
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(twins.Draw(symbol, look));
    EXPECT_TRUE(twins.SameAndInked());
    EXPECT_NE(twins.Actual(), whole);
    twins.Surface().RestoreClipRegion();
    cairo_reset_clip(direct);
    EXPECT_TRUE(SameAsDirect());
}

TEST_F(CairoFontMarkerTest, ThePainterIsNeitherUsedNorChanged)
{
    QImage canvas(100, 80, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::white);
    QPainter outside(&canvas);
    for (QPainter* const painter : {&outside, &twins.SurfacePainter()})
    {
        painter->setPen(QPen(Qt::red, 7));
        painter->setOpacity(0.5);
        painter->translate(3, 4);
        painter->rotate(20);
        painter->setCompositionMode(QPainter::CompositionMode_Xor);
        painter->setClipRect(0, 0, 5, 5);
    }
    const PainterState own(twins.SurfacePainter());
    EXPECT_TRUE(SameAsDirect());
    EXPECT_TRUE(SameState(PainterState(twins.SurfacePainter()), own));
    const PainterState before(outside);
    twins.Surface().Attach(&outside);
    EXPECT_TRUE(SameAsDirect());
    EXPECT_FALSE(twins.Untouched());
    twins.Surface().Detach();
    EXPECT_TRUE(SameState(PainterState(outside), before));
    EXPECT_EQ(InkedPixels(canvas), 0);
}

} // namespace
