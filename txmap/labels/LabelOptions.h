#pragma once

#include <optional>
#include <string>

#include <txmap/labels/TextPath.h>
#include <txmap/sources/FeatureNames.h>
#include <txmap/style/Style.h>

namespace txmap
{

/// Which names are written, and how.
struct LabelOptions : NameRequest
{
    std::optional<int> size;       ///< Pixels; nothing for what suits the picture.
    std::optional<LabelHalo> halo; ///< Nothing for what the style has.
    std::string font;              ///< The name of a face; empty for the system's own.
    TextPath path = TextPath::Qt;
};

} // namespace txmap
