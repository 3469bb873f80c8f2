#pragma once

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string>

namespace txmap
{

/// The suffix of a path in lower case with its dot, such as ".png"; empty for none.
inline std::string FileSuffix(const std::string& path)
{
    std::string suffix = std::filesystem::path(path).extension().string();
    std::transform(suffix.begin(), suffix.end(), suffix.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return suffix;
}

} // namespace txmap
