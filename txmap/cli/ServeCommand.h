#pragma once

#include <iosfwd>

namespace txmap
{

/// Runs `txmap serve`. @param argc,argv the subcommand with its arguments. @throw Failure.
void RunServeCommand(int argc, const char* const* argv, std::ostream& out);

/// Runs a worker of `txmap serve`, which starts it; it is not for people.
void RunServeWorker(int argc, const char* const* argv);

} // namespace txmap
