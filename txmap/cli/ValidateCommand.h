#pragma once

#include <iosfwd>

namespace txmap
{

/// Runs `txmap validate STYLE.json`: prints everything that is wrong with a style, a line for each problem.
/// @param argc,argv the subcommand with its arguments.
/// @throw Failure with `ExitCode::Data` if anything is wrong.
void RunValidateCommand(int argc, const char* const* argv, std::ostream& out);

} // namespace txmap
