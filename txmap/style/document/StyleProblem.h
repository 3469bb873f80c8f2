#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace txmap
{

/// Something that is wrong with a style, and where.
struct StyleProblem
{
    std::string pointer; ///< A JSON pointer, such as "/layers/3/paint/line-width"; empty for the whole style.
    std::string message;
    /// Whether the style is right, and only this program cannot draw what it says.
    bool isUnsupported = false;

    /// "/layers/3/paint/line-width: number expected, string found"
    std::string ToString() const { return (pointer.empty() ? "/" : pointer) + ": " + message; }
};

/// The problems that were found so far.
class StyleProblems
{
public:
    void Add(const std::string& pointer, const std::string& message) { problems.push_back({pointer, message, false}); }
    void AddUnsupported(const std::string& pointer, const std::string& message)
    {
        problems.push_back({pointer, message, true});
    }
    std::size_t Count() const { return problems.size(); }
    std::vector<StyleProblem> Take() { return std::move(problems); }

private:
    std::vector<StyleProblem> problems;
};

/// The pointer to a member of what a pointer points to.
std::string PointerTo(const std::string& pointer, const std::string& member);
/// The pointer to an item of an array.
std::string PointerTo(const std::string& pointer, std::size_t index);
/// The pointer to a part of an expression, whose place is written "[2][1]".
std::string PointerToPart(const std::string& pointer, const std::string& key);

} // namespace txmap
