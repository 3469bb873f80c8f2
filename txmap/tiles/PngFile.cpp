#include <txmap/tiles/PngFile.h>

#include <png.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include <txmap/support/Failure.h>
#include <txmap/tiles/ColorPalette.h>

namespace txmap
{
namespace
{

// Numbers of colours pack better as they are than as differences, and with more care.
constexpr int kPaletteLevel = 6;
constexpr int kColorLevel = 4;

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

void SetPalette(const PngWriter& writer, const ColorPalette& palette)
{
    std::array<png_color, 256> colors{};
    std::array<png_byte, 256> alphas{};
    const auto count = static_cast<int>(palette.colors.size());
    for (std::size_t i = 0; i < palette.colors.size(); ++i)
    {
        const std::uint32_t color = palette.colors[i];
        colors[i] = {static_cast<png_byte>(color), static_cast<png_byte>(color >> 8),
                     static_cast<png_byte>(color >> 16)};
        alphas[i] = static_cast<png_byte>(color >> 24);
    }
    png_set_PLTE(writer.png, writer.info, colors.data(), count);
    if (std::any_of(alphas.begin(), alphas.begin() + count, [](png_byte alpha) { return alpha != 255; }))
        png_set_tRNS(writer.png, writer.info, alphas.data(), count, nullptr);
}

/// @param bytes how many of each pixel stand in its row; a fourth that the type has not is left out.
std::string Written(const PixelSize& size, const std::uint8_t* rows, std::size_t bytes, int type,
                    const ColorPalette* palette)
{
    std::string file;
    PngWriter writer;
    if (!writer.info || setjmp(png_jmpbuf(writer.png)))
        throw Failure(ExitCode::Drawing, "a tile cannot be written as PNG");
    png_set_write_fn(writer.png, &file, Append, nullptr);
    png_set_IHDR(writer.png, writer.info, static_cast<png_uint_32>(size.width), static_cast<png_uint_32>(size.height),
                 palette ? palette->Depth() : 8, type, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_BASE,
                 PNG_FILTER_TYPE_BASE);
    if (palette)
        SetPalette(writer, *palette);
    png_set_filter(writer.png, PNG_FILTER_TYPE_BASE, palette ? PNG_FILTER_NONE : PNG_FILTER_SUB);
    png_set_compression_level(writer.png, palette ? kPaletteLevel : kColorLevel);
    png_write_info(writer.png, writer.info);
    if (palette)
        png_set_packing(writer.png);
    if (type == PNG_COLOR_TYPE_RGB)
        png_set_filler(writer.png, 0, PNG_FILLER_AFTER);
    for (int row = 0; row < size.height; ++row)
        png_write_row(writer.png, rows + static_cast<std::size_t>(row) * static_cast<std::size_t>(size.width) * bytes);
    png_write_end(writer.png, writer.info);
    return file;
}

} // namespace

std::string PalettePng(const PixelSize& size, const ColorPalette& palette)
{
    return Written(size, palette.numbers.data(), 1, PNG_COLOR_TYPE_PALETTE, &palette);
}

std::string ColorPng(const TilePixels& tile)
{
    return Written(tile.size, tile.rgba.data(), 4, IsOpaque(tile) ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGBA, nullptr);
}

} // namespace txmap
