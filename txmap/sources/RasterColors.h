#pragma once

#include <gdal.h>

#include <cstdint>
#include <optional>
#include <vector>

class GDALDataset;

namespace txmap
{

/// Which bands of a raster are drawn, and how.
struct RasterBands
{
    std::vector<int> colors;          ///< Their numbers: red, green and blue, or one of grey or of numbers in a table.
    int alpha = 0;                    ///< The number of the band of opacity; 0 for none.
    std::vector<std::uint32_t> table; ///< 0xAARRGGBB; empty for none.
    GDALDataType type = GDT_Byte;     ///< In which they are worked with: bytes, or else `GDT_Float32`.
};

/// Values that become black and white.
struct ValueRange
{
    double low = 0.0;
    double high = 0.0;
};

/// Chooses the bands by what they say they mean, else the first three, or the first of fewer.
RasterBands BandsOf(GDALDataset& dataset);

/// The values that two of a hundred fall below and exceed, in the first bands of a raster, from a sample of it. What is
/// no data or no number does not count.
ValueRange UsualValues(GDALDataset& dataset, int bands);

/// The colours of a raster of the chosen bands and one of opacity behind them.
/// @param range what is black and white; nothing for values that are colours as they are.
/// @return 0xAARRGGBB, not premultiplied; empty when the raster cannot be read.
std::vector<std::uint32_t> ToColors(GDALDataset& dataset, const RasterBands& bands,
                                    const std::optional<ValueRange>& range);

} // namespace txmap
