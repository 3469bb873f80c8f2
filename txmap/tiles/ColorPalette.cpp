#include <txmap/tiles/ColorPalette.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <unordered_map>

namespace txmap
{
namespace
{

constexpr std::size_t kMost = 256;

std::uint32_t ColorAt(const TilePixels& tile, std::size_t pixel)
{
    const std::uint8_t* const rgba = tile.rgba.data() + pixel * 4;
    return rgba[0] | (static_cast<std::uint32_t>(rgba[1]) << 8) | (static_cast<std::uint32_t>(rgba[2]) << 16) |
           (static_cast<std::uint32_t>(rgba[3]) << 24);
}

/// Finds the places of colours in a palette. Its slots are several times as many as a palette has colours.
class ColorTable
{
public:
    /// The place of a colour, which is appended if it is not there; nothing if they are too many.
    std::optional<std::uint8_t> NumberOf(std::uint32_t color, std::vector<std::uint32_t>& colors)
    {
        for (std::size_t slot = (color * 2654435761u) >> (32 - kBits);; slot = (slot + 1) % slots.size())
        {
            const std::uint16_t place = slots[slot];
            if (place > 0 && colors[place - 1u] == color)
                return static_cast<std::uint8_t>(place - 1u);
            if (place > 0)
                continue;
            if (colors.size() == kMost)
                return std::nullopt;
            colors.push_back(color);
            slots[slot] = static_cast<std::uint16_t>(colors.size());
            return static_cast<std::uint8_t>(colors.size() - 1);
        }
    }

private:
    static constexpr unsigned kBits = 11;

    std::array<std::uint16_t, std::size_t(1) << kBits> slots{}; ///< One more than the place; 0 for none.
};

struct CountedColor
{
    std::uint32_t color = 0;
    std::uint32_t count = 0;

    int Channel(int number) const { return static_cast<int>((color >> (8 * number)) & 255); }
};

/// Colours that lie together: a range of all of them.
struct ColorBox
{
    std::size_t first = 0, last = 0; ///< Without the last.
    int channel = 0;                 ///< In which they differ most.
    std::uint64_t worth = 0;         ///< What cutting it improves.
};

ColorBox BoxOf(const std::vector<CountedColor>& colors, std::size_t first, std::size_t last)
{
    ColorBox box{first, last, 0, 0};
    std::uint64_t pixels = 0;
    for (std::size_t i = first; i < last; ++i)
        pixels += colors[i].count;
    for (int channel = 0; channel < 4; ++channel)
    {
        int least = 255, most = 0;
        for (std::size_t i = first; i < last; ++i)
        {
            least = std::min(least, colors[i].Channel(channel));
            most = std::max(most, colors[i].Channel(channel));
        }
        const auto spread = static_cast<std::uint64_t>(std::max(0, most - least));
        const std::uint64_t worth = spread * spread * pixels;
        if (worth > box.worth)
        {
            box.worth = worth;
            box.channel = channel;
        }
    }
    return box;
}

std::uint32_t MeanOf(const std::vector<CountedColor>& colors, const ColorBox& box)
{
    std::array<std::uint64_t, 4> sums{};
    std::uint64_t pixels = 0;
    for (std::size_t i = box.first; i < box.last; ++i)
    {
        for (int channel = 0; channel < 4; ++channel)
            sums[static_cast<std::size_t>(channel)] +=
                static_cast<std::uint64_t>(colors[i].Channel(channel)) * colors[i].count;
        pixels += colors[i].count;
    }
    std::uint32_t mean = 0;
    for (std::size_t channel = 0; channel < 4; ++channel)
        mean |= static_cast<std::uint32_t>((sums[channel] + pixels / 2) / pixels) << (8 * channel);
    return mean;
}

} // namespace

std::optional<ColorPalette> ColorPalette::Exact(const TilePixels& tile)
{
    ColorPalette palette;
    ColorTable table;
    const std::size_t count = tile.rgba.size() / 4;
    palette.numbers.resize(count);
    // Most tiles of the world are of one colour: the same bytes as one pixel further on.
    if (count > 0 && std::memcmp(tile.rgba.data(), tile.rgba.data() + 4, tile.rgba.size() - 4) == 0)
    {
        palette.colors = {ColorAt(tile, 0)};
        return palette;
    }
    std::uint32_t before = 0;
    std::uint8_t number = 0;
    for (std::size_t pixel = 0; pixel < count; ++pixel)
    {
        const std::uint32_t color = ColorAt(tile, pixel);
        if (pixel == 0 || color != before)
        {
            const std::optional<std::uint8_t> found = table.NumberOf(color, palette.colors);
            if (!found)
                return std::nullopt;
            number = *found;
            before = color;
        }
        palette.numbers[pixel] = number;
    }
    return palette;
}

ColorPalette ColorPalette::Reduced(const TilePixels& tile)
{
    std::unordered_map<std::uint32_t, std::uint32_t> counts;
    for (std::size_t pixel = 0; pixel < tile.rgba.size() / 4; ++pixel)
        ++counts[ColorAt(tile, pixel)];
    std::vector<CountedColor> colors;
    colors.reserve(counts.size());
    for (const auto& [color, count] : counts)
        colors.push_back({color, count});
    std::sort(colors.begin(), colors.end(),
              [](const CountedColor& a, const CountedColor& b) { return a.color < b.color; });
    std::vector<ColorBox> boxes{BoxOf(colors, 0, colors.size())};
    while (boxes.size() < kMost)
    {
        const auto widest = std::max_element(boxes.begin(), boxes.end(),
                                             [](const ColorBox& a, const ColorBox& b) { return a.worth < b.worth; });
        if (widest->worth == 0)
            break;
        const ColorBox box = *widest;
        const auto at = [&](std::size_t i) { return colors.begin() + static_cast<std::ptrdiff_t>(i); };
        std::sort(at(box.first), at(box.last),
                  [&](const CountedColor& a, const CountedColor& b)
                  {
                      const int first = a.Channel(box.channel), second = b.Channel(box.channel);
                      return first != second ? first < second : a.color < b.color;
                  });
        std::uint64_t pixels = 0;
        for (std::size_t i = box.first; i < box.last; ++i)
            pixels += colors[i].count;
        // Where half of the pixels are on each side, but never a side without colours.
        std::size_t cut = box.first + 1;
        for (std::uint64_t sum = colors[box.first].count; cut < box.last - 1 && sum + colors[cut].count <= pixels / 2;
             ++cut)
            sum += colors[cut].count;
        *widest = BoxOf(colors, box.first, cut);
        boxes.push_back(BoxOf(colors, cut, box.last));
    }
    ColorPalette palette;
    std::unordered_map<std::uint32_t, std::uint8_t> numbers;
    for (const ColorBox& box : boxes)
    {
        for (std::size_t i = box.first; i < box.last; ++i)
            numbers.emplace(colors[i].color, static_cast<std::uint8_t>(palette.colors.size()));
        palette.colors.push_back(MeanOf(colors, box));
    }
    palette.numbers.reserve(tile.rgba.size() / 4);
    for (std::size_t pixel = 0; pixel < tile.rgba.size() / 4; ++pixel)
        palette.numbers.push_back(numbers.at(ColorAt(tile, pixel)));
    return palette;
}

int ColorPalette::Depth() const
{
    const std::size_t count = colors.size();
    return count <= 2 ? 1 : count <= 4 ? 2 : count <= 16 ? 4 : 8;
}

} // namespace txmap
