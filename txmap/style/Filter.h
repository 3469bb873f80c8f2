#pragma once

#include <txmap/style/Expression.h>

namespace txmap
{

/// Whether a filter is an expression; otherwise it is one of the old kind: ["==", "name", "value"].
bool IsExpressionFilter(const Json& filter);

/// The expression that does what a filter of the old kind did.
Json ConvertLegacyFilter(const Json& filter);

/// Compiles the filter of a layer. No filter, null, lets every feature pass.
CompiledExpression CompileFilter(const Json& filter);

} // namespace txmap
