#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <txmap/style/Value.h>

namespace txmap
{

/// A place in degrees.
struct LonLat
{
    double lon = 0.0;
    double lat = 0.0;
};

/// The geometry of a feature or of an expression in longitude and latitude. Polygons name their own rings, the outer
/// ring first; everything else uses one part for each line, or one part for all points.
struct LonLatGeometry
{
    enum class Type
    {
        Point,
        LineString,
        Polygon
    };
    using Part = std::vector<LonLat>;

    Type type = Type::Point;
    std::vector<std::vector<Part>> polygons; ///< Of `Polygon`.
    std::vector<Part> parts;                 ///< Of `Point` and `LineString`.
};

/// What an expression may ask of a feature. Sources derive from this; nothing is computed before it is asked for.
class ExpressionFeature
{
public:
    virtual ~ExpressionFeature() = default;

    /// An attribute, or null where the feature has none of that name. The value must live as long as the feature.
    virtual const Value* Property(const std::string& name) const = 0;
    /// All attributes.
    virtual ValueObject Properties() const = 0;
    /// The identifier, a number or a text, or null.
    virtual Value Id() const { return Value(); }
    /// "Point", "LineString" or "Polygon", with "Multi" before it where the source tells these apart, or empty.
    virtual std::string_view GeometryType() const = 0;
    /// The geometry, for `within` and `distance` only. Null where there is none.
    virtual const LonLatGeometry* Geometry() const { return nullptr; }
    /// The state that an application gives a feature. Maps that nobody touches have none.
    virtual const Value* State(const std::string& /*name*/) const { return nullptr; }
};

/// What an expression may ask when it is evaluated.
struct EvaluationContext
{
    std::optional<double> zoom;
    std::optional<double> heatmapDensity;
    std::optional<double> lineProgress;
    std::optional<double> elevation;
    Value accumulated;
    const ExpressionFeature* feature = nullptr;
    const Value* globalState = nullptr; ///< An object.
    /// The names of the images of the sprite. Without it, no image is known to be available or missing.
    const std::unordered_set<std::string>* availableImages = nullptr;
    /// The zoom of the tile whose coordinates, 8192 a side, the geometry is rounded to. `within` rounds its polygons to
    /// the same grid, because it must recognise points on their outlines.
    std::optional<int> tileZoom;
};

} // namespace txmap
