#pragma once

#include <txmap/style/PropertySpec.h>

namespace txmap
{

/// The expression that does what a function of the old kind did: stops by zoom, by an attribute or by both, or an
/// attribute as it is. What cannot be converted gives an expression that does not compile.
Json ConvertLegacyFunction(const Json& function, const PropertySpec& spec);

/// The expression for a text with tokens: "{name} ({ref})".
Json ConvertTokens(const std::string& text);

} // namespace txmap
