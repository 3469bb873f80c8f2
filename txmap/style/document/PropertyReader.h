#pragma once

#include <optional>
#include <string>

#include <txmap/style/Expression.h>
#include <txmap/style/document/MemberRule.h>
#include <txmap/style/document/StyleProblem.h>

namespace txmap
{

/// Compiles the value of a property: a constant, a function of the old kind, or an expression. Nothing if it is wrong,
/// which is reported.
std::optional<Expression> ReadProperty(const Json& json, const MemberRule& rule, const std::string& pointer,
                                       StyleProblems& problems);

/// Compiles what a property is if a layer does not say; nothing if it is nothing.
std::optional<Expression> DefaultOf(const MemberRule& rule);

/// Compiles a filter. Nothing if it is wrong, which is reported.
std::optional<Expression> ReadFilter(const Json& json, const std::string& pointer, StyleProblems& problems);

/// Reports what is wrong with a function of the old kind.
void CheckFunction(const Json& json, const MemberRule& rule, const std::string& pointer, StyleProblems& problems);

/// Reports what is wrong with a filter of the old kind.
void CheckLegacyFilter(const Json& json, const std::string& pointer, StyleProblems& problems);

} // namespace txmap
