#include <txmap/drawing/layers/IconPainter.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXImage.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/layers/IconPixels.h>
#include <txmap/drawing/layers/MapCanvas.h>
#include <txmap/drawing/layers/PixelWindow.h>
#include <txmap/sources/Sprites.h>

namespace txmap
{

using TZObjects::TXImage;
using TZObjects::TXPoint;
using TZObjects::TXRect;
using TZObjects::TXRefPtr;

namespace
{

// Larger icons are made afresh each time, and only what of them is seen.
constexpr double kLargestKept = 256.0;
constexpr std::size_t kMostKept = 4096;

void Append(std::string& key, double number) { key.append(reinterpret_cast<const char*>(&number), sizeof number); }

void Append(std::string& key, const Color& color)
{
    for (const double part : {color.red, color.green, color.blue, color.alpha})
        Append(key, part);
}

/// Everything that the pixels of an icon depend on.
std::string KeyOf(const IconShape& shape, const TXPoint& part, double angle, double scale, const IconInk& ink)
{
    std::string key;
    key.append(reinterpret_cast<const char*>(&shape.picture), sizeof shape.picture);
    for (const std::vector<IconStop>* const stops : {&shape.across, &shape.down})
    {
        Append(key, static_cast<double>(stops->size()));
        for (const IconStop& stop : *stops)
        {
            Append(key, stop.place);
            Append(key, stop.picture);
        }
    }
    for (const double number : {part.x, part.y, angle, scale})
        Append(key, number);
    if (!shape.picture->isDistanceField)
        return key;
    Append(key, ink.color);
    Append(key, ink.haloColor);
    Append(key, ink.haloWidth);
    Append(key, ink.haloBlur);
    return key;
}

/// The nearest quarter; of two, the greater one on either side of 0, so that it is the same wherever a picture begins.
double Quarter(double value) { return std::floor(value * 4.0 + 0.5) / 4.0; }

} // namespace

/// Pixels with their place, counted from the whole pixels of the anchor. The image refers to the pixels.
struct IconPainter::Icon
{
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
    TXRefPtr<TXImage> image;
};

IconPainter::IconPainter(MapCanvas& canvas) : canvas(canvas) {}

IconPainter::~IconPainter() = default;

const IconPainter::Icon& IconPainter::Find(const IconShape& shape, const TXPoint& part, double angle, double scale,
                                           const IconInk& ink)
{
    const std::string key = KeyOf(shape, part, angle, scale, ink);
    if (const auto known = icons.find(key); known != icons.end())
        return *known->second;
    if (icons.size() >= kMostKept)
        icons.clear();
    auto icon = std::make_unique<Icon>();
    const IconPixels made(shape, part, angle, scale, ink);
    const TXRect box = made.Box();
    icon->left = static_cast<int>(std::floor(box.left));
    icon->top = static_cast<int>(std::floor(box.top));
    icon->width = std::max(1, static_cast<int>(std::ceil(box.right)) - icon->left);
    icon->height = std::max(1, static_cast<int>(std::ceil(box.bottom)) - icon->top);
    icon->pixels.reserve(static_cast<std::size_t>(icon->width) * static_cast<std::size_t>(icon->height));
    for (int y = 0; y < icon->height; ++y)
        for (int x = 0; x < icon->width; ++x)
            icon->pixels.push_back(made.At({icon->left + x + 0.5, icon->top + y + 0.5}));
    icon->image = TXRefPtr<TXImage>(canvas.Engine().NewImage());
    RequireDrawn(icon->image &&
                 icon->image->CreateImage(reinterpret_cast<unsigned char*>(icon->pixels.data()), icon->width,
                                          icon->height, TXImage::Format_ARGB32_Premultiplied));
    return *icons.emplace(key, std::move(icon)).first->second;
}

void IconPainter::DrawPart(const Icon& icon, long left, long top, double opacity)
{
    // Only what lies in the picture: surfaces refuse a target that ends at their edge.
    const PixelSize size = canvas.View().Size();
    const long x = std::max(0L, left);
    const long y = std::max(0L, top);
    const long right = std::min<long>(size.width, left + icon.width);
    const long bottom = std::min<long>(size.height, top + icon.height);
    if (x >= right || y >= bottom)
        return;
    const auto number = [](long value) { return static_cast<double>(value); };
    RequireDrawn(canvas.Surface().DrawImage(
        {number(x), number(right), number(y), number(bottom)}, icon.image.get(),
        {number(x - left), number(right - left), number(y - top), number(bottom - top)}, opacity));
}

void IconPainter::Draw(const IconShape& shape, const TXPoint& at, double angle, double scale, const IconInk& ink,
                       double opacity)
{
    const TXRect box = shape.Box();
    if (!std::isfinite(at.x + at.y + angle + scale + box.left + box.right + box.top + box.bottom) ||
        std::abs(at.x) > 1e8 || std::abs(at.y) > 1e8 || opacity <= 0.0 || scale <= 0.0)
        return;
    const IconPixels there(shape, at, angle, scale, ink);
    const TXRect covered = there.Box();
    if (covered.Width() > kLargestKept || covered.Height() > kLargestKept)
    {
        PixelWindow window(canvas, covered);
        if (window.IsEmpty())
            return;
        window.Fill([&](double x, double y) { return there.At({x, y}); });
        return window.Draw(canvas, std::min(opacity, 1.0));
    }
    // The nearest pixel of the picture is seen, so that it stays sharp.
    TXPoint moved(Quarter(at.x), Quarter(at.y));
    if (there.IsPixelForPixel())
        moved = {std::ceil(at.x + box.left - 0.5) - box.left, std::ceil(at.y + box.top - 0.5) - box.top};
    const TXPoint whole(std::floor(moved.x), std::floor(moved.y));
    const Icon& icon = Find(shape, {moved.x - whole.x, moved.y - whole.y}, angle, scale, ink);
    DrawPart(icon, std::lround(whole.x) + icon.left, std::lround(whole.y) + icon.top, std::min(opacity, 1.0));
}

} // namespace txmap
