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

/// The value of an option that is one number within limits. @throw Failure with `ExitCode::Usage`.
double ParseNumber(const char* option, const std::string& text, double least, double greatest);
/// The same for whole numbers.
int ParseWholeNumber(const char* option, const std::string& text, int least, int greatest);

} // namespace txmap
