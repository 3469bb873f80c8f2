#pragma once

#include <string>

#include <txmap/style/document/MapStyle.h>

namespace txmap
{

/// @name The parts of a style
/// Each reports what is wrong, and leaves it out. Sources come before layers.
/// @{
void ReadRoot(const Json& json, MapStyle& style, StyleProblems& problems);
void ReadSources(const Json& json, MapStyle& style, StyleProblems& problems);
void ReadLayers(const Json& root, MapStyle& style, StyleProblems& problems);
/// @}

/// Whether an object may have members that no rule is about.
enum class OtherMembers
{
    Allowed,
    Refused
};

/// Reports what of an object's members does not follow the rules: values, unknown and missing members.
void CheckMembers(const Json& object, const RuleList& rules, const std::string& pointer, StyleProblems& problems,
                  OtherMembers others = OtherMembers::Refused);

} // namespace txmap
