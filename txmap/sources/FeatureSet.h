#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/map/Projection.h>
#include <txmap/style/EvaluationContext.h>
#include <txmap/style/Value.h>

namespace txmap
{

/// What a feature consists of. Features of several points, lines or polygons are of the same types.
using GeometryType = LonLatGeometry::Type;

/// A feature in the arrays of its set.
struct SetFeature
{
    Value id; ///< Null for none.
    GeometryType type = GeometryType::Point;
    std::size_t firstPart = 0;
    std::size_t firstPoint = 0;
    std::size_t parts = 0;
    std::size_t firstTag = 0;
    std::size_t tags = 0;
};

/// Features of one layer of a source, in the order of the source, in few large arrays: a set of a hundred thousand
/// features is read without as many allocations.
///
/// Geometry is in the world coordinates of a projection. A feature's parts are its points, one for each; its lines;
/// or its rings. Rings are closed, their last point is the first. The first ring of a feature is an outer one, and each
/// ring that turns in the same sense begins another polygon; those that turn the other way are holes of the polygon
/// before. Nothing else is promised: rings may cross themselves, and points may repeat.
class FeatureSet
{
public:
    struct Tag
    {
        std::uint32_t key = 0;   ///< An index of `keys`.
        std::uint32_t value = 0; ///< An index of `values`.
    };

    bool IsEmpty() const { return features.empty(); }
    /// Calls @p visit with the points of each part of a feature and their count.
    template <class Visit>
    void ForEachPart(const SetFeature& feature, Visit visit) const
    {
        const TZObjects::TXPoint* point = points.data() + feature.firstPoint;
        for (std::size_t part = 0; part < feature.parts; ++part)
        {
            const auto count = static_cast<std::size_t>(counts[feature.firstPart + part]);
            visit(point, count);
            point += count;
        }
    }
    /// The box around all points of a feature.
    MercatorBox BoundsOf(const SetFeature& feature) const;
    /// An attribute of a feature, or null where it has none of that name.
    const Value* Property(const SetFeature& feature, const std::string& name) const;
    /// About how much memory the set takes.
    std::size_t Bytes() const;
    /// The geometry in degrees.
    LonLatGeometry ToDegrees(const SetFeature& feature) const;

    Projection projection = Projection::WebMercator();
    std::vector<SetFeature> features;
    std::vector<TZObjects::TXPoint> points;
    std::vector<int> counts; ///< How many points each part has.
    std::vector<Tag> tags;
    std::vector<std::string> keys;
    std::vector<Value> values;
    std::unordered_map<std::string, std::uint32_t> keyNumbers; ///< Where each key is in `keys`.
    MercatorBox bounds{1e300, 1e300, -1e300, -1e300};          ///< Around all points.
};

/// Twice the area that a closed ring encloses, above 0 where it turns clockwise in the picture.
double TwiceSignedArea(const TZObjects::TXPoint* ring, std::size_t count);

/// A feature of a set as an expression asks for it. One object serves all features of a set, one after the other.
class FeatureAttributes final : public ExpressionFeature
{
public:
    explicit FeatureAttributes(const FeatureSet& set) : set(set) {}

    /// Which feature is asked for from now on.
    void Select(const SetFeature& selected)
    {
        feature = &selected;
        hasGeometry = false;
    }

    const Value* Property(const std::string& name) const override { return set.Property(*feature, name); }
    ValueObject Properties() const override;
    Value Id() const override { return feature->id; }
    std::string_view GeometryType() const override;
    const LonLatGeometry* Geometry() const override;

private:
    const FeatureSet& set;
    const SetFeature* feature = nullptr;
    mutable bool hasGeometry = false;
    mutable LonLatGeometry geometry; ///< Made when it is asked for.
};

} // namespace txmap
