#include <txmap/drawing/PlacePainter.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_set>

#include <txgraphics/TXFont.h>
#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/labels/FaceChoice.h>
#include <txmap/labels/FontCatalog.h>
#include <txmap/labels/HaloCopies.h>
#include <txmap/map/PixelGeometry.h>

namespace txmap
{

using TZObjects::TXFont;
using TZObjects::TXGraphics;
using TZObjects::TXPen;
using TZObjects::TXPoint;
using TZObjects::TXRefPtr;

namespace
{

// Symbols closer together than this, in pixels, look like one.
constexpr double kSameSpot = 0.25;

/// One place of those at the same spot.
std::vector<TXPoint> Apart(const std::vector<TXPoint>& places)
{
    std::unordered_set<std::uint64_t> spots;
    std::vector<TXPoint> apart;
    for (const TXPoint& place : places)
        if (spots.insert(SpotOf(place, kSameSpot)).second)
            apart.push_back(place);
    return apart;
}

} // namespace

PlacePainter::PlacePainter(const PlaceSymbol& symbol, const Style& style, double unit, TextPath path)
    : symbol(symbol), corners(CornersOf(symbol.shape)),
      size(symbol.size.value_or(2.0 * style.placeRadius * unit * UsualSize(symbol.shape))),
      fill(style.placeFill), ring{style.placeRing.color, style.placeRing.width * unit}, path(path)
{
    if (symbol.shape != PlaceSymbol::Shape::Character)
        return;
    const FaceChoice choice = ChooseFace(symbol.face, "--symbol " + symbol.text);
    face = choice.face;
    fontProblem = choice.problem;
}

double PlacePainter::Reach() const
{
    // The letters of a face are about as wide and high as its size.
    double farthest = corners.empty() ? 0.5 : 0.0;
    for (const TXPoint& corner : corners)
        farthest = std::max({farthest, std::abs(corner.x), std::abs(corner.y)});
    return farthest * size + ring.width;
}

PlacePainter PlacePainter::Within(double reach) const
{
    PlacePainter smaller = *this;
    const double room = std::max(0.0, reach - ring.width);
    smaller.size *= std::min(1.0, room / (Reach() - ring.width));
    return smaller;
}

std::string PlacePainter::CharacterProblem() const
{
    if (symbol.shape != PlaceSymbol::Shape::Character || FontCatalog::CharactersOf(face)(symbol.character))
        return {};
    const std::string name = CharacterName(symbol.character);
    if (path == TextPath::Qt && FontCatalog::HasCharacter(symbol.character))
        return "--symbol: the face " + face + " has no " + name + "; that of another one is drawn";
    return "--symbol: the face " + face + " has no " + name + ", so that no place can be drawn as it should";
}

void PlacePainter::Draw(Canvas& canvas, const std::vector<TXPoint>& places) const
{
    if (places.empty())
        return;
    const std::vector<TXPoint> apart = Apart(places);
    if (corners.empty())
        DrawCharacters(canvas, apart);
    else
        DrawShapes(canvas, apart);
}

void PlacePainter::DrawShapes(Canvas& canvas, const std::vector<TXPoint>& places) const
{
    // All rings come first, so that none lies over the symbol of a neighbour.
    DrawRings(canvas, places);
    DrawFilled(canvas, places, size, fill);
}

void PlacePainter::DrawRings(Canvas& canvas, const std::vector<TXPoint>& places) const
{
    if (symbol.shape == PlaceSymbol::Shape::Circle)
    {
        // Below the symbol nobody sees that the ring is a disc, which is drawn much faster.
        DrawFilled(canvas, places, size + 2.0 * ring.width, ring.color);
        return;
    }
    // The ring lies outside of the symbol, whose corners would lose their tips otherwise.
    canvas.Surface().SelectPen(SolidPen(canvas.Engine(), ring.color, 2.0 * ring.width));
    std::vector<TXPoint> rings;
    for (const TXPoint& place : places)
        for (std::size_t i = 0; i <= corners.size(); ++i)
        {
            const TXPoint& corner = corners[i % corners.size()];
            rings.emplace_back(place.x + size * corner.x, place.y + size * corner.y);
        }
    const std::vector<int> counts(places.size(), static_cast<int>(corners.size()) + 1);
    RequireDrawn(canvas.Surface().PolyPolyline(rings.data(), counts.data(), static_cast<int>(counts.size())));
}

void PlacePainter::DrawFilled(Canvas& canvas, const std::vector<TXPoint>& places, double width,
                              const TZObjects::TXColor& color) const
{
    const TXRefPtr<TXPen> none = SolidPen(canvas.Engine(), color, 1.0);
    none->SetPenStyle(TXPen::NullPen);
    TXGraphics& surface = canvas.Surface();
    surface.SelectPen(none);
    surface.SelectBrush(SolidBrush(canvas.Engine(), color));
    for (const TXPoint& place : places)
        RequireDrawn(surface.VectorMarker(place.x, place.y, width, width, 0.0, corners.data(),
                                          static_cast<int>(corners.size()), true));
}

void PlacePainter::DrawCharacters(Canvas& canvas, const std::vector<TXPoint>& places) const
{
    // A font of its own, since the markers leave their size and face in it.
    const TXRefPtr<TXFont> font(canvas.Engine().NewFont());
    RequireDrawn(font && font->Create());
    canvas.Surface().SelectFont(font);
    const auto draw = [&](const TXPoint& place)
    {
        RequireDrawn(canvas.Surface().FontMarker(place.x, place.y, size, size, 0.0, face.c_str(),
                                                 static_cast<short>(symbol.character)));
    };
    const std::vector<TXPoint> copies = HaloCopies(ring.width);
    for (const TXPoint& place : places)
    {
        canvas.Surface().SelectPen(SolidPen(canvas.Engine(), ring.color, 1.0));
        for (const TXPoint& moved : copies)
            draw({place.x + moved.x, place.y + moved.y});
        canvas.Surface().SelectPen(SolidPen(canvas.Engine(), fill, 1.0));
        draw(place);
    }
}

} // namespace txmap
