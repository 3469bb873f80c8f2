#pragma once

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include <txbase/TXPoint.h>

namespace txmap
{

class FeatureSetBuilder;

/// The geometry of a GeoJSON object while it is read: its type may come before or after its coordinates.
class GeoJsonGeometry
{
public:
    void Clear();

    void SetType(std::string name) { type = std::move(name); }
    const std::string& Type() const { return type; }
    /// True when the name is that of a geometry with coordinates.
    static bool IsType(const std::string& name);

    /// @name What stands in the coordinates
    /// @{
    void BeginArray() { ++depth; }
    void AddNumber(double number)
    {
        // Heights and whatever else stands behind the first two are of no use.
        if (numbers == 0)
            position.x = number;
        else if (numbers == 1)
            position.y = number;
        ++numbers;
        broken = broken || depth == 0 || !std::isfinite(number);
    }
    /// Anything else, which does not belong there.
    void AddNonsense() { broken = true; }
    void EndArray();
    /// @}

    /// True when a coordinate cannot be degrees.
    bool IsFar() const { return far; }
    /// Adds a feature's parts, whose type is set. @return false for coordinates that do not suit the type.
    bool AddTo(FeatureSetBuilder& builder) const;

private:
    /// Where an array of positions, or of such arrays, ended.
    struct Ending
    {
        int depth = 0;
        std::size_t points = 0;
    };

    std::string type;
    std::vector<TZObjects::TXPoint> points; ///< In degrees.
    std::vector<Ending> endings;
    int depth = 0;
    int pointDepth = 0; ///< The depth of positions; 0 while there is none.
    int numbers = 0;    ///< How many the position has that is being read.
    TZObjects::TXPoint position;
    bool broken = false;
    bool far = false;
};

/// True when a position can be no degrees, by far.
bool IsFarFromDegrees(const TZObjects::TXPoint& position);

} // namespace txmap
