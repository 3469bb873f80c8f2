#pragma once

#include <string>

#include <txmap/style/document/MemberRule.h>
#include <txmap/style/document/StyleProblem.h>

namespace txmap
{

/// What JSON calls a value: "number", "string", "array" and so on.
std::string JsonKind(const Json& json);

/// Reports what is wrong with a constant.
void CheckConstant(const Json& json, const MemberRule& rule, const std::string& pointer, StyleProblems& problems);

/// Reports a number that is out of the range of a rule.
void CheckRange(double number, const MemberRule& rule, const std::string& pointer, StyleProblems& problems);

/// Reports unless a value is of a kind. @return whether it is.
bool RequireKind(const Json& json, const char* kind, const std::string& pointer, StyleProblems& problems);

} // namespace txmap
