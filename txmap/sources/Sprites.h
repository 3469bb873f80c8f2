#pragma once

#include <map>
#include <string>
#include <unordered_set>
#include <vector>

#include <txmap/sources/Raster.h>
#include <txmap/style/document/MapStyle.h>

namespace txmap
{

class SourceDiagnostics;
class SourceFolder;

/// A picture of a sprite.
struct SpritePicture
{
    Raster pixels;
    double ratio = 1.0; ///< Its pixels for each logical one.
    bool isDistanceField = false;

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
    void Read(const StyleSprite& sprite, const SourceFolder& folder, double scale);

    std::map<std::string, SpritePicture> pictures;
    std::unordered_set<std::string> names;
};

} // namespace txmap
