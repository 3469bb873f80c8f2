#pragma once

#include <string>

#include <txmap/support/Failure.h>
#include <txmap/support/Numbers.h>

namespace txmap
{

/// Says what is wrong with the value of an option. @throw Failure with `ExitCode::Usage`.
[[noreturn]] inline void Refuse(const std::string& option, const std::string& value, const std::string& reason)
{
    throw Failure(ExitCode::Usage, option + " " + value + ": " + reason);
}

} // namespace txmap
