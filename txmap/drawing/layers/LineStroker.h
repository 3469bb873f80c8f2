#pragma once

#include <cstddef>
#include <vector>

#include <txmap/drawing/layers/LineLook.h>
#include <txmap/drawing/layers/MapCanvas.h>
#include <txmap/map/LineShape.h>
#include <txmap/map/PixelParts.h>

namespace txmap
{

/// Strokes lines in pixels. Lines of the same look are handed to the surface together; `Flush` draws what is left.
class LineStroker
{
public:
    explicit LineStroker(MapCanvas& canvas) : canvas(canvas) {}

    /// @param phase how far from the start of its line the piece begins, in pixels: dashes go on from there.
    /// @param closes whether a line that ends where it begins has a corner there.
    void Add(const TZObjects::TXPoint* points, std::size_t count, const LineLook& look, double phase, bool closes);
    void Flush();

private:
    void AddShape(PixelLine line, const LineLook& look, double phase, bool closes);
    void AddDashes(const PixelLine& line, const LineLook& look, double phase, Parts& pieces) const;
    void Use(const PenLook& look);

    MapCanvas& canvas;
    PenLook pen;
    Parts parts; ///< All for this pen.
};

/// The line beside another one that a look asks for, with corners as its joins.
PixelLine MovedLine(const TZObjects::TXPoint* points, std::size_t count, const LineLook& look, double offset);

/// The pens that draw a line one over the other: several for blurred edges.
std::vector<PenLook> PensFor(const LineLook& look);

} // namespace txmap
