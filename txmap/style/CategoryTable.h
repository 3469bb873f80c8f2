#pragma once

#include <string>
#include <unordered_map>

namespace txmap
{

/// Sorts the values of an attribute into colour classes.
class CategoryTable
{
public:
    /// @param classes how many classes there are, at least one.
    explicit CategoryTable(int classes) : classes(classes) {}

    /// The class of a value: 1 to the number of classes, or 0 for a value that stands for none.
    ///
    /// Whole numbers count round the classes, so that small ones are their own class; 0, negative numbers and the empty
    /// text are none. Other texts get the classes in turn, in the order in which they are first asked for, so that as
    /// many of them differ as there are classes.
    int Of(const std::string& value);

private:
    int classes;
    std::unordered_map<std::string, int> texts;
};

} // namespace txmap
