#include <txmap/sources/VectorTileGeometry.h>

#include <protozero/varint.hpp>

#include <cstdlib>
#include <stdexcept>
#include <string>

#include <txmap/sources/FeatureSetBuilder.h>

namespace txmap
{
namespace
{

constexpr std::uint32_t kMoveTo = 1, kLineTo = 2, kClosePath = 7;
// Tiles count in integers of 32 bits. Beyond them, nothing is meant.
constexpr std::int64_t kFarthest = std::int64_t{1} << 31;

[[noreturn]] void Fail(const std::string& reason) { throw std::runtime_error("is a broken vector tile: " + reason); }

} // namespace

std::uint32_t VectorTileGeometry::NextCount(Commands& commands, std::uint32_t wanted)
{
    if (commands.empty())
        Fail("a geometry ends too early");
    const std::uint32_t command = commands.front();
    commands.drop_front();
    if ((command & 7u) != wanted)
        Fail("a geometry has an unexpected command");
    const std::uint32_t count = command >> 3u;
    if (count == 0 || (wanted == kClosePath && count != 1))
        Fail("a geometry has a command with a wrong count");
    return count;
}

void VectorTileGeometry::NextPoint(Commands& commands)
{
    for (std::int64_t* const coordinate : {&x, &y})
    {
        if (commands.empty())
            Fail("a geometry ends too early");
        *coordinate += protozero::decode_zigzag32(commands.front());
        commands.drop_front();
        if (std::abs(*coordinate) > kFarthest)
            Fail("a geometry has coordinates out of range");
    }
    builder.AddPoint({origin.x + static_cast<double>(x) * unit, origin.y + static_cast<double>(y) * unit});
}

void VectorTileGeometry::ReadPoints(Commands& commands)
{
    for (std::uint32_t count = NextCount(commands, kMoveTo); count > 0; --count)
    {
        NextPoint(commands);
        builder.EndPart();
    }
}

void VectorTileGeometry::ReadLines(Commands& commands, bool closed)
{
    if (NextCount(commands, kMoveTo) != 1)
        Fail("a geometry has a command with a wrong count");
    NextPoint(commands);
    for (std::uint32_t count = NextCount(commands, kLineTo); count > 0; --count)
        NextPoint(commands);
    if (closed)
        NextCount(commands, kClosePath);
    builder.EndPart();
}

void VectorTileGeometry::Read(GeometryType type, const Commands& given)
{
    Commands commands = given;
    x = y = 0;
    if (commands.empty())
        Fail("a feature has no geometry");
    while (!commands.empty())
    {
        if (type == GeometryType::Point)
            ReadPoints(commands);
        else
            ReadLines(commands, type == GeometryType::Polygon);
    }
}

} // namespace txmap
