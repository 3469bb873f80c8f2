#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/sources/BoxIndex.h>
#include <txmap/sources/PassingFeatures.h>

namespace txmap
{

/// The lines along which the texts of a layer stand: those of its features, put together where they have the same text.
class LayerLines
{
public:
    struct Line
    {
        PassedFeature owner; ///< Whose direction and attributes the line has.
        std::vector<TZObjects::TXPoint> points;
    };

    /// @param keyOf what features must share for their lines to become one (see `LinePiece`).
    LayerLines(const FeatureSet& set, const std::vector<PassedFeature>& passing,
               const std::function<std::string(const PassedFeature&)>& keyOf);

    const std::vector<Line>& All() const { return lines; }
    /// The lines that may have a point in one of these parts of the world, in the order of all. The first call makes an
    /// index.
    std::vector<const Line*> Near(const std::vector<MercatorBox>& areas) const;
    /// About how much memory they take.
    std::size_t Bytes() const;

private:
    std::vector<Line> lines;
    mutable std::unique_ptr<const BoxIndex> index;
};

/// The lines of layers for many pictures, each of which shows a part of them.
///
/// What the pictures of one zoom need is kept, whatever its size: making it takes longer than most pictures do. Of
/// other zooms as much is kept as there is room for.
class KeptLines
{
public:
    static constexpr std::size_t kMostBytes = std::size_t{256} << 20;

    explicit KeptLines(std::size_t mostBytes = kMostBytes) : mostBytes(mostBytes) {}

    /// The lines of a layer at a zoom, which @p make makes where they are not kept.
    std::shared_ptr<const LayerLines> Find(const StyleLayer& layer, const std::shared_ptr<const FeatureSet>& set,
                                           double zoom, const std::function<std::shared_ptr<const LayerLines>()>& make);
    std::size_t Bytes() const;

private:
    struct Entry
    {
        const StyleLayer* layer;
        double zoom;
        std::weak_ptr<const FeatureSet> set; ///< What it was made of: a source may have been read again.
        std::shared_ptr<const LayerLines> lines;
        std::size_t bytes;
    };

    std::size_t mostBytes;
    std::list<Entry> entries; ///< What was asked for last comes first.
};

} // namespace txmap
