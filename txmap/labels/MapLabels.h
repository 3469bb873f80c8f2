#pragma once

#include <string>
#include <vector>

#include <txmap/drawing/LabelPainter.h>
#include <txmap/labels/FaceChoice.h>
#include <txmap/labels/LabelLayout.h>
#include <txmap/labels/LabelOptions.h>
#include <txmap/map/MapLayer.h>

namespace TZObjects
{

class FrameShape;
class MapRenderer;
class TXGraphicsEngine;

/// What else there is on a map that has names.
struct LabelSurroundings
{
    double markerReach = 0.0;            ///< How far the symbols of places reach from these, in pixels.
    const FrameShape* outline = nullptr; ///< What the map is cut to; null for nothing.
    std::vector<TXRect> taken;           ///< Where no name may lie.
};

/// The names on a map.
class MapLabels
{
public:
    /// @param engine what draws; it must outlive the labels.
    /// @param renderer what draws the map; it must outlive the labels.
    /// @param options what the user wants.
    MapLabels(TXGraphicsEngine& engine, const MapRenderer& renderer, const LabelOptions& options);

    /// Finds room for the names of countries and places, and takes those places out of the layers that have no room for
    /// theirs: a map shows a town with its name or not at all.
    void LayOut(std::vector<MapLayer>& layers, const LabelSurroundings& surroundings);
    /// Draws them on the map, which must be drawn before.
    void Draw();
    /// Which characters of the drawn labels cannot be drawn, as no font has them, or not the one that cairo takes;
    /// empty when all is well.
    std::string CharacterProblem() const;
    /// That the face asked for is not installed, and which one is used instead; empty when all is well.
    const std::string& FontProblem() const { return choice.problem; }

private:
    const MapRenderer& renderer;
    LabelOptions options;
    FaceChoice choice;
    LabelPainter painter;
    std::vector<PlacedLabel> labels;
};

} // namespace TZObjects
