#include <txmap/drawing/PlacePainter.h>

#include <algorithm>
#include <cmath>

#include <txgraphics/TXFont.h>
#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/HaloCopies.h>
#include <txmap/labels/FaceChoice.h>
#include <txmap/labels/FontCatalog.h>

namespace txmap
{

using TZObjects::TXFont;
using TZObjects::TXPen;
using TZObjects::TXPoint;
using TZObjects::TXRefPtr;

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
    if (corners.empty())
        DrawCharacters(canvas, places);
    else
        DrawShapes(canvas, places);
}

void PlacePainter::DrawShapes(Canvas& canvas, const std::vector<TXPoint>& places) const
{
    // The ring lies outside of the symbol, whose corners would lose their tips otherwise.
    const TXRefPtr<TXPen> around = SolidPen(canvas.Engine(), ring.color, 2.0 * ring.width);
    const TXRefPtr<TXPen> none = SolidPen(canvas.Engine(), ring.color, 1.0);
    none->SetPenStyle(TXPen::NullPen);
    canvas.Surface().SelectBrush(SolidBrush(canvas.Engine(), fill));
    for (const TXPoint& place : places)
        for (const TXRefPtr<TXPen>& pen : {around, none})
        {
            canvas.Surface().SelectPen(pen);
            RequireDrawn(canvas.Surface().VectorMarker(place.x, place.y, size, size, 0.0, corners.data(),
                                                       static_cast<int>(corners.size()), true));
        }
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
