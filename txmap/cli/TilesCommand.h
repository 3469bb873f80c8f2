#pragma once

#include <iosfwd>

namespace txmap
{

/// Runs `txmap tiles`. @param argc,argv the subcommand with its arguments. @throw Failure.
void RunTilesCommand(int argc, const char* const* argv, std::ostream& out);

/// Runs `txmap merge`. @throw Failure.
void RunMergeCommand(int argc, const char* const* argv, std::ostream& out);

} // namespace txmap
