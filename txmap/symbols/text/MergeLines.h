#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <txbase/TXPoint.h>

namespace txmap
{

/// A piece of a line that carries a name.
struct LinePiece
{
    std::string key; ///< What it must share with others to become one line with them; empty: it stays by itself.
    std::vector<TZObjects::TXPoint> points;
};

/// A line that was put together.
struct MergedLine
{
    std::size_t piece = 0; ///< The longest of its pieces, whose direction and attributes the line has.
    std::vector<TZObjects::TXPoint> points;
};

/// Puts pieces together that have the same key and touch at their ends. Where more than two meet, those go on together
/// that turn least. The lines do not depend on the order of the pieces, and stand in the order of their longest ones.
/// It takes time that grows with the number of points.
std::vector<MergedLine> MergeLines(std::vector<LinePiece> pieces);

} // namespace txmap
