#pragma once

#include <string>

#include <txmap/atlas/AtlasOptions.h>

namespace txmap
{

/// What the program is to do, and with what.
struct Options : AtlasOptions
{
    /// Exactly one of these happens.
    enum class Action
    {
        Render,
        ListPlugins,
        ShowText ///< Print `text` and do nothing else.
    };

    Action action = Action::Render;
    std::string text;
};

/// Reads the command line. @throw Failure with `ExitCode::Usage` when it makes no sense.
Options ParseOptions(int argc, const char* const* argv);

} // namespace txmap
