#pragma once

#include <cstddef>
#include <vector>

#include <txmap/symbols/text/StyledLetters.h>

namespace txmap
{

/// A line of a text: the letters from one to another, without the spaces at its ends.
struct LineSpan
{
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Breaks a text into lines of about the same width.
///
/// The breaks are those that together are the least bad: bad is the square of how far a line is from the width that all
/// would have, and some places are worse than others.
/// @param maxWidth in ems; 0 breaks wherever it can, a negative number and infinity only where the text asks for it.
std::vector<LineSpan> BreakLines(const StyledLetters& text, double maxWidth);

} // namespace txmap
