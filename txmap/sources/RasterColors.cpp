#include <txmap/sources/RasterColors.h>

#include <gdal_priv.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace txmap
{
namespace
{

// As many pixels of each side are enough to know the values of a raster.
constexpr int kSample = 512;
constexpr double kCut = 0.02;
constexpr int kOpaque = 255;

int BandThatMeans(GDALDataset& dataset, GDALColorInterp meaning)
{
    for (int number = 1; number <= dataset.GetRasterCount(); ++number)
        if (dataset.GetRasterBand(number)->GetColorInterpretation() == meaning)
            return number;
    return 0;
}

std::uint32_t Packed(int alpha, int red, int green, int blue)
{
    const auto byte = [](int value) { return static_cast<std::uint32_t>(std::clamp(value, 0, 255)); };
    return byte(alpha) << 24 | byte(red) << 16 | byte(green) << 8 | byte(blue);
}

std::vector<std::uint32_t> TableOf(GDALRasterBand& band)
{
    const GDALColorTable* const table = band.GetColorTable();
    std::vector<std::uint32_t> colors;
    GDALColorEntry entry{};
    for (int i = 0; table && i < table->GetColorEntryCount(); ++i)
        // What is not in a table of colours is not shown.
        colors.push_back(table->GetColorEntryAsRGB(i, &entry) ? Packed(entry.c4, entry.c1, entry.c2, entry.c3) : 0);
    return colors;
}

/// A value as a part of 255; nothing for what is no number.
std::optional<int> Tone(float value, const std::optional<ValueRange>& range)
{
    if (std::isnan(value))
        return std::nullopt;
    double tone = value;
    if (range)
        tone = range->high > range->low ? (value - range->low) / (range->high - range->low) * 255.0 : 127.5;
    return static_cast<int>(std::lround(std::clamp(tone, 0.0, 255.0)));
}

std::uint32_t InTable(const std::vector<std::uint32_t>& table, float value, int alpha)
{
    if (!(value >= 0.0f && value < static_cast<float>(table.size())))
        return 0;
    const std::uint32_t color = table[static_cast<std::size_t>(value)];
    return (color & 0x00FFFFFFu) | ((color >> 24) * static_cast<std::uint32_t>(alpha) / 255u) << 24;
}

} // namespace

RasterBands BandsOf(GDALDataset& dataset)
{
    RasterBands bands;
    bands.alpha = BandThatMeans(dataset, GCI_AlphaBand);
    const int red = BandThatMeans(dataset, GCI_RedBand);
    const int green = BandThatMeans(dataset, GCI_GreenBand);
    const int blue = BandThatMeans(dataset, GCI_BlueBand);
    if (red > 0 && green > 0 && blue > 0)
        bands.colors = {red, green, blue};
    else
        for (int number = 1; number <= dataset.GetRasterCount() && bands.colors.size() < 3; ++number)
            if (number != bands.alpha)
                bands.colors.push_back(number);
    if (bands.colors.empty())
    {
        bands.colors = {bands.alpha};
        bands.alpha = 0;
    }
    if (bands.colors.size() < 3)
    {
        bands.colors.resize(1);
        bands.table = TableOf(*dataset.GetRasterBand(bands.colors[0]));
    }
    for (const int number : bands.colors)
        if (dataset.GetRasterBand(number)->GetRasterDataType() != GDT_Byte)
            bands.type = GDT_Float32;
    return bands;
}

ValueRange UsualValues(GDALDataset& dataset, int bands)
{
    const int width = std::min(kSample, dataset.GetRasterXSize());
    const int height = std::min(kSample, dataset.GetRasterYSize());
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    std::vector<float> sample(count);
    std::vector<GByte> mask(count);
    std::vector<float> values;
    const auto read = [&](GDALRasterBand& band, void* data, GDALDataType type)
    {
        return band.RasterIO(GF_Read, 0, 0, dataset.GetRasterXSize(), dataset.GetRasterYSize(), data, width, height,
                             type, 0, 0, nullptr) == CE_None;
    };
    for (int number = 1; number <= bands; ++number)
    {
        GDALRasterBand& band = *dataset.GetRasterBand(number);
        if (!read(band, sample.data(), GDT_Float32) || !read(*band.GetMaskBand(), mask.data(), GDT_Byte))
            continue;
        for (std::size_t i = 0; i < count; ++i)
            if (mask[i] != 0 && std::isfinite(sample[i]))
                values.push_back(sample[i]);
    }
    if (values.empty())
        return {};
    const auto at = [&](double part)
    {
        const auto nth = values.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(values.size() - 1));
        std::nth_element(values.begin(), nth, values.end());
        return static_cast<double>(*nth);
    };
    return {at(kCut), at(1.0 - kCut)};
}

std::vector<std::uint32_t> ToColors(GDALDataset& dataset, const RasterBands& bands,
                                    const std::optional<ValueRange>& range)
{
    const auto width = static_cast<std::size_t>(dataset.GetRasterXSize());
    const auto height = static_cast<std::size_t>(dataset.GetRasterYSize());
    const std::size_t count = bands.colors.size();
    std::vector<std::uint32_t> pixels;
    pixels.reserve(width * height);
    std::vector<float> row(width * (count + 1));
    for (std::size_t y = 0; y < height; ++y)
    {
        if (dataset.RasterIO(GF_Read, 0, static_cast<int>(y), static_cast<int>(width), 1, row.data(),
                             static_cast<int>(width), 1, GDT_Float32, static_cast<int>(count) + 1, nullptr, 0, 0, 0,
                             nullptr) != CE_None)
            return {};
        for (std::size_t x = 0; x < width; ++x)
        {
            const int alpha = std::clamp(static_cast<int>(std::lround(row[count * width + x])), 0, kOpaque);
            if (!bands.table.empty())
            {
                pixels.push_back(InTable(bands.table, row[x], alpha));
                continue;
            }
            const std::optional<int> red = Tone(row[x], range);
            const std::optional<int> green = count == 3 ? Tone(row[width + x], range) : red;
            const std::optional<int> blue = count == 3 ? Tone(row[2 * width + x], range) : red;
            pixels.push_back(alpha > 0 && red && green && blue ? Packed(alpha, *red, *green, *blue) : 0);
        }
    }
    return pixels;
}

} // namespace txmap
