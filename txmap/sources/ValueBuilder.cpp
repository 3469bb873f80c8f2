#include <txmap/sources/ValueBuilder.h>

#include <utility>

namespace txmap
{

std::optional<Value> ValueBuilder::End()
{
    Level level = std::move(open.back());
    open.pop_back();
    return Add(level.isObject ? Value(std::move(level.object)) : Value(std::move(level.array)));
}

std::optional<Value> ValueBuilder::Add(Value value)
{
    if (open.empty())
        return value;
    Level& level = open.back();
    if (level.isObject)
        level.object.emplace_back(std::move(level.key), std::move(value));
    else
        level.array.push_back(std::move(value));
    return std::nullopt;
}

} // namespace txmap
