#include <txmap/tiles/TileImage.h>

#include <gdal_priv.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <unordered_map>

#include <txmap/support/Failure.h>
#include <txmap/tiles/ColorPalette.h>

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

struct PngWriter
{
    PngWriter() : png(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr))
    {
        info = png ? png_create_info_struct(png) : nullptr;
    }
    ~PngWriter() { png_destroy_write_struct(&png, &info); }
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    png_structp png;
    png_infop info;
};

void Append(png_structp png, png_bytep data, png_size_t size)
{
    static_cast<std::string*>(png_get_io_ptr(png))->append(reinterpret_cast<const char*>(data), size);
}

bool IsOpaque(const TilePixels& tile)
{
    for (std::size_t i = 3; i < tile.rgba.size(); i += 4)
        if (tile.rgba[i] != 255)
            return false;
    return true;
}

/// Pixels without their alpha.
std::vector<std::uint8_t> Rgb(const TilePixels& tile)
{
    std::vector<std::uint8_t> rgb;
    rgb.reserve(tile.rgba.size() / 4 * 3);
    for (std::size_t i = 0; i < tile.rgba.size(); i += 4)
        rgb.insert(rgb.end(), tile.rgba.begin() + static_cast<std::ptrdiff_t>(i),
                   tile.rgba.begin() + static_cast<std::ptrdiff_t>(i + 3));
    return rgb;
}

std::string WritePng(const PixelSize& size, const std::uint8_t* rows, int channels, const ColorPalette* palette)
{
    std::string file;
    PngWriter writer;
    if (!writer.info || setjmp(png_jmpbuf(writer.png)))
        Fail("PNG");
    png_set_write_fn(writer.png, &file, Append, nullptr);
    const int type = channels == 1 ? PNG_COLOR_TYPE_PALETTE : channels == 3 ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGBA;
    const int depth = palette ? palette->Depth() : 8;
    png_set_IHDR(writer.png, writer.info, static_cast<png_uint_32>(size.width), static_cast<png_uint_32>(size.height),
                 depth, type, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_BASE, PNG_FILTER_TYPE_BASE);
    if (palette)
    {
        std::array<png_color, 256> colors{};
        std::array<png_byte, 256> alphas{};
        const auto count = static_cast<int>(palette->colors.size());
        for (std::size_t i = 0; i < palette->colors.size(); ++i)
        {
            const std::uint32_t color = palette->colors[i];
            colors[i] = {static_cast<png_byte>(color), static_cast<png_byte>(color >> 8),
                         static_cast<png_byte>(color >> 16)};
            alphas[i] = static_cast<png_byte>(color >> 24);
        }
        png_set_PLTE(writer.png, writer.info, colors.data(), count);
        if (std::any_of(alphas.begin(), alphas.begin() + count, [](png_byte alpha) { return alpha != 255; }))
            png_set_tRNS(writer.png, writer.info, alphas.data(), count, nullptr);
    }
    // Flat colours pack as well without filters as with them.
    png_set_filter(writer.png, PNG_FILTER_TYPE_BASE, palette ? PNG_FILTER_NONE : PNG_FILTER_SUB);
    png_set_compression_level(writer.png, palette ? 6 : 4);
    png_write_info(writer.png, writer.info);
    if (palette)
        png_set_packing(writer.png);
    for (int row = 0; row < size.height; ++row)
        png_write_row(writer.png,
                      rows + static_cast<std::size_t>(row) * static_cast<std::size_t>(size.width * channels));
    png_write_end(writer.png, writer.info);
    return file;
}

std::string EncodePng(const TilePixels& tile, bool reduces)
{
    std::optional<ColorPalette> palette = ColorPalette::Exact(tile);
    if (!palette && reduces)
        palette = ColorPalette::Reduced(tile);
    if (palette)
    {
        const std::vector<std::uint8_t> indices = palette->IndicesOf(tile);
        return WritePng(tile.size, indices.data(), 1, &*palette);
    }
    if (IsOpaque(tile))
        return WritePng(tile.size, Rgb(tile).data(), 3, nullptr);
    return WritePng(tile.size, tile.rgba.data(), 4, nullptr);
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
    for (std::size_t y = 0; y < height; ++y)
    {
        const std::uint32_t* in = bits + (static_cast<std::size_t>(row) * height + y + around) * stride +
                                  static_cast<std::size_t>(column) * width + around;
        for (std::size_t x = 0; x < width; ++x, ++in, out += 4)
        {
            const std::uint32_t pixel = *in;
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
    return tile;
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
