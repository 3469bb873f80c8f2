#pragma once

#include <functional>
#include <string>
#include <vector>

#include <txmap/LabelLayout.h>
#include <txmap/LabelOptions.h>
#include <txmap/LabelPainter.h>
#include <txmap/MapLayer.h>

namespace TZObjects
{

class MapRenderer;
class TXGraphicsEngine;

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
    void LayOut(std::vector<MapLayer>& layers);
    /// Draws them on the map, which must be drawn before.
    void Draw();
    /// Which characters of the drawn labels cannot be drawn, as no font has them, or not the one that cairo takes;
    /// empty when all is well.
    std::string CharacterProblem() const;
    /// That the face asked for is not installed, and which one is used instead; empty when all is well.
    const std::string& FontProblem() const { return fontProblem; }

private:
    const MapRenderer& renderer;
    LabelOptions options;
    std::string fontProblem;
    std::string face;
    LabelPainter painter;
    std::vector<PlacedLabel> labels;
};

/// The message for names that no layer has.
std::string MissingNames(const LabelOptions& options);

/// The message about those characters of texts that @p hasCharacter denies, each named once; empty for none.
/// @param begin how the message begins.
std::string MissingCharacters(const std::vector<std::wstring>& texts, const std::function<bool(char32_t)>& hasCharacter,
                              const std::string& begin = "no installed font has");

} // namespace TZObjects
