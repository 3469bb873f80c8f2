#include <txmap/symbols/LayerLines.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include <txmap/symbols/LineTiles.h>
#include <txmap/symbols/text/MergeLines.h>

namespace txmap
{

using TZObjects::TXPoint;

LayerLines::LayerLines(const FeatureSet& set, const std::vector<PassedFeature>& passing,
                       const std::function<std::string(const PassedFeature&)>& keyOf)
{
    std::vector<LinePiece> pieces;
    std::vector<const PassedFeature*> owners;
    for (const PassedFeature& passed : passing)
    {
        if (passed.feature->type == GeometryType::Point)
            continue;
        const std::string key = keyOf(passed);
        set.ForEachPart(*passed.feature,
                        [&](const TXPoint* points, std::size_t count)
                        {
                            if (count < 2)
                                return;
                            pieces.push_back({key, {points, points + count}});
                            owners.push_back(&passed);
                        });
    }
    for (MergedLine& line : MergeLines(std::move(pieces)))
        lines.push_back({*owners[line.piece], std::move(line.points)});
}

std::vector<const LayerLines::Line*> LayerLines::Near(const std::vector<MercatorBox>& areas) const
{
    if (!index)
    {
        std::vector<MercatorBox> boxes;
        boxes.reserve(lines.size());
        for (const Line& line : lines)
            boxes.push_back(BoundsOf(line.points.data(), line.points.size()));
        index = std::make_unique<const BoxIndex>(boxes);
    }
    std::vector<const Line*> near;
    for (const std::size_t number : index->Touching(areas))
        near.push_back(&lines[number]);
    return near;
}

std::size_t LayerLines::Bytes() const
{
    // An entry of the index is a box and a number.
    std::size_t bytes = lines.size() * (sizeof(Line) + sizeof(MercatorBox) + sizeof(std::size_t));
    for (const Line& line : lines)
        bytes += line.points.capacity() * sizeof(TXPoint);
    return bytes;
}

std::shared_ptr<const LayerLines> KeptLines::Find(const StyleLayer& layer, const std::shared_ptr<const FeatureSet>& set,
                                                  double zoom,
                                                  const std::function<std::shared_ptr<const LayerLines>()>& make)
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const Entry& entry) { return entry.layer == &layer && entry.zoom == zoom; });
    if (found != entries.end() && found->set.lock() == set)
    {
        entries.splice(entries.begin(), entries, found);
        return found->lines;
    }
    if (found != entries.end())
        entries.erase(found);
    std::shared_ptr<const LayerLines> lines = make();
    entries.push_front({&layer, zoom, set, lines, lines->Bytes()});
    for (std::size_t bytes = Bytes(); bytes > mostBytes && entries.back().zoom != zoom; entries.pop_back())
        bytes -= entries.back().bytes;
    return lines;
}

std::size_t KeptLines::Bytes() const
{
    std::size_t bytes = 0;
    for (const Entry& entry : entries)
        bytes += entry.bytes;
    return bytes;
}

} // namespace txmap
