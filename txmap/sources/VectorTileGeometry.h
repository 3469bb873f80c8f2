#pragma once

#include <protozero/iterators.hpp>

#include <cstdint>

#include <txbase/TXPoint.h>
#include <txmap/sources/FeatureSet.h>

namespace txmap
{

class FeatureSetBuilder;

/// Reads the commands that draw the geometry of a feature of a vector tile.
class VectorTileGeometry
{
public:
    using Commands = protozero::iterator_range<protozero::const_varint_iterator<std::uint32_t>>;

    /// @param builder what the parts are added to; it must outlive this.
    /// @param origin where the tile begins. @param unit how long a unit of the tile is.
    VectorTileGeometry(FeatureSetBuilder& builder, const TZObjects::TXPoint& origin, double unit)
        : builder(builder), origin(origin), unit(unit)
    {
    }

    /// Adds the parts of a feature. @throw std::runtime_error, or an exception of protozero, if they are broken.
    void Read(GeometryType type, const Commands& commands);

private:
    void ReadPoints(Commands& commands);
    void ReadLines(Commands& commands, bool closed);
    std::uint32_t NextCount(Commands& commands, std::uint32_t wanted);
    void NextPoint(Commands& commands);

    FeatureSetBuilder& builder;
    TZObjects::TXPoint origin;
    double unit;
    std::int64_t x = 0;
    std::int64_t y = 0;
};

} // namespace txmap
