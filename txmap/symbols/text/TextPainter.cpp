#include <txmap/symbols/text/TextPainter.h>

#include <algorithm>
#include <cmath>

#include <txgraphics/TXImage.h>
#include <txmap/symbols/text/HaloImage.h>

namespace txmap
{

using TZObjects::TXColor;
using TZObjects::TXGraphics;
using TZObjects::TXImage;
using TZObjects::TXPoint;
using TZObjects::TXRect;
using TZObjects::TXRefPtr;

namespace
{

constexpr double kRadians = M_PI / 180.0;
constexpr double kFarthest = 1e6;
// A halo is no wider than that part of the size, as in other renderers of the format, and its edge no softer.
constexpr double kWidestHalo = 0.25;
constexpr double kThinnestHalo = 1.0 / 64.0;

/// @param opacity multiplies that of the color.
TXColor Faded(const Color& color, double opacity)
{
    const auto channel = [](double value)
    { return std::isfinite(value) ? static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0)) : 0; };
    return {channel(color.red), channel(color.green), channel(color.blue), channel(color.alpha * opacity)};
}

double Within(double value, double largest) { return std::isfinite(value) ? std::clamp(value, 0.0, largest) : 0.0; }

bool IsNear(const TXPoint& point) { return std::abs(point.x) <= kFarthest && std::abs(point.y) <= kFarthest; }

/// A point beside another one, in axes that are turned.
TXPoint Turned(const TXPoint& about, double x, double y, double angle)
{
    // Upright text stays where it is, whatever cosines are.
    if (angle == 0.0)
        return {about.x + x, about.y + y};
    const double cosine = std::cos(angle * kRadians);
    const double sine = std::sin(angle * kRadians);
    return {about.x + cosine * x - sine * y, about.y + sine * x + cosine * y};
}

bool IsPlaceable(const PlacedLetters& letters) { return IsNear(letters.origin) && std::isfinite(letters.angle); }

} // namespace

TextPainter::TextPainter(TZObjects::TXGraphicsEngine& engine, TXGraphics& surface)
    : engine(engine), surface(surface), pencil(engine, surface)
{
    const TXRefPtr<TXImage> image = surface.GetImage();
    picture = image ? TXRect(0.0, image->GetWidth(), 0.0, image->GetHeight()) : TXRect();
}

void TextPainter::Draw(const TextBlock& block, const TXPoint& at, const TXPoint& origin, double angle,
                       const TextInk& ink)
{
    std::vector<PlacedLetters> letters;
    for (const TextPiece& piece : block.pieces)
    {
        const TXPoint place = Turned(at, piece.origin.x - origin.x, piece.origin.y - origin.y, angle);
        letters.push_back({&piece, place, angle + piece.angle});
    }
    Draw(letters, block.size, ink);
}

void TextPainter::Draw(const LineText& text, const FittedText& fitted, const TextInk& ink)
{
    std::vector<PlacedLetters> letters;
    for (const FittedCluster& place : fitted.clusters)
    {
        const TextPiece& piece = text.clusters[place.cluster].piece;
        letters.push_back({&piece, Turned(place.at, piece.origin.x, piece.origin.y, place.angle), place.angle});
    }
    Draw(letters, text.size, ink);
}

void TextPainter::Draw(const std::vector<PlacedLetters>& letters, double size, const TextInk& ink)
{
    const double opacity = Within(ink.opacity, 1.0);
    if (letters.empty() || opacity <= 0.0 || !std::all_of(letters.begin(), letters.end(), IsPlaceable))
        return;
    DrawHalo(letters, size, ink);
    for (const PlacedLetters& placed : letters)
    {
        const TXColor color = Faded(placed.piece->color.value_or(ink.color), opacity);
        if (color.getA() > 0)
            pencil.DrawLetters(placed, color);
    }
}

void TextPainter::DrawHalo(const std::vector<PlacedLetters>& letters, double size, const TextInk& ink)
{
    const double width = Within(ink.haloWidth, kWidestHalo * size);
    const double blur = Within(ink.haloBlur, kWidestHalo * size);
    const double opacity = Within(ink.haloColor.alpha * ink.opacity, 1.0);
    if (width < kThinnestHalo || opacity <= 0.0)
        return;
    Color opaque = ink.haloColor;
    opaque.alpha = 1.0;
    const LetterHalo halo{Faded(opaque, 1.0), width};
    const auto showsUnder = [&](const PlacedLetters& placed)
    { return !(placed.piece->color.value_or(ink.color).alpha * ink.opacity >= 1.0); };
    const bool seesThrough = opacity < 1.0 || blur > 0.0 || std::any_of(letters.begin(), letters.end(), showsUnder);
    if (seesThrough)
        return DrawHaloImage(engine, surface, picture, letters, {halo, opacity, blur});
    for (const PlacedLetters& placed : letters)
        pencil.DrawHalo(placed, halo);
}

} // namespace txmap
