#include "Picture.h"

#include <gdal_priv.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

int Distance(const Pixel& a, const Pixel& b)
{
    int largest = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        largest = std::max(largest, std::abs(a[i] - b[i]));
    return largest;
}

Picture::Picture(const std::string& path)
{
    GDALAllRegister();
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(path.c_str(), GDAL_OF_RASTER));
    GDALColorTable* const table =
        dataset && dataset->GetRasterCount() == 1 ? dataset->GetRasterBand(1)->GetColorTable() : nullptr;
    if (!dataset || (!table && dataset->GetRasterCount() != 3 && dataset->GetRasterCount() != 4))
        throw std::runtime_error(path + " is no picture in colour");
    width = dataset->GetRasterXSize();
    height = dataset->GetRasterYSize();
    pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), Pixel{0, 0, 0, 255});
    if (table)
    {
        std::vector<std::uint8_t> numbers(pixels.size());
        if (dataset->GetRasterBand(1)->RasterIO(GF_Read, 0, 0, width, height, numbers.data(), width, height, GDT_Byte,
                                                0, 0) != CE_None)
            throw std::runtime_error(path + " cannot be read");
        for (std::size_t i = 0; i < pixels.size(); ++i)
        {
            const GDALColorEntry& color = *table->GetColorEntry(numbers[i]);
            pixels[i] = {static_cast<std::uint8_t>(color.c1), static_cast<std::uint8_t>(color.c2),
                         static_cast<std::uint8_t>(color.c3), static_cast<std::uint8_t>(color.c4)};
        }
        return;
    }
    if (dataset->RasterIO(GF_Read, 0, 0, width, height, pixels.data(), width, height, GDT_Byte,
                          dataset->GetRasterCount(), nullptr, 4, GSpacing{4} * width, 1, nullptr) != CE_None)
        throw std::runtime_error(path + " cannot be read");
}

const Pixel& Picture::AtPlace(double longitude, double latitude) const
{
    return At(static_cast<int>((longitude + 180.0) / 360.0 * width),
              static_cast<int>((90.0 - latitude) / 180.0 * height));
}

bool IsWater(const Pixel& pixel)
{
    return pixel[2] >= pixel[0] + 15 && pixel[2] >= pixel[1] && pixel[1] >= 140 && pixel[2] >= 170;
}
