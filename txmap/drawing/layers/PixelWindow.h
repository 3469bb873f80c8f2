#pragma once

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
