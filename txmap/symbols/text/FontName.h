#pragma once

#include <optional>
#include <string>
#include <tuple>

namespace txmap
{

/// A family of fonts with weight and slant.
struct FontName
{
    std::string family;
    int weight = 400; ///< From 100 to 900.
    bool italic = false;

    friend bool operator<(const FontName& a, const FontName& b)
    {
        return std::tie(a.family, a.weight, a.italic) < std::tie(b.family, b.weight, b.italic);
    }
    friend bool operator==(const FontName& a, const FontName& b)
    {
        return a.family == b.family && a.weight == b.weight && a.italic == b.italic;
    }
};

/// What a name such as "Open Sans Semibold Italic" means: the longest beginning of it that is a family which is
/// installed; the words behind are weight and slant. Words that are neither, such as "Condensed", must belong to the
/// family.
/// @return nothing when no such family is installed.
std::optional<FontName> FindFont(const std::string& name);

/// The same, for a name whose family is not installed: weight and slant are read, and @p family stands in.
FontName FontInstead(const std::string& name, const std::string& family);

} // namespace txmap
