#include <txmap/sources/TileFiles.h>

#include <filesystem>

#include <txmap/sources/SourcePath.h>

namespace txmap
{
namespace
{

/// The digits that lead to a tile from the world, one for each zoom.
std::string QuadKey(const TileId& tile)
{
    std::string key;
    for (int bit = tile.z - 1; bit >= 0; --bit)
        key += static_cast<char>('0' + ((tile.x >> bit) & 1) + 2 * ((tile.y >> bit) & 1));
    return key;
}

std::string Prefix(const TileId& tile)
{
    constexpr char kDigits[] = "0123456789abcdef";
    return {kDigits[tile.x % 16], kDigits[tile.y % 16]};
}

} // namespace

std::string TileFiles::NameOf(const TileId& tile) const
{
    const std::pair<const char*, std::string> replacements[] = {
        {"{z}", std::to_string(tile.z)},
        {"{x}", std::to_string(tile.x)},
        {"{y}", std::to_string(tms ? tile.FlippedY() : tile.y)},
        {"{-y}", std::to_string(tile.FlippedY())},
        {"{quadkey}", QuadKey(tile)},
        {"{prefix}", Prefix(tile)},
        {"{ratio}", ratio > 1.0 ? "@2x" : ""},
    };
    std::string name = pattern;
    for (const auto& [placeholder, text] : replacements)
        for (std::size_t at = name.find(placeholder); at != std::string::npos; at = name.find(placeholder, at))
            name.replace(at, std::string(placeholder).size(), text);
    return name;
}

std::optional<std::string> TileFiles::Read(const TileId& tile)
{
    const std::string file = NameOf(tile);
    std::error_code status;
    if (!std::filesystem::exists(file, status))
        return std::nullopt;
    return ReadSourceFile(file, kLimit);
}

} // namespace txmap
