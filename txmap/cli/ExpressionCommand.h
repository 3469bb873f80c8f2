#pragma once

#include <iosfwd>
#include <string>

namespace txmap
{

/// `txmap expression [FILE]`: compiles an expression, evaluates it for some features, and prints what came of it as
/// JSON. Standard input is read without a file.
void RunExpressionCommand(int argc, const char* const* argv, std::istream& input, std::ostream& output);

/// The same for a text. @throw Failure if it is no JSON.
std::string EvaluateExpressionText(const std::string& text);

} // namespace txmap
