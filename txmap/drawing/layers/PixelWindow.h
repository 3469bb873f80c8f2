#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <txbase/TXRect.h>

namespace txmap
{

class MapCanvas;

/// A rectangle of the picture's pixels that are computed one by one and drawn together.
class PixelWindow
{
public:
    /// @param box is rounded outward and cut to the picture.
    PixelWindow(const MapCanvas& canvas, const TZObjects::TXRect& box);

    bool IsEmpty() const { return width <= 0 || height <= 0; }
    /// The number of pixels.
    std::size_t Count() const { return pixels.size(); }
    /// Calls @p visit with the centre and the index of each pixel of a box that is in the window; indices go row by
    /// row.
    template <class Visit>
    void ForEach(const TZObjects::TXRect& box, Visit visit) const
    {
        const auto within = [](double value, int first, int count)
        { return static_cast<int>(std::clamp(value, 0.0 + first, 0.0 + first + count)); };
        const int right = within(std::ceil(box.right), left, width);
        const int bottom = within(std::ceil(box.bottom), top, height);
        for (int y = within(box.top, top, height); y < bottom; ++y)
            for (int x = within(box.left, left, width); x < right; ++x)
                visit(x + 0.5, y + 0.5,
                      static_cast<std::size_t>(y - top) * static_cast<std::size_t>(width) +
                          static_cast<std::size_t>(x - left));
    }
    /// Calls @p color with the centre of each pixel, for its colour: 0xAARRGGBB, premultiplied.
    template <class ColorOf>
    void Fill(ColorOf color)
    {
        std::size_t index = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                pixels[index++] = color(left + x + 0.5, top + y + 0.5);
    }
    /// Draws the pixels.
    void Draw(MapCanvas& canvas, double opacity);

private:
    int left;
    int top;
    int width;
    int height;
    std::vector<std::uint32_t> pixels;
};

} // namespace txmap
