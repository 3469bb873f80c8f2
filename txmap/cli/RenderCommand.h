#pragma once

#include <iosfwd>
#include <optional>

#include <txmap/render/RenderOptions.h>

namespace txmap
{

/// Reads the options of `txmap render`. Nothing if help was asked for, which goes to @p out.
/// @param argc,argv the subcommand with its arguments. @throw Failure with `ExitCode::Usage`.
std::optional<RenderOptions> ParseRenderOptions(int argc, const char* const* argv, std::ostream& out);

/// Runs `txmap render`. @throw Failure.
void RunRenderCommand(int argc, const char* const* argv, std::ostream& out);

} // namespace txmap
