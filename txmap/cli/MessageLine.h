#pragma once

#include <string>

namespace TZObjects
{

/// Prints a message to standard error, as one line that says where it comes from.
void PrintMessage(const std::string& message);

} // namespace TZObjects
