#pragma once

#include <charconv>
#include <string>
#include <vector>

#include <txmap/support/Failure.h>

namespace txmap
{

/// Says what is wrong with the value of an option. @throw Failure with `ExitCode::Usage`.
[[noreturn]] inline void Refuse(const std::string& option, const std::string& value, const std::string& reason)
{
    throw Failure(ExitCode::Usage, option + " " + value + ": " + reason);
}

/// All numbers of a text such as "2048x1024" or "-10,35,30,60"; none when anything else is in it.
template <class Number>
std::vector<Number> NumbersIn(const std::string& text, char separator)
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
