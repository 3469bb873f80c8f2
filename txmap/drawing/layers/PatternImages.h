#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXImage.h>

namespace txmap
{

class MapCanvas;
class Sprites;

/// Patterns as textures of the picture's size: laid from the north-west corner of the world, turned with the map, and
/// as large as the zoom says. A pattern that is wanted again is made once.
class PatternImages
{
public:
    /// Both must outlive this object.
    PatternImages(const MapCanvas& canvas, const Sprites& sprites);
    ~PatternImages();

    /// Null where the sprite has no picture of that name.
    TZObjects::TXRefPtr<TZObjects::TXImage> Find(const std::string& name);

private:
    struct Texture;

    const MapCanvas& canvas;
    const Sprites& sprites;
    std::map<std::string, std::unique_ptr<Texture>> textures;
};

} // namespace txmap
