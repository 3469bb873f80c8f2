#include <txmap/style/CategoryTable.h>

#include <charconv>
#include <cstddef>

namespace txmap
{

int CategoryTable::Of(const std::string& value)
{
    if (value.empty())
        return 0;
    long long number = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (error == std::errc() && end == value.data() + value.size())
        return number <= 0 ? 0 : static_cast<int>((number - 1) % classes) + 1;
    const int next = static_cast<int>(texts.size() % static_cast<std::size_t>(classes)) + 1;
    return texts.emplace(value, next).first->second;
}

} // namespace txmap
