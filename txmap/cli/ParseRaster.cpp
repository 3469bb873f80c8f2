#include <txmap/cli/ParseRaster.h>

#include <vector>

#include <txmap/cli/OptionValues.h>

namespace txmap
{

double ParseRasterOpacity(const std::string& text)
{
    const std::vector<double> numbers = NumbersIn<double>(text, ',');
    // Written so that a NaN is refused as well.
    if (numbers.size() != 1 || !(numbers[0] >= 0.0 && numbers[0] <= 1.0))
        Refuse("--raster-opacity", text, "must be a number from 0 to 1");
    return numbers[0];
}

bool ParseRasterBlend(const std::string& text)
{
    if (text != "normal" && text != "multiply")
        Refuse("--raster-blend", text, "must be normal or multiply");
    return text == "multiply";
}

} // namespace txmap
