#include <txmap/tiles/TileImage.h>

#include <gdal_priv.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

#include <txmap/support/Failure.h>
#include <txmap/tiles/ColorPalette.h>
#include <txmap/tiles/PngFile.h>

namespace txmap
{
namespace
{

struct DatasetCloser
{
    void operator()(GDALDataset* dataset) const { GDALClose(dataset); }
};
using Dataset = std::unique_ptr<GDALDataset, DatasetCloser>;

[[noreturn]] void Fail(const char* format)
{
    throw Failure(ExitCode::Drawing, std::string("a tile cannot be written as ") + format);
}

std::string EncodePng(const TilePixels& tile, bool reduces)
{
    std::optional<ColorPalette> palette = ColorPalette::Exact(tile);
    if (!palette && reduces)
        palette = ColorPalette::Reduced(tile);
    return palette ? PalettePng(tile.size, *palette) : ColorPng(tile);
}

/// Through a driver of GDAL. @param channels 3 for colours alone.
std::string EncodeWith(const char* driverName, const TilePixels& tile, int channels, const char* const* options)
{
    GDALDriverManager& drivers = *GetGDALDriverManager();
    GDALDriver* const memory = drivers.GetDriverByName("MEM");
    GDALDriver* const driver = drivers.GetDriverByName(driverName);
    if (!memory || !driver)
        Fail(driverName);
    const Dataset pixels(memory->Create("", tile.size.width, tile.size.height, channels, GDT_Byte, nullptr));
    if (!pixels || pixels->RasterIO(GF_Write, 0, 0, tile.size.width, tile.size.height,
                                    const_cast<std::uint8_t*>(tile.rgba.data()), tile.size.width, tile.size.height,
                                    GDT_Byte, channels, nullptr, 4, 4 * tile.size.width, 1, nullptr) != CE_None)
        Fail(driverName);
    if (channels == 4)
        pixels->GetRasterBand(4)->SetColorInterpretation(GCI_AlphaBand);
    const std::string name = "/vsimem/txmap-tile";
    {
        const Dataset written(
            driver->CreateCopy(name.c_str(), pixels.get(), FALSE, const_cast<char**>(options), nullptr, nullptr));
        if (!written)
            Fail(driverName);
    }
    vsi_l_offset size = 0;
    GByte* const bytes = VSIGetMemFileBuffer(name.c_str(), &size, FALSE);
    std::string file(reinterpret_cast<const char*>(bytes), bytes ? static_cast<std::size_t>(size) : 0);
    VSIUnlink(name.c_str());
    if (file.empty())
        Fail(driverName);
    return file;
}

/// As it is seen on white.
TilePixels OnWhite(TilePixels tile)
{
    for (std::size_t i = 0; i < tile.rgba.size(); i += 4)
        for (std::size_t channel = 0; channel < 3; ++channel)
        {
            std::uint8_t& value = tile.rgba[i + channel];
            const int alpha = tile.rgba[i + 3];
            value = static_cast<std::uint8_t>((value * alpha + 255 * (255 - alpha) + 127) / 255);
        }
    return tile;
}

/// Four bytes that follow each other.
constexpr std::uint32_t InMemory(std::uint32_t first, std::uint32_t second, std::uint32_t third, std::uint32_t fourth)
{
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    return first << 24 | second << 16 | third << 8 | fourth;
#else
    return first | second << 8 | third << 16 | fourth << 24;
#endif
}

/// A row of premultiplied pixels, as red, green, blue and alpha that are not.
void CopyRow(const std::uint32_t* in, std::size_t width, std::uint8_t* out)
{
    std::uint32_t all = ~0u;
    for (std::size_t x = 0; x < width; ++x)
        all &= in[x];
    // Nearly all rows are opaque, and processors do several pixels of a simple loop at once.
    if (all >> 24 == 255)
    {
        for (std::size_t x = 0; x < width; ++x)
        {
            const std::uint32_t swapped = InMemory((in[x] >> 16) & 255, (in[x] >> 8) & 255, in[x] & 255, 255);
            std::memcpy(out + x * 4, &swapped, 4);
        }
        return;
    }
    for (std::size_t x = 0; x < width; ++x, out += 4)
    {
        const std::uint32_t pixel = in[x];
        const std::uint32_t alpha = pixel >> 24;
        const auto channel = [&](std::uint32_t value)
        {
            return static_cast<std::uint8_t>(alpha == 255 ? value
                                             : alpha == 0 ? 0
                                                          : std::min(255u, (value * 255 + alpha / 2) / alpha));
        };
        out[0] = channel((pixel >> 16) & 255);
        out[1] = channel((pixel >> 8) & 255);
        out[2] = channel(pixel & 255);
        out[3] = static_cast<std::uint8_t>(alpha);
    }
}

} // namespace

TilePixels BlockPixels::Tile(int column, int row) const
{
    TilePixels tile;
    tile.size = size;
    const auto width = static_cast<std::size_t>(size.width);
    const auto height = static_cast<std::size_t>(size.height);
    tile.rgba.resize(width * height * 4);
    const auto* const bits = static_cast<const std::uint32_t*>(image->GetBits());
    const auto around = static_cast<std::size_t>(edge);
    const std::size_t stride = width * static_cast<std::size_t>(columns) + 2 * around;
    std::uint8_t* out = tile.rgba.data();
    for (std::size_t y = 0; y < height; ++y, out += width * 4)
        CopyRow(bits + (static_cast<std::size_t>(row) * height + y + around) * stride +
                    static_cast<std::size_t>(column) * width + around,
                width, out);
    return tile;
}

bool IsOpaque(const TilePixels& tile)
{
    std::uint32_t all = ~0u;
    for (std::size_t pixel = 0; pixel < tile.rgba.size() / 4; ++pixel)
        all &= tile.rgba[pixel * 4 + 3];
    return (all & 255) == 255;
}

std::string Encode(const TilePixels& tile, TileFormat format)
{
    switch (format)
    {
    case TileFormat::Png:
        return EncodePng(tile, false);
    case TileFormat::Png8:
        return EncodePng(tile, true);
    case TileFormat::Jpeg:
    {
        const std::array<const char*, 2> options{"QUALITY=85", nullptr};
        return EncodeWith("JPEG", OnWhite(tile), 3, options.data());
    }
    case TileFormat::WebP:
        break;
    }
    const std::array<const char*, 2> options{"QUALITY=85", nullptr};
    return EncodeWith("WEBP", tile, IsOpaque(tile) ? 3 : 4, options.data());
}

const char* NameOf(TileFormat format)
{
    constexpr std::array<const char*, 4> kNames{"png", "png8", "jpg", "webp"};
    return kNames[static_cast<std::size_t>(format)];
}

const char* SuffixOf(TileFormat format)
{
    constexpr std::array<const char*, 4> kSuffixes{".png", ".png", ".jpg", ".webp"};
    return kSuffixes[static_cast<std::size_t>(format)];
}

const char* MimeTypeOf(TileFormat format)
{
    constexpr std::array<const char*, 4> kTypes{"image/png", "image/png", "image/jpeg", "image/webp"};
    return kTypes[static_cast<std::size_t>(format)];
}

} // namespace txmap
