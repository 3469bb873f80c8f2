#pragma once

#include <initializer_list>
#include <iosfwd>

namespace CLI
{
class App;
} // namespace CLI

namespace txmap
{

/// Reads the arguments of a command into what the command declares. @param filled options whose value must not be
/// empty.
/// @return false if help was asked for and printed. @throw Failure with `ExitCode::Usage`.
bool ReadCommandLine(CLI::App& app, int argc, const char* const* argv, std::ostream& out,
                     std::initializer_list<const char*> filled = {});

} // namespace txmap
