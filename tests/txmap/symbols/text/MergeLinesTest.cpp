#include <txmap/symbols/text/MergeLines.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>

#include <tests/support/RandomSource.h>

using namespace TZObjects;
using namespace txmap;
using ::testing::ElementsAre;

namespace
{

using Points = std::vector<TXPoint>;
/// Points as pairs, which can be compared.
using Pairs = std::vector<std::pair<double, double>>;

Pairs PairsOf(const Points& points)
{
    Pairs pairs;
    for (const TXPoint& point : points)
        pairs.emplace_back(point.x, point.y);
    return pairs;
}

std::vector<Pairs> Merged(const std::vector<LinePiece>& pieces)
{
    std::vector<Pairs> lines;
    for (const MergedLine& line : MergeLines(pieces))
        lines.push_back(PairsOf(line.points));
    return lines;
}

std::vector<Pairs> Sorted(std::vector<Pairs> lines)
{
    std::sort(lines.begin(), lines.end());
    return lines;
}

} // namespace

TEST(MergeLinesTest, PiecesThatTouchBecomeOneLine)
{
    EXPECT_THAT(Merged({{"a", {{0, 0}, {5, 0}}}, {"a", {{5, 0}, {6, 0}}}, {"a", {{-2, 1}, {0, 0}}}}),
                ElementsAre(Pairs{{-2, 1}, {0, 0}, {5, 0}, {6, 0}}));
}

TEST(MergeLinesTest, TheLongestPieceGivesDirectionAndAttributes)
{
    const auto lines = MergeLines({{"a", {{0, 0}, {1, 0}}}, {"a", {{9, 0}, {1, 0}}}});
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].piece, 1U);
    EXPECT_EQ(PairsOf(lines[0].points), (Pairs{{9, 0}, {1, 0}, {0, 0}}));
}

TEST(MergeLinesTest, OtherNamesAndPlacesStayApart)
{
    EXPECT_EQ(Merged({{"a", {{0, 0}, {1, 0}}}, {"b", {{1, 0}, {2, 0}}}}).size(), 2U);
    EXPECT_EQ(Merged({{"", {{0, 0}, {1, 0}}}, {"", {{1, 0}, {2, 0}}}}).size(), 2U);
    EXPECT_EQ(Merged({{"a", {{0, 0}, {1, 0}}}, {"a", {{1.0000001, 0}, {2, 0}}}}).size(), 2U);
    // Where one crosses the other in the middle, they do not touch.
    EXPECT_EQ(Merged({{"a", {{0, 0}, {1, 0}, {2, 0}}}, {"a", {{1, 0}, {1, 5}}}}).size(), 2U);
}

TEST(MergeLinesTest, AtAForkTheStraightestGoOnTogether)
{
    EXPECT_THAT(Merged({{"a", {{0, 0}, {5, 0}}}, {"a", {{5, 0}, {5, 3}}}, {"a", {{5, 0}, {9, 0.5}}}}),
                ElementsAre(Pairs{{0, 0}, {5, 0}, {9, 0.5}}, Pairs{{5, 0}, {5, 3}}));
}

TEST(MergeLinesTest, RingsAreLinesToo)
{
    const auto lines = MergeLines({{"a", {{0, 0}, {1, 0}}}, {"a", {{1, 0}, {1, 5}}}, {"a", {{0, 0}, {1, 5}}}});
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(PairsOf(lines[0].points), (Pairs{{0, 0}, {1, 5}, {1, 0}, {0, 0}}));
    // A piece that is a ring by itself.
    EXPECT_THAT(Merged({{"a", {{0, 0}, {1, 0}, {1, 1}, {0, 0}}}}), ElementsAre(Pairs{{0, 0}, {1, 0}, {1, 1}, {0, 0}}));
}

TEST(MergeLinesTest, PiecesWithoutMeaningStayAsTheyAre)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Merged({{"a", {}}, {"a", {{1, 1}}}, {"a", {{nan, 0}, {1, 1}}}, {"a", {{1, 1}, {2, 2}}}}).size(), 4U);
    EXPECT_TRUE(Merged({}).empty());
}

TEST(MergeLinesTest, NegativeZeroIsThatPlace)
{
    EXPECT_EQ(Merged({{"a", {{0.0, -0.0}, {5, 0}}}, {"a", {{-0.0, 0.0}, {-5, 0}}}}).size(), 1U);
}

TEST(MergeLinesTest, TheOrderOfPiecesDoesNotMatter)
{
    RandomSource random(15);
    // Streets of a grid, in pieces of either direction.
    std::vector<LinePiece> pieces;
    for (int x = 0; x < 12; ++x)
        for (int y = 0; y < 12; ++y)
        {
            const TXPoint from(x, y);
            const std::string name = "street " + std::to_string(random.Int(0, 3));
            Points piece = {from, TXPoint(x + 1, y)};
            if (random.Chance(50))
                piece = {from, TXPoint(x, y + 1)};
            if (random.Chance(50))
                std::reverse(piece.begin(), piece.end());
            pieces.push_back({name, piece});
        }
    const auto expected = Sorted(Merged(pieces));
    EXPECT_LT(expected.size(), pieces.size());
    for (int shuffle = 0; shuffle < 20; ++shuffle)
    {
        for (std::size_t i = pieces.size() - 1; i > 0; --i)
            std::swap(pieces[i], pieces[static_cast<std::size_t>(random.Int(0, static_cast<int>(i)))]);
        EXPECT_EQ(Sorted(Merged(pieces)), expected);
    }
}
