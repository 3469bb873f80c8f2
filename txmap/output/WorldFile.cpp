#include <txmap/output/WorldFile.h>

#include <filesystem>
#include <fstream>
#include <iomanip>
#include <limits>

namespace txmap
{

std::string WorldFileName(const std::string& picture)
{
    std::filesystem::path path(picture);
    const std::string suffix = path.extension().string();
    return path.replace_extension(std::string({'.', suffix[1], suffix.back(), 'w'})).string();
}

bool WriteWorldFile(const std::string& path, const GeoReference& reference)
{
    std::ofstream file(path);
    file.imbue(std::locale::classic());
    file << std::setprecision(std::numeric_limits<double>::max_digits10);
    for (const double number : {reference.xAcross, reference.yAcross, reference.xDown, reference.yDown,
                                reference.x0 + (reference.xAcross + reference.xDown) / 2.0,
                                reference.y0 + (reference.yAcross + reference.yDown) / 2.0})
        file << number << '\n';
    file.close();
    return static_cast<bool>(file);
}

} // namespace txmap
