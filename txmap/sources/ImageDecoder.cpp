#include <txmap/sources/ImageDecoder.h>

#include <cpl_conv.h>
#include <cpl_error.h>
#include <cpl_vsi.h>
#include <gdal_priv.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <vector>

#include <txmap/sources/Gdal.h>

namespace txmap
{
namespace
{

/// Bytes as a file of GDAL's, for as long as this lives.
class MemoryFile
{
public:
    explicit MemoryFile(std::string_view data)
    {
        static std::atomic<unsigned> number{0};
        name = "/vsimem/txmap-image-" + std::to_string(++number);
        // GDAL does not write to a file that is opened for reading, but has no type for that.
        auto* const bytes = const_cast<GByte*>(reinterpret_cast<const GByte*>(data.data()));
        VSIFCloseL(VSIFileFromMemBuffer(name.c_str(), bytes, data.size(), FALSE));
    }
    ~MemoryFile() { VSIUnlink(name.c_str()); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    const char* Name() const { return name.c_str(); }

private:
    std::string name;
};

/// A setting of GDAL's, for this thread and as long as this lives.
class Setting
{
public:
    Setting(const char* name, const char* value) : name(name)
    {
        if (const char* const before = CPLGetThreadLocalConfigOption(name, nullptr))
            previous = std::make_unique<std::string>(before);
        CPLSetThreadLocalConfigOption(name, value);
    }
    ~Setting() { CPLSetThreadLocalConfigOption(name, previous ? previous->c_str() : nullptr); }
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

private:
    const char* name;
    std::unique_ptr<std::string> previous;
};

using Channel = std::vector<std::uint8_t>;

[[noreturn]] void Fail() { throw std::runtime_error("is a broken picture" + LastGdalComplaint()); }

/// One channel in bytes.
Channel Read(GDALRasterBand& band)
{
    const int width = band.GetXSize();
    const int height = band.GetYSize();
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    Channel bytes(count);
    if (band.GetRasterDataType() == GDT_Byte)
    {
        if (band.RasterIO(GF_Read, 0, 0, width, height, bytes.data(), width, height, GDT_Byte, 0, 0, nullptr) !=
            CE_None)
            Fail();
        return bytes;
    }
    // PNG has 16 bits as well.
    std::vector<std::uint16_t> wide(count);
    if (band.RasterIO(GF_Read, 0, 0, width, height, wide.data(), width, height, GDT_UInt16, 0, 0, nullptr) != CE_None)
        Fail();
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<std::uint8_t>((wide[i] + 128) / 257);
    return bytes;
}

std::uint32_t Packed(unsigned red, unsigned green, unsigned blue, unsigned alpha)
{
    return alpha << 24u | red << 16u | green << 8u | blue;
}

void ReadPalette(GDALDataset& dataset, const GDALColorTable& table, Raster& raster)
{
    const Channel numbers = Read(*dataset.GetRasterBand(1));
    std::vector<std::uint32_t> colors(256, 0);
    for (int i = 0; i < table.GetColorEntryCount() && i < 256; ++i)
    {
        const GDALColorEntry& entry = *table.GetColorEntry(i);
        colors[static_cast<std::size_t>(i)] = Packed(static_cast<unsigned>(entry.c1), static_cast<unsigned>(entry.c2),
                                                     static_cast<unsigned>(entry.c3), static_cast<unsigned>(entry.c4));
    }
    for (std::size_t i = 0; i < numbers.size(); ++i)
        raster.pixels[i] = colors[numbers[i]];
}

void ReadChannels(GDALDataset& dataset, Raster& raster)
{
    const int bands = dataset.GetRasterCount();
    const bool isGrey = bands < 3;
    const Channel red = Read(*dataset.GetRasterBand(1));
    const Channel green = isGrey ? Channel() : Read(*dataset.GetRasterBand(2));
    const Channel blue = isGrey ? Channel() : Read(*dataset.GetRasterBand(3));
    Channel alpha;
    GDALRasterBand& first = *dataset.GetRasterBand(1);
    if (bands == 2 || bands == 4)
        alpha = Read(*dataset.GetRasterBand(bands));
    else if ((first.GetMaskFlags() & GMF_ALL_VALID) == 0)
        // One colour of the picture may stand for transparency.
        alpha = Read(*first.GetMaskBand());
    for (std::size_t i = 0; i < red.size(); ++i)
        raster.pixels[i] =
            Packed(red[i], isGrey ? red[i] : green[i], isGrey ? red[i] : blue[i], alpha.empty() ? 255u : alpha[i]);
}

} // namespace

Raster DecodeImage(std::string_view data, int longestSide)
{
    const MemoryFile file(data);
    // Else the lower part of a JPEG that ends too early would be grey, and nobody would know.
    const Setting strict("GDAL_ERROR_ON_LIBJPEG_WARNING", "TRUE");
    const char* const drivers[] = {"PNG", "JPEG", "WEBP", nullptr};
    const char* const noSiblings[] = {nullptr};
    CPLErrorReset();
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(
        file.Name(), GDAL_OF_RASTER | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR, drivers, nullptr, noSiblings));
    if (!dataset)
        throw std::runtime_error("is no picture in the PNG, JPEG or WebP format");
    Raster raster{{dataset->GetRasterXSize(), dataset->GetRasterYSize()}, {}};
    if (raster.size.width > longestSide || raster.size.height > longestSide)
        throw std::runtime_error("has " + std::to_string(raster.size.width) + " x " +
                                 std::to_string(raster.size.height) + " pixels, more than " +
                                 std::to_string(longestSide) + " a side");
    if (dataset->GetRasterCount() < 1 || dataset->GetRasterCount() > 4)
        Fail();
    raster.pixels.resize(static_cast<std::size_t>(raster.size.width) * static_cast<std::size_t>(raster.size.height));
    const GDALColorTable* const table = dataset->GetRasterBand(1)->GetColorTable();
    if (table && dataset->GetRasterCount() == 1)
        ReadPalette(*dataset, *table, raster);
    else
        ReadChannels(*dataset, raster);
    if (CPLGetLastErrorType() >= CE_Failure)
        Fail();
    return raster;
}

} // namespace txmap
