#pragma once

#include <stdexcept>
#include <string>

namespace txmap
{

/// What the process answers to its caller.
enum class ExitCode : int
{
    Success = 0,
    Drawing = 1, ///< Rendering, or writing the picture, failed.
    Usage = 2,   ///< The command line makes no sense.
    Plugin = 3,  ///< There is no usable drawing plugin.
    Data = 4,    ///< The geodata cannot be used.
    Tiles = 5    ///< Some tiles could not be drawn, or are missing.
};

/// Why there is no picture, or not the one that was asked for: one line for people, which names the file or the option
/// at fault, and the exit code.
class Failure : public std::runtime_error
{
public:
    Failure(ExitCode code, const std::string& text) : std::runtime_error(text), code(code) {}

    ExitCode Code() const noexcept { return code; }

private:
    ExitCode code;
};

} // namespace txmap
