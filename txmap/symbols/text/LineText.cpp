#include <txmap/symbols/text/LineText.h>

#include <cmath>

#include <txmap/symbols/text/PlainText.h>
#include <txmap/symbols/text/SymbolFonts.h>

namespace txmap
{

LineText MakeLineText(const std::vector<TextSection>& sections, const TextStyle& style, SymbolFonts& fonts)
{
    LineText line;
    if (!(style.size > 0.0) || !std::isfinite(style.size))
        return line;
    const SymbolFace& face = fonts.Find(style.fontStack, style.engine);
    line.size = style.size;
    line.baseline = 0.4375 * style.size;
    for (const TextSection& section : sections)
    {
        const std::wstring letters = VisibleLetters(section.text);
        std::size_t begin = 0;
        for (const std::size_t end : LetterEnds(letters))
        {
            LineCluster cluster;
            cluster.piece.text = PlainText(letters.substr(begin, end - begin), style.engine);
            cluster.piece.face = &face;
            cluster.piece.size = style.size;
            cluster.piece.color = section.color;
            cluster.advance = face.KeptAdvance(cluster.piece.text) * style.size;
            line.length += cluster.advance;
            line.clusters.push_back(cluster);
            begin = end;
        }
    }
    return line;
}

} // namespace txmap
