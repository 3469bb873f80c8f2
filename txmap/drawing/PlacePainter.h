#pragma once

#include <string>
#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/drawing/PlaceSymbol.h>
#include <txmap/labels/TextPath.h>
#include <txmap/style/Style.h>

namespace txmap
{

class Canvas;

/// Draws the symbols of places.
class PlacePainter
{
public:
    /// @param symbol what stands for a place.
    /// @param style the colours, and how large a symbol is by itself.
    /// @param unit what the style calls a pixel, in pixels of the picture.
    /// @param path what draws the characters of symbol fonts.
    PlacePainter(const PlaceSymbol& symbol, const Style& style, double unit, TextPath path);

    /// How far a symbol reaches from its place, its pale ring included.
    double Reach() const;
    /// The same with symbols that reach no farther than so many pixels.
    PlacePainter Within(double reach) const;
    /// Draws a symbol at each place. @throw Failure with `ExitCode::Drawing` when the surface refuses.
    void Draw(Canvas& canvas, const std::vector<TZObjects::TXPoint>& places) const;
    /// That the symbol's character cannot be drawn as it should; empty when all is well.
    std::string CharacterProblem() const;
    /// That the symbol font is not installed, and which one is used instead; empty when all is well.
    const std::string& FontProblem() const { return fontProblem; }

private:
    void DrawShapes(Canvas& canvas, const std::vector<TZObjects::TXPoint>& places) const;
    void DrawRings(Canvas& canvas, const std::vector<TZObjects::TXPoint>& places) const;
    void DrawFilled(Canvas& canvas, const std::vector<TZObjects::TXPoint>& places, double width,
                    const TZObjects::TXColor& color) const;
    void DrawCharacters(Canvas& canvas, const std::vector<TZObjects::TXPoint>& places) const;

    PlaceSymbol symbol;
    std::vector<TZObjects::TXPoint> corners; ///< Empty for a character.
    double size;
    TZObjects::TXColor fill;
    Stroke ring; ///< Its width in pixels of the picture.
    TextPath path;
    std::string face;
    std::string fontProblem;
};

} // namespace txmap
