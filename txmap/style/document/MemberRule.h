#pragma once

#include <limits>
#include <string>
#include <vector>

#include <txmap/style/PropertySpec.h>

namespace txmap
{

/// What may stand for the value of a member beside a constant.
enum class Varies
{
    Never,             ///< Nothing.
    State,             ///< An expression of the global state.
    Zoom,              ///< An expression of the zoom.
    Feature,           ///< An expression of zoom and feature.
    ZoomCrossFaded,    ///< An expression of the zoom that changes at whole zooms.
    FeatureCrossFaded, ///< An expression of zoom and feature that changes at whole zooms.
    LineProgress,      ///< A ramp along a line.
    OtherRamp          ///< Another ramp, such as one over heights.
};

/// What the style format says about a member of an object, as one line of a table.
struct MemberRule
{
    static constexpr double kNone = std::numeric_limits<double>::infinity();

    const char* name;
    /// "number", "string", "boolean", "color", "enum", "*" for anything, or an array: "array<number,2>" of two numbers,
    /// "array<string>" of any number of texts. Properties of layers have a few more.
    const char* type;
    const char* values = "";   ///< Of enumerations: the names, with blanks between them.
    const char* fallback = ""; ///< What counts if the member is missing, as JSON; empty for nothing.
    Varies varies = Varies::Never;
    double minimum = -kNone;
    double maximum = kNone;
    bool required = false;
    bool tokens = false; ///< Whether "{name}" in a text stands for an attribute.

    /// The same for the compiler of expressions.
    PropertySpec Spec() const;
    /// The names of the values of an enumeration.
    std::vector<std::string> Values() const;
};

} // namespace txmap
