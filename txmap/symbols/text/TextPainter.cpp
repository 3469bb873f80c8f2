#include <txmap/symbols/text/TextPainter.h>

#include <algorithm>
#include <cmath>

#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/labels/LabelFonts.h>
#include <txmap/symbols/text/SymbolFonts.h>

namespace txmap
{

using TZObjects::TXColor;
using TZObjects::TXFont;
using TZObjects::TXGraphics;
using TZObjects::TXPen;
using TZObjects::TXPoint;
using TZObjects::TXRefPtr;

namespace
{

constexpr double kRadians = M_PI / 180.0;

TXColor ColorOf(const Color& color)
{
    const auto channel = [](double value) { return static_cast<int>(std::lround(value * 255.0)); };
    return {channel(color.red), channel(color.green), channel(color.blue), channel(color.alpha)};
}

} // namespace

/// Letters in their place in the picture.
struct TextPainter::Letters
{
    const TextPiece* piece;
    TXPoint origin;
    double angle;
};

TextPainter::TextPainter(TZObjects::TXGraphicsEngine& engine, TXGraphics& surface)
    : engine(engine), surface(surface), wasCairo(surface.CairoDrawingEnabled())
{
    surface.Save();
}

TextPainter::~TextPainter()
{
    surface.EnableCairoDrawing(wasCairo);
    surface.Restore();
}

void TextPainter::Draw(const TextBlock& block, const TXPoint& at, const TXPoint& origin, double angle,
                       const TextInk& ink)
{
    std::vector<Letters> letters;
    const double cosine = std::cos(angle * kRadians);
    const double sine = std::sin(angle * kRadians);
    for (const TextPiece& piece : block.pieces)
    {
        const double x = piece.origin.x - origin.x;
        const double y = piece.origin.y - origin.y;
        letters.push_back({&piece, {at.x + cosine * x - sine * y, at.y + sine * x + cosine * y}, angle + piece.angle});
    }
    DrawLetters(letters, ink);
}

void TextPainter::Draw(const LineText& text, const FittedText& fitted, const TextInk& ink)
{
    std::vector<Letters> letters;
    for (const FittedCluster& place : fitted.clusters)
    {
        const LineCluster& cluster = text.clusters[place.cluster];
        const double cosine = std::cos(place.angle * kRadians);
        const double sine = std::sin(place.angle * kRadians);
        const double x = -cluster.advance / 2.0;
        const double y = text.baseline;
        letters.push_back(
            {&cluster.piece, {place.at.x + cosine * x - sine * y, place.at.y + sine * x + cosine * y}, place.angle});
    }
    DrawLetters(letters, ink);
}

void TextPainter::DrawLetters(const std::vector<Letters>& letters, const TextInk& ink)
{
    surface.SetOpacity(ink.opacity);
    for (const bool halo : {true, false})
        for (const Letters& place : letters)
        {
            const int height = std::max(1, static_cast<int>(std::ceil(place.piece->size)));
            const double scale = place.piece->size / height;
            const TXRefPtr<TXFont> font = place.piece->face->Font(height);
            const double ascent = place.piece->face->Ascent(height);
            const Color& color = place.piece->color ? *place.piece->color : ink.color;
            if (halo && ink.haloWidth <= 0.0)
                continue;
            font->SetFontHaloWidth(static_cast<int>(std::lround(2.0 * ink.haloWidth / scale)));
            font->SetFontHaloColor(ColorOf(ink.haloColor));
            surface.SelectFont(font);
            TXRefPtr<TXPen> pen(engine.NewPen());
            RequireLabel(pen && pen->Create(TXPen::SolidLine, 1.0, ColorOf(color), TXPen::RoundCap, TXPen::RoundJoin));
            surface.SelectPen(pen);
            RequireLabel(halo ? surface.DrawOutlineString(place.origin.x, place.origin.y, place.origin.x,
                                                          place.origin.y - ascent, TXGraphics::TextAlignTop,
                                                          TXGraphics::TextAlignLeft, place.piece->text,
                                                          TXColor(0, 0, 0, 0), place.angle, 0.0, scale)
                              : surface.DrawString(place.origin.x, place.origin.y, place.origin.x, place.origin.x,
                                                   place.origin.y - ascent, place.origin.y, TXGraphics::TextAlignTop,
                                                   TXGraphics::TextAlignLeft, place.piece->text, place.angle, scale));
        }
}

} // namespace txmap
