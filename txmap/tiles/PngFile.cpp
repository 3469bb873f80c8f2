#include <txmap/tiles/PngFile.h>

#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include <txmap/support/Failure.h>
#include <txmap/tiles/ColorPalette.h>

namespace txmap
{
namespace
{

enum ColorType : std::uint8_t
{
    kRgb = 2,
    kPalette = 3,
    kRgba = 6
};

enum Filter : std::uint8_t
{
    kNone = 0,
    kSub = 1
};

struct CompressorFreer
{
    void operator()(libdeflate_compressor* compressor) const { libdeflate_free_compressor(compressor); }
};

/// Packs at a level. A thread keeps what it takes to do so.
template <int Level>
std::vector<std::uint8_t> Packed(const std::vector<std::uint8_t>& bytes)
{
    thread_local const std::unique_ptr<libdeflate_compressor, CompressorFreer> compressor(
        libdeflate_alloc_compressor(Level));
    if (!compressor)
        throw Failure(ExitCode::Drawing, "a tile cannot be written as PNG");
    std::vector<std::uint8_t> packed(libdeflate_zlib_compress_bound(compressor.get(), bytes.size()));
    packed.resize(libdeflate_zlib_compress(compressor.get(), bytes.data(), bytes.size(), packed.data(), packed.size()));
    return packed;
}

void AppendNumber(std::string& file, std::size_t number)
{
    for (const int shift : {24, 16, 8, 0})
        file += static_cast<char>((number >> shift) & 255);
}

void AppendChunk(std::string& file, std::string_view type, const void* data, std::size_t size)
{
    AppendNumber(file, size);
    const std::size_t start = file.size();
    file += type;
    file.append(static_cast<const char*>(data), size);
    AppendNumber(file, libdeflate_crc32(0, file.data() + start, file.size() - start));
}

std::string Begun(const PixelSize& size, int depth, ColorType type)
{
    std::string file = "\x89PNG\r\n\x1a\n";
    std::string header;
    AppendNumber(header, static_cast<std::size_t>(size.width));
    AppendNumber(header, static_cast<std::size_t>(size.height));
    // The only ways of packing and filtering that there are, and not interlaced.
    for (const int value : {depth, static_cast<int>(type), 0, 0, 0})
        header += static_cast<char>(value);
    AppendChunk(file, "IHDR", header.data(), header.size());
    return file;
}

std::string Ended(std::string file, const std::vector<std::uint8_t>& packed)
{
    AppendChunk(file, "IDAT", packed.data(), packed.size());
    AppendChunk(file, "IEND", nullptr, 0);
    return file;
}

void AppendPalette(std::string& file, const ColorPalette& palette)
{
    std::vector<std::uint8_t> colors, alphas;
    for (const std::uint32_t color : palette.colors)
    {
        for (const int shift : {0, 8, 16})
            colors.push_back(static_cast<std::uint8_t>(color >> shift));
        alphas.push_back(static_cast<std::uint8_t>(color >> 24));
    }
    AppendChunk(file, "PLTE", colors.data(), colors.size());
    if (std::any_of(alphas.begin(), alphas.end(), [](std::uint8_t alpha) { return alpha != 255; }))
        AppendChunk(file, "tRNS", alphas.data(), alphas.size());
}

/// Rows of numbers of a few bits, the first in the highest bits of a byte, each row behind its filter.
std::vector<std::uint8_t> PackedRows(const PixelSize& size, const ColorPalette& palette)
{
    const auto width = static_cast<std::size_t>(size.width);
    const auto height = static_cast<std::size_t>(size.height);
    const auto bits = static_cast<std::size_t>(palette.Depth());
    const std::size_t perByte = 8 / bits;
    const std::size_t stride = 1 + (width + perByte - 1) / perByte;
    std::vector<std::uint8_t> rows(stride * height, kNone);
    if (palette.colors.size() < 2)
        return rows;
    const std::uint8_t* number = palette.numbers.data();
    for (std::size_t y = 0; y < height; ++y, number += width)
    {
        std::uint8_t* const row = rows.data() + y * stride + 1;
        if (bits == 8)
            std::copy(number, number + width, row);
        else
            for (std::size_t x = 0; x < width; ++x)
                row[x / perByte] |= static_cast<std::uint8_t>(number[x] << (8 - bits * (x % perByte + 1)));
    }
    return rows;
}

/// Rows of colours as differences from the pixel before, each row behind its filter.
template <std::size_t Channels>
std::vector<std::uint8_t> DifferenceRows(const TilePixels& tile)
{
    const auto width = static_cast<std::size_t>(tile.size.width);
    const auto height = static_cast<std::size_t>(tile.size.height);
    std::vector<std::uint8_t> rows((width * Channels + 1) * height);
    std::uint8_t* out = rows.data();
    const std::uint8_t* in = tile.rgba.data();
    for (std::size_t y = 0; y < height; ++y)
    {
        *out++ = kSub;
        for (std::size_t channel = 0; channel < Channels; ++channel)
            out[channel] = in[channel];
        for (std::size_t x = 1; x < width; ++x)
            for (std::size_t channel = 0; channel < Channels; ++channel)
                out[x * Channels + channel] =
                    static_cast<std::uint8_t>(in[x * 4 + channel] - in[(x - 1) * 4 + channel]);
        out += width * Channels;
        in += width * 4;
    }
    return rows;
}

} // namespace

std::string PalettePng(const PixelSize& size, const ColorPalette& palette)
{
    std::string file = Begun(size, palette.Depth(), kPalette);
    AppendPalette(file, palette);
    // Numbers of colours pack better as they are than as differences.
    return Ended(std::move(file), Packed<6>(PackedRows(size, palette)));
}

std::string ColorPng(const TilePixels& tile)
{
    if (IsOpaque(tile))
        return Ended(Begun(tile.size, 8, kRgb), Packed<4>(DifferenceRows<3>(tile)));
    return Ended(Begun(tile.size, 8, kRgba), Packed<4>(DifferenceRows<4>(tile)));
}

} // namespace txmap
