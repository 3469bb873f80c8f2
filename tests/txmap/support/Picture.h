#pragma once

#include <array>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

/// The colour of a pixel: red, green, blue, alpha.
using Pixel = std::array<std::uint8_t, 4>;

/// The largest difference between two pixels in any channel.
int Distance(const Pixel& a, const Pixel& b);

/// A picture that was read from a file, by other means than those it was written with.
class Picture
{
public:
    /// Reads a file. @throw std::runtime_error when that fails.
    explicit Picture(const std::string& path);

    int Width() const { return width; }
    int Height() const { return height; }
    const Pixel& At(int x, int y) const
    {
        return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x));
    }
    const std::vector<Pixel>& Pixels() const { return pixels; }
    /// The pixel at a place of a map of the whole world in degrees that fills the picture.
    const Pixel& AtPlace(double longitude, double latitude) const;

private:
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;
};

/// True for what a reader of the map takes for water: clearly more blue than red, and no darker than a pale blue.
bool IsWater(const Pixel& pixel);
