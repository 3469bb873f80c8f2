#pragma once

#include <charconv>
#include <string_view>
#include <system_error>
#include <vector>

namespace txmap
{

/// All numbers of a text such as "2048x1024" or "-10,35,30,60"; none when anything else is in it.
template <class Number>
std::vector<Number> NumbersIn(std::string_view text, char separator)
{
    std::vector<Number> numbers;
    const char* position = text.data();
    const char* const end = position + text.size();
    for (;; ++position)
    {
        Number number{};
        const auto [behind, error] = std::from_chars(position, end, number);
        if (error != std::errc() || (behind != end && *behind != separator))
            return {};
        numbers.push_back(number);
        position = behind;
        if (position == end)
            return numbers;
    }
}

} // namespace txmap
