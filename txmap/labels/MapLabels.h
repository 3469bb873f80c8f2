#pragma once

#include <string>
#include <vector>

#include <txbase/TXRect.h>
#include <txmap/labels/FaceChoice.h>
#include <txmap/labels/LabelFonts.h>
#include <txmap/labels/LabelOptions.h>
#include <txmap/labels/LabelScene.h>
#include <txmap/labels/PlacedLabel.h>
#include <txmap/map/MapLayer.h>

namespace TZObjects
{
class TXGraphicsEngine;
} // namespace TZObjects

namespace txmap
{

class FrameShape;
class MapView;

/// What else there is on a map that has names.
struct LabelSurroundings
{
    double markerReach = 0.0;             ///< How far the symbols of places reach from these, in pixels.
    const FrameShape* outline = nullptr;  ///< What the map is cut to; null for nothing.
    std::vector<TZObjects::TXRect> taken; ///< Where no name may lie.
};

/// The names on a map: which of them are written, where, and in which face.
class MapLabels
{
public:
    /// @param engine where the fonts come from; it must outlive the labels.
    /// @param view what the picture shows.
    /// @param style how names look in a picture of the usual size.
    /// @param unit what the style calls a pixel, in pixels of this picture.
    /// @param options what the user wants.
    MapLabels(TZObjects::TXGraphicsEngine& engine, const MapView& view, const LabelStyle& style, double unit,
              const LabelOptions& options);

    /// Finds room for the names of countries and places, and takes those places out of the layers that have no room for
    /// theirs: a map shows a place with its name or not at all.
    void LayOut(std::vector<MapLayer>& layers, const LabelSurroundings& surroundings);
    /// The labels that found room, to be drawn with `Fonts`.
    const std::vector<PlacedLabel>& Labels() const { return labels; }
    LabelFonts& Fonts() { return fonts; }
    /// Which characters of the labels cannot be drawn, as no font has them, or not the one that cairo takes; empty when
    /// all is well.
    std::string CharacterProblem() const;
    /// That the face asked for is not installed, and which one is used instead; empty when all is well.
    const std::string& FontProblem() const { return choice.problem; }

private:
    FaceChoice choice;
    LabelFonts fonts;
    LabelScene scene; ///< Without its surroundings.
    std::vector<PlacedLabel> labels;
};

} // namespace txmap
