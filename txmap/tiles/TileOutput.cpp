#include <txmap/tiles/TileOutput.h>

#include <array>
#include <cstdio>

#include <txmap/support/FileSuffix.h>
#include <txmap/tiles/TileDatabase.h>
#include <txmap/tiles/TileFolder.h>

namespace txmap
{

bool IsTileDatabase(const std::string& path) { return FileSuffix(path) == ".mbtiles"; }

std::unique_ptr<TileOutput> OpenTileOutput(const std::string& path, const TileSetFacts& facts)
{
    if (IsTileDatabase(path))
        return std::make_unique<TileDatabase>(path, facts);
    return std::make_unique<TileFolder>(path, facts);
}

std::string DigestOf(const std::string& bytes)
{
    // FNV-1a with 128 bits.
    __extension__ using Wide = unsigned __int128;
    constexpr Wide kPrime = (Wide{1} << 88) + 0x13b;
    Wide digest = (Wide{0x6c62272e07bb0142u} << 64) + 0x62b821756295c58du;
    for (const char byte : bytes)
        digest = (digest ^ static_cast<unsigned char>(byte)) * kPrime;
    std::array<char, 33> text{};
    std::snprintf(text.data(), text.size(), "%016llx%016llx", static_cast<unsigned long long>(digest >> 64),
                  static_cast<unsigned long long>(digest));
    return text.data();
}

} // namespace txmap
