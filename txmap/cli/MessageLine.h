#pragma once

#include <string>

namespace txmap
{

/// Prints a message to standard error, as one line that says where it comes from.
void PrintMessage(const std::string& message);

} // namespace txmap
