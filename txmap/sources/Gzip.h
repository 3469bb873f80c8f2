#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace txmap
{

/// True when data begins as gzip or zlib data does.
bool IsCompressed(std::string_view data);

/// Unpacks gzip or zlib data, of several members if there are.
/// @param limit how many bytes it may give. @throw std::runtime_error, with the reason, if it is broken or gives more.
std::string Unpacked(std::string_view data, std::size_t limit);

} // namespace txmap
