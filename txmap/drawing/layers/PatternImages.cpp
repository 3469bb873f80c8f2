#include <txmap/drawing/layers/PatternImages.h>

#include <cmath>

#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/layers/MapCanvas.h>
#include <txmap/drawing/layers/PixelSampler.h>
#include <txmap/sources/Sprites.h>

namespace txmap
{

using TZObjects::TXImage;
using TZObjects::TXPoint;
using TZObjects::TXRefPtr;

/// The image refers to the pixels.
struct PatternImages::Texture
{
    std::vector<std::uint32_t> pixels;
    TXRefPtr<TXImage> image;
};

PatternImages::PatternImages(const MapCanvas& canvas, const Sprites& sprites) : canvas(canvas), sprites(sprites) {}

PatternImages::~PatternImages() = default;

TXRefPtr<TXImage> PatternImages::Find(const std::string& name)
{
    if (const auto known = textures.find(name); known != textures.end())
        return known->second->image;
    const SpritePicture* const picture = sprites.Find(name);
    if (!picture)
        return nullptr;
    const MapView& view = canvas.View();
    const PixelSize size = view.Size();
    // Patterns grow from one whole zoom to the next, where they begin anew.
    const double world = 512.0 * std::exp2(std::floor(view.Zoom())) * picture->ratio;
    const PixelSampler sampler(picture->pixels, true, PixelSampler::Beyond::Repeat);
    auto texture = std::make_unique<Texture>();
    texture->pixels.reserve(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
        {
            const TXPoint place = view.ToPlace({x + 0.5, y + 0.5});
            texture->pixels.push_back(sampler.At(place.x * world, place.y * world).Packed());
        }
    texture->image = TXRefPtr<TXImage>(canvas.Engine().NewImage());
    RequireDrawn(texture->image &&
                 texture->image->CreateImage(reinterpret_cast<unsigned char*>(texture->pixels.data()), size.width,
                                             size.height, TXImage::Format_ARGB32_Premultiplied));
    return textures.emplace(name, std::move(texture)).first->second->image;
}

} // namespace txmap
