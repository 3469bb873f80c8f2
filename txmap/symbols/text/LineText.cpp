#include <txmap/symbols/text/LineText.h>

#include <unicode/uchar.h>

#include <algorithm>
#include <cmath>

#include <txmap/symbols/text/LetterClasses.h>
#include <txmap/symbols/text/LetterClusters.h>
#include <txmap/symbols/text/PlainText.h>
#include <txmap/symbols/text/StyledLetters.h>
#include <txmap/symbols/text/SymbolFonts.h>
#include <txmap/symbols/text/TextDirection.h>
#include <txmap/symbols/text/TextMetrics.h>

namespace txmap
{
namespace
{

constexpr wchar_t kSoftHyphen = L'\xAD';

/// A cluster of a text whose letters may run either way.
struct DirectedCluster
{
    LetterCluster cluster;
    bool rightToLeft;
};

/// The clusters from the left, as they are seen.
std::vector<DirectedCluster> VisualClusters(const StyledLetters& text)
{
    std::vector<DirectedCluster> clusters;
    const std::vector<LetterCluster> logical = ClustersOf(text.letters);
    if (!text.rightToLeft)
    {
        for (const LetterCluster& cluster : logical)
            clusters.push_back({cluster, false});
        return clusters;
    }
    const bool paragraph = IsRightToLeftParagraph(text.letters, 0);
    for (const DirectedRun& run : VisualRuns(text.letters, 0, text.letters.size(), paragraph))
    {
        const auto first = static_cast<std::ptrdiff_t>(clusters.size());
        for (const LetterCluster& cluster : logical)
            if (cluster.begin >= run.begin && cluster.begin < run.end)
                clusters.push_back({cluster, run.rightToLeft});
        if (run.rightToLeft)
            std::reverse(clusters.begin() + first, clusters.end());
    }
    return clusters;
}

/// What is drawn of a cluster: brackets of right-to-left text are those of the other side.
std::wstring ShownText(const StyledLetters& text, const DirectedCluster& directed, const TextStyle& style)
{
    if (style.engine == TextPath::Cairo)
        return text.letters.substr(directed.cluster.begin, directed.cluster.end - directed.cluster.begin);
    std::wstring shown = ClusterText(text.letters, directed.cluster);
    if (directed.rightToLeft)
        for (wchar_t& c : shown)
            c = static_cast<wchar_t>(u_charMirror(static_cast<UChar32>(c)));
    return shown;
}

LineCluster ClusterOf(const StyledLetters& text, const DirectedCluster& directed, const TextStyle& style)
{
    const LetterCluster& range = directed.cluster;
    const LetterLook& look = text.looks[text.look[range.begin]];
    LineCluster cluster;
    cluster.upright = StandsUpright(text.letters[range.begin]);
    TextPiece& piece = cluster.piece;
    piece.text = PlainText(ShownText(text, directed, style), style.engine);
    piece.face = look.face;
    piece.size = look.scale * style.size;
    piece.width = look.face->KeptAdvance(piece.text) * piece.size;
    piece.origin = {-piece.width / 2.0, kBaselineBelowMiddle * style.size};
    piece.color = look.section->color;
    cluster.advance = piece.width + text.spacing * style.size;
    return cluster;
}

/// Line breaks are spaces along a line.
void JoinLines(StyledLetters& text) { std::replace(text.letters.begin(), text.letters.end(), L'\n', L' '); }

} // namespace

LineText MakeLineText(const std::vector<TextSection>& sections, const TextStyle& given, SymbolFonts& fonts)
{
    const TextStyle style = WithUsableSize(given);
    LineText line;
    if (!IsVisible(style))
        return line;
    StyledLetters text = MakeStyledLetters(sections, style, fonts);
    JoinLines(text);
    for (const DirectedCluster& directed : VisualClusters(text))
    {
        const std::size_t begin = directed.cluster.begin;
        if (text.looks[text.look[begin]].IsImage() || text.letters[begin] == kSoftHyphen)
            continue;
        line.clusters.push_back(ClusterOf(text, directed, style));
    }
    const auto isBlank = [](const LineCluster& cluster) { return cluster.piece.text == TZObjects::TXString(L" "); };
    while (!line.clusters.empty() && isBlank(line.clusters.back()))
        line.clusters.pop_back();
    line.clusters.erase(line.clusters.begin(), std::find_if_not(line.clusters.begin(), line.clusters.end(), isBlank));
    for (const LineCluster& cluster : line.clusters)
        line.length += cluster.advance;
    if (!line.clusters.empty())
        line.length = std::max(0.0, line.length - text.spacing * style.size);
    line.size = style.size;
    return line;
}

} // namespace txmap
