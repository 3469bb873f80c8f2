#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace txmap
{

/// Letters of one direction that stand side by side.
struct DirectedRun
{
    std::size_t begin = 0;
    std::size_t end = 0;
    bool rightToLeft = false;
};

/// True when the paragraph in which a letter stands begins with right-to-left letters.
bool IsRightToLeftParagraph(const std::wstring& letters, std::size_t at);

/// The runs of a line, in the order in which they are seen, from the left.
std::vector<DirectedRun> VisualRuns(const std::wstring& letters, std::size_t begin, std::size_t end,
                                    bool rightToLeftParagraph);

/// An invisible letter of that direction. In front of a text it makes the direction that of the whole.
wchar_t DirectionMark(bool rightToLeft);

} // namespace txmap
