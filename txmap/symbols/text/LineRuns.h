#pragma once

#include <cstddef>
#include <vector>

#include <txmap/symbols/text/LineBreaks.h>
#include <txmap/symbols/text/StyledLetters.h>
#include <txmap/symbols/text/TextBlock.h>

namespace txmap
{

/// Letters of one look that are shaped together, or a picture.
struct LineRun
{
    const LetterLook* look = nullptr;
    std::wstring letters;
    double width = 0.0;        ///< In ems of the style's size; of letters, without the space behind them.
    bool upright = false;      ///< In a column: one letter, which stands upright.
    std::vector<double> lefts; ///< Of letters that neither join nor change their order, in the same ems; else empty.
};

/// The runs of a line in the order in which they are seen, from the left or from above.
std::vector<LineRun> RunsOf(const StyledLetters& text, const LineSpan& line, const TextStyle& style);

/// What is drawn of a run; its place is left open.
TextPiece PieceOf(const LineRun& run, const StyledLetters& text, const TextStyle& style);

} // namespace txmap
