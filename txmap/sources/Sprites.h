#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include <txmap/sources/Raster.h>
#include <txmap/style/document/MapStyle.h>

namespace txmap
{

class SourceDiagnostics;
class SourceFolder;

/// How a picture takes the shape of a text that it is laid around.
enum class TextFit
{
    StretchOrShrink,
    StretchOnly, ///< It gets no narrower, or lower, than its proportions say.
    Proportional ///< Its proportions stay.
};

/// What may be stretched of a picture in one direction, in its pixels.
struct SpriteStretch
{
    double from = 0.0;
    double to = 0.0;
};

/// A picture of a sprite.
struct SpritePicture
{
    Raster pixels;
    double ratio = 1.0; ///< Its pixels for each logical one.
    bool isDistanceField = false;
    /// Where a text goes that the picture is laid around: left, top, right, bottom, in its pixels.
    std::optional<std::array<double, 4>> content;
    std::vector<SpriteStretch> stretchX; ///< In rising order, apart from each other; empty for all of it.
    std::vector<SpriteStretch> stretchY;
    TextFit fitWidth = TextFit::StretchOrShrink;
    TextFit fitHeight = TextFit::StretchOrShrink;

    double Width() const { return pixels.size.width / ratio; }
    double Height() const { return pixels.size.height / ratio; }
};

/// The pictures of all sprites of a style.
class Sprites
{
public:
    /// Reads the sprites, those for twice as many pixels where @p scale asks for them and they exist.
    Sprites(const std::vector<StyleSprite>& sprites, const SourceFolder& folder, double scale,
            SourceDiagnostics& diagnostics);

    /// Null where there is no picture of that name.
    const SpritePicture* Find(const std::string& name) const;
    /// All names, as expressions ask for them.
    const std::unordered_set<std::string>& Names() const { return names; }

private:
    void Read(const StyleSprite& sprite, const SourceFolder& folder, double scale, SourceDiagnostics& diagnostics);

    std::map<std::string, SpritePicture> pictures;
    std::unordered_set<std::string> names;
};

} // namespace txmap
