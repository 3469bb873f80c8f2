#pragma once

#include <optional>
#include <string>

#include <txmap/style/ExpressionType.h>

namespace txmap
{

/// The value as one of another type, or nothing where it cannot be one. `problem` then may say why.
std::optional<Value> ConvertTo(ExpressionType::Kind kind, const Value& value, std::string& problem);

/// A number from a text as JavaScript reads it: white space around it is skipped, nothing is 0. NaN if it is no number.
double TextToNumber(const std::string& text);

/// What is wrong with these channels, from 0 to 255, and this opacity; empty if nothing is.
std::string CheckRgba(const Value& red, const Value& green, const Value& blue, const Value* alpha);

} // namespace txmap
