#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include <txmap/style/Value.h>

namespace txmap
{

/// Tells of a tree of JSON with the events that a reader of its text gives. The tree must be shallow: it is walked on
/// the stack. @return false if an event said to stop.
template <class Events>
bool WalkJson(const Json& json, Events& events)
{
    if (json.is_object())
    {
        if (!events.start_object(json.size()))
            return false;
        for (const auto& [name, value] : json.items())
        {
            std::string copy = name;
            if (!events.key(copy) || !WalkJson(value, events))
                return false;
        }
        return events.end_object();
    }
    if (json.is_array())
    {
        if (!events.start_array(json.size()))
            return false;
        for (const Json& value : json)
            if (!WalkJson(value, events))
                return false;
        return events.end_array();
    }
    if (json.is_string())
    {
        auto copy = json.get<std::string>();
        return events.string(copy);
    }
    if (json.is_boolean())
        return events.boolean(json.get<bool>());
    if (json.is_number())
        return events.number_float(json.get<double>(), {});
    return events.null();
}

} // namespace txmap
