#include <txmap/symbols/text/MergeLines.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
// Where more ends meet, they make no lines that a reader would follow.
constexpr std::size_t kMostEnds = 16;

/// Ends of pieces have numbers: twice the piece's, and one more for its last point.
std::size_t PieceOf(std::size_t end) { return end / 2; }
std::size_t OtherEnd(std::size_t end) { return end ^ 1U; }

struct Node
{
    std::size_t key;
    double x;
    double y;

    bool operator==(const Node& other) const { return key == other.key && x == other.x && y == other.y; }
};

struct NodeHash
{
    std::size_t operator()(const Node& node) const
    {
        const std::hash<double> hash;
        return (node.key * 31 + hash(node.x)) * 0x9E3779B97F4A7C15U + hash(node.y);
    }
};

std::pair<double, double> InOrder(const TXPoint& point) { return {point.x, point.y}; }

double LengthOf(const std::vector<TXPoint>& points)
{
    double length = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i)
        length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
    return length;
}

/// A piece within a line.
struct Link
{
    std::size_t piece;
    bool reversed;
};

class LineMerger
{
public:
    explicit LineMerger(std::vector<LinePiece> given) : pieces(std::move(given)), partner(2 * pieces.size(), kNone)
    {
        for (const LinePiece& piece : pieces)
            lengths.push_back(LengthOf(piece.points));
    }

    std::vector<MergedLine> Merge()
    {
        for (auto& [node, ends] : EndsByNode())
            Pair(ends);
        std::vector<bool> done(pieces.size(), false);
        std::vector<MergedLine> lines;
        // Rings have no end to begin at, so they come last.
        for (const bool rings : {false, true})
            for (std::size_t end = 0; end < partner.size(); ++end)
                if (!done[PieceOf(end)] && (rings || partner[end] == kNone))
                    lines.push_back(LineOf(Chain(end, done)));
        std::sort(lines.begin(), lines.end(),
                  [](const MergedLine& a, const MergedLine& b) { return a.piece < b.piece; });
        return lines;
    }

private:
    const TXPoint& PointOf(std::size_t end) const
    {
        const std::vector<TXPoint>& points = pieces[PieceOf(end)].points;
        return end % 2 == 0 ? points.front() : points.back();
    }

    /// The point next to an end.
    const TXPoint& NeighbourOf(std::size_t end) const
    {
        const std::vector<TXPoint>& points = pieces[PieceOf(end)].points;
        return end % 2 == 0 ? points[1] : points[points.size() - 2];
    }

    std::unordered_map<Node, std::vector<std::size_t>, NodeHash> EndsByNode() const
    {
        std::unordered_map<std::string, std::size_t> keys;
        std::unordered_map<Node, std::vector<std::size_t>, NodeHash> ends;
        for (std::size_t piece = 0; piece < pieces.size(); ++piece)
        {
            if (pieces[piece].key.empty() || pieces[piece].points.size() < 2 || !std::isfinite(lengths[piece]))
                continue;
            const std::size_t key = keys.emplace(pieces[piece].key, keys.size()).first->second;
            for (const std::size_t end : {2 * piece, 2 * piece + 1})
                ends[{key, PointOf(end).x, PointOf(end).y}].push_back(end);
        }
        return ends;
    }

    /// By how much a line turns that goes from one end to another, in radians.
    double TurnBetween(std::size_t a, std::size_t b) const
    {
        const TXPoint& at = PointOf(a);
        const TXPoint& from = NeighbourOf(a);
        const TXPoint& to = NeighbourOf(b);
        const double cross = (at.x - from.x) * (to.y - at.y) - (at.y - from.y) * (to.x - at.x);
        const double dot = (at.x - from.x) * (to.x - at.x) + (at.y - from.y) * (to.y - at.y);
        return std::abs(std::atan2(cross, dot));
    }

    /// Joins the ends at a node two by two, the straightest first.
    void Pair(const std::vector<std::size_t>& ends)
    {
        if (ends.size() < 2 || ends.size() > kMostEnds)
            return;
        using Neighbours = std::array<std::pair<double, double>, 2>;
        std::vector<std::tuple<double, Neighbours, std::size_t, std::size_t>> pairs;
        for (std::size_t i = 0; i < ends.size(); ++i)
            for (std::size_t j = i + 1; j < ends.size(); ++j)
            {
                if (PieceOf(ends[i]) == PieceOf(ends[j]))
                    continue;
                Neighbours beside = {InOrder(NeighbourOf(ends[i])), InOrder(NeighbourOf(ends[j]))};
                std::sort(beside.begin(), beside.end());
                pairs.emplace_back(TurnBetween(ends[i], ends[j]), beside, ends[i], ends[j]);
            }
        std::sort(pairs.begin(), pairs.end());
        for (const auto& [turn, beside, a, b] : pairs)
            if (partner[a] == kNone && partner[b] == kNone)
            {
                partner[a] = b;
                partner[b] = a;
            }
    }

    /// The pieces of a line from an end on.
    std::vector<Link> Chain(std::size_t start, std::vector<bool>& done) const
    {
        std::vector<Link> chain;
        for (std::size_t end = start; end != kNone && !done[PieceOf(end)]; end = partner[OtherEnd(end)])
        {
            done[PieceOf(end)] = true;
            chain.push_back({PieceOf(end), end % 2 == 1});
        }
        return chain;
    }

    bool IsLonger(std::size_t a, std::size_t b) const
    {
        if (lengths[a] != lengths[b])
            return lengths[a] > lengths[b];
        const auto before = [](const TXPoint& p, const TXPoint& q) { return InOrder(p) < InOrder(q); };
        return std::lexicographical_compare(pieces[a].points.begin(), pieces[a].points.end(), pieces[b].points.begin(),
                                            pieces[b].points.end(), before);
    }

    MergedLine LineOf(std::vector<Link> chain)
    {
        const auto isLonger = [this](const Link& a, const Link& b) { return IsLonger(a.piece, b.piece); };
        auto longest = std::min_element(chain.begin(), chain.end(), isLonger);
        const Link first = chain.front();
        const bool isRing = partner[2 * first.piece + (first.reversed ? 1 : 0)] != kNone;
        if (isRing)
            std::rotate(chain.begin(), longest, chain.end());
        longest = isRing ? chain.begin() : longest;
        MergedLine line{longest->piece, {}};
        if (longest->reversed)
        {
            std::reverse(chain.begin(), chain.end());
            for (Link& link : chain)
                link.reversed = !link.reversed;
        }
        if (isRing)
            std::rotate(chain.begin(), std::min_element(chain.begin(), chain.end(), isLonger), chain.end());
        for (const Link& link : chain)
            Append(link, line.points);
        return line;
    }

    void Append(const Link& link, std::vector<TXPoint>& points)
    {
        std::vector<TXPoint>& piece = pieces[link.piece].points;
        if (link.reversed)
            std::reverse(piece.begin(), piece.end());
        // The point at which two pieces touch is one.
        const auto from = piece.begin() + (points.empty() || piece.empty() ? 0 : 1);
        points.insert(points.end(), from, piece.end());
    }

    std::vector<LinePiece> pieces;
    std::vector<double> lengths;
    std::vector<std::size_t> partner; ///< For each end the one that it goes on at.
};

} // namespace

std::vector<MergedLine> MergeLines(std::vector<LinePiece> pieces) { return LineMerger(std::move(pieces)).Merge(); }

} // namespace txmap
