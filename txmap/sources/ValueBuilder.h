#pragma once

#include <optional>
#include <string>
#include <vector>

#include <txmap/style/Value.h>

namespace txmap
{

/// Puts a value together from the events of a JSON reader.
class ValueBuilder
{
public:
    void BeginArray() { open.push_back({false, {}, {}, {}}); }
    void BeginObject() { open.push_back({true, {}, {}, {}}); }
    void Key(std::string name) { open.back().key = std::move(name); }
    /// Ends an array or an object. @return the value if it is complete.
    std::optional<Value> End();
    /// Adds a value that is no array and no object. @return the value if it stands for itself.
    std::optional<Value> Add(Value value);

private:
    struct Level
    {
        bool isObject = false;
        std::string key;
        ValueArray array;
        ValueObject object;
    };

    std::vector<Level> open;
};

} // namespace txmap
