#include <txmap/symbols/text/MergeLines.h>

#include <utility>

namespace txmap
{

std::vector<MergedLine> MergeLines(std::vector<LinePiece> pieces)
{
    std::vector<MergedLine> lines;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        lines.push_back({i, std::move(pieces[i].points)});
    return lines;
}

} // namespace txmap
