#include <txmap/symbols/text/LineText.h>

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include <txmap/symbols/text/LetterClusters.h>

#include "TextPicture.h"

using namespace TZObjects;
using namespace txmap;
using ::testing::ElementsAre;

namespace
{

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

using Pair = std::pair<double, double>;

/// A point as a pair, which can be compared.
Pair PairOf(const TXPoint& point) { return {point.x, point.y}; }

std::vector<std::wstring> Clusters(const std::wstring& text)
{
    std::vector<std::wstring> clusters;
    for (const LetterCluster& cluster : ClustersOf(text))
        clusters.push_back(text.substr(cluster.begin, cluster.end - cluster.begin));
    return clusters;
}

class LineTextTest : public TextPicture
{
protected:
    LineText Make(const std::string& text, double size = 20.0)
    {
        return MakeLineText({Section(text)}, Mono(size), fonts);
    }

    std::vector<std::wstring> Texts(const std::string& text)
    {
        std::vector<std::wstring> texts;
        for (const LineCluster& cluster : Make(text).clusters)
            texts.push_back(cluster.piece.text.toStdWString());
        return texts;
    }

    /// Ten letters of 10 pixels each.
    static LineText Ten()
    {
        LineText text;
        text.size = 16.0;
        for (int i = 0; i < 10; ++i)
        {
            LineCluster cluster;
            cluster.advance = 10.0;
            cluster.piece.width = 10.0;
            text.clusters.push_back(cluster);
        }
        text.length = 100.0;
        return text;
    }
};

} // namespace

TEST(LetterClustersTest, MarksStayWithTheirLetters)
{
    EXPECT_THAT(Clusters(L"abc"), ElementsAre(L"a", L"b", L"c"));
    EXPECT_THAT(Clusters(L"a\x301"
                         L"b"),
                ElementsAre(L"a\x301", L"b"));
    EXPECT_THAT(Clusters(L"กรุง"), ElementsAre(L"ก", L"รุ", L"ง"));
    EXPECT_THAT(Clusters(L"น้ำ"), ElementsAre(L"น้ำ"));
    EXPECT_THAT(Clusters(L"北京"), ElementsAre(L"北", L"京"));
    EXPECT_TRUE(Clusters(L"").empty());
}

TEST(LetterClustersTest, SyllablesOfIndicScriptsAreWhole)
{
    EXPECT_THAT(Clusters(L"क्षत्रिय"), ElementsAre(L"क्ष", L"त्रि", L"य"));
    EXPECT_THAT(Clusters(L"मार्ग"), ElementsAre(L"मा", L"र्ग"));
    EXPECT_THAT(Clusters(L"தமிழ்நாடு"), ElementsAre(L"த", L"மி", L"ழ்", L"நா", L"டு"));
    EXPECT_THAT(Clusters(L"ஸ்ரீ"), ElementsAre(L"ஸ்ரீ"));
    EXPECT_THAT(Clusters(L"க்ஷே"), ElementsAre(L"க்ஷே"));
    // A virama at the end of a word is seen.
    EXPECT_THAT(Clusters(L"त् क"), ElementsAre(L"त्", L" ", L"क"));
}

TEST(LetterClustersTest, LettersThatJoinHaveTheFormOfTheirPlace)
{
    const std::wstring text = L"شارع";
    const std::vector<LetterCluster> clusters = ClustersOf(text);
    ASSERT_EQ(clusters.size(), 4U);
    EXPECT_EQ(ClusterText(text, clusters[0]), L"ش\x200D");
    EXPECT_EQ(ClusterText(text, clusters[1]), L"\x200D"
                                              L"ا");
    EXPECT_EQ(ClusterText(text, clusters[2]), L"ر");
    EXPECT_EQ(ClusterText(text, clusters[3]), L"ع");
    // Marks in between do not part letters; a joiner that forbids it does.
    const std::wstring marked = L"بَب";
    EXPECT_EQ(ClusterText(marked, ClustersOf(marked)[0]), L"بَ\x200D");
    const std::wstring apart = L"ب\x200Cب";
    EXPECT_EQ(ClusterText(apart, ClustersOf(apart)[0]), L"ب\x200C");
}

TEST(LetterClustersTest, LamAndAlefAreOne)
{
    EXPECT_THAT(Clusters(L"الإسلام"), ElementsAre(L"ا", L"لإ", L"س", L"لا", L"م"));
    const std::wstring text = L"سلام";
    const std::vector<LetterCluster> clusters = ClustersOf(text);
    EXPECT_EQ(ClusterText(text, clusters[1]), L"\x200Dلا");
    EXPECT_EQ(ClusterText(text, clusters[2]), L"م");
}

TEST_F(LineTextTest, ClustersHaveTheirAdvances)
{
    const LineText text = Make("name");
    ASSERT_EQ(text.clusters.size(), 4U);
    const double letter = fonts.Find({"DejaVu Sans Mono"}, TextPath::Qt).Advance(L"n") * 20.0;
    EXPECT_DOUBLE_EQ(text.clusters[0].advance, letter);
    EXPECT_NEAR(text.length, 4.0 * letter, 1e-9);
    EXPECT_DOUBLE_EQ(text.clusters[0].piece.origin.x, -letter / 2.0);
    TextStyle style = Mono(20.0);
    style.letterSpacing = 0.5;
    EXPECT_NEAR(MakeLineText({Section("name")}, style, fonts).length, 4.0 * letter + 30.0, 1e-9);
}

TEST_F(LineTextTest, ATextIsOneLine)
{
    EXPECT_THAT(Texts(" a\nb "), ElementsAre(L"a", L" ", L"b"));
    EXPECT_TRUE(Make("").IsEmpty());
    EXPECT_TRUE(Make("name", kNaN).IsEmpty());
    EXPECT_EQ(MakeLineText({Section("a"), Image("shield", 10.0, 10.0)}, Mono(20.0), fonts).clusters.size(), 1U);
}

TEST_F(LineTextTest, TextFromRightToLeftStandsInItsOrder)
{
    EXPECT_THAT(Texts("אבג"), ElementsAre(L"ג", L"ב", L"א"));
    EXPECT_THAT(Texts("אב 12"), ElementsAre(L"1", L"2", L" ", L"ב", L"א"));
    EXPECT_THAT(Texts("אב a"), ElementsAre(L"a", L" ", L"ב", L"א"));
    EXPECT_THAT(Texts("a אב"), ElementsAre(L"a", L" ", L"ב", L"א"));
    EXPECT_THAT(Texts("(א)"), ElementsAre(L"(", L"א", L")"));
}

TEST_F(LineTextTest, ATextStandsAboutItsAnchor)
{
    const auto fitted = FitAlong(Ten(), {{0, 50}, {256, 50}}, 80.0, {});
    ASSERT_TRUE(fitted);
    ASSERT_EQ(fitted->clusters.size(), 10U);
    for (std::size_t i = 0; i < 10; ++i)
    {
        EXPECT_EQ(PairOf(fitted->clusters[i].at), Pair(35.0 + 10.0 * static_cast<double>(i), 50.0));
        EXPECT_EQ(fitted->clusters[i].angle, 0.0);
    }
    EXPECT_FALSE(fitted->turned);
    // The circles reach from end to end without a gap.
    const double radius = 0.6 * 16.0;
    EXPECT_DOUBLE_EQ(fitted->circles.front().center.x, 30.0 + radius);
    EXPECT_DOUBLE_EQ(fitted->circles.back().center.x, 130.0 - radius);
    for (std::size_t i = 1; i < fitted->circles.size(); ++i)
        EXPECT_LE(fitted->circles[i].center.x - fitted->circles[i - 1].center.x, radius);
}

TEST_F(LineTextTest, ATextNeedsRoom)
{
    const PixelLine line = {{0, 50}, {120, 50}};
    EXPECT_TRUE(FitAlong(Ten(), line, 50.0, {}));
    EXPECT_TRUE(FitAlong(Ten(), line, 70.0, {}));
    EXPECT_FALSE(FitAlong(Ten(), line, 49.0, {}));
    EXPECT_FALSE(FitAlong(Ten(), line, 71.0, {}));
    EXPECT_FALSE(FitAlong(Ten(), {{0, 50}, {99, 50}}, 49.5, {}));
    LineFit fit;
    fit.alongOffset = 10.0;
    EXPECT_FALSE(FitAlong(Ten(), line, 70.0, fit));
    EXPECT_EQ(PairOf(FitAlong(Ten(), line, 50.0, fit)->clusters[0].at), Pair(15.0, 50.0));
}

TEST_F(LineTextTest, ATextIsKeptUpright)
{
    const PixelLine line = {{256, 50}, {0, 50}};
    const auto upright = FitAlong(Ten(), line, 100.0, {});
    ASSERT_TRUE(upright);
    EXPECT_TRUE(upright->turned);
    EXPECT_EQ(PairOf(upright->clusters[0].at), Pair(111.0, 50.0));
    EXPECT_EQ(upright->clusters[0].angle, 0.0);
    LineFit fit;
    fit.keepUpright = false;
    const auto asItIs = FitAlong(Ten(), line, 100.0, fit);
    EXPECT_EQ(PairOf(asItIs->clusters[0].at), Pair(201.0, 50.0));
    EXPECT_DOUBLE_EQ(asItIs->clusters[0].angle, 180.0);
}

TEST_F(LineTextTest, OffsetsAreThoseOfTheReader)
{
    LineFit fit;
    fit.sideOffset = 8.0;
    for (const PixelLine& line : {PixelLine{{0, 50}, {256, 50}}, PixelLine{{256, 50}, {0, 50}}})
    {
        const auto fitted = FitAlong(Ten(), line, 128.0, fit);
        ASSERT_TRUE(fitted);
        EXPECT_EQ(PairOf(fitted->clusters[0].at), Pair(83.0, 58.0));
    }
}

TEST_F(LineTextTest, SharpCornersAreNotForTexts)
{
    const PixelLine corner = {{0, 100}, {100, 100}, {100 + 70.7, 100 - 70.7}};
    LineFit fit;
    fit.maxAngle = 46.0;
    EXPECT_TRUE(FitAlong(Ten(), corner, 100.0, fit));
    fit.maxAngle = 44.0;
    EXPECT_FALSE(FitAlong(Ten(), corner, 100.0, fit));
    // Beside the corner there is room.
    EXPECT_TRUE(FitAlong(Ten(), corner, 50.0, fit));
}

TEST_F(LineTextTest, CornersCloseToEachOtherAddUp)
{
    const auto zigzag = [](double step)
    {
        return PixelLine{
            {0, 100}, {100, 100}, {100 + step * 0.866, 100 - step * 0.5}, {100 + step * 0.866 + 100, 100 - step * 0.5}};
    };
    LineFit fit;
    fit.maxAngle = 45.0;
    EXPECT_FALSE(FitAlong(Ten(), zigzag(5.0), 100.0, fit));
    EXPECT_TRUE(FitAlong(Ten(), zigzag(15.0), 100.0, fit));
}

TEST_F(LineTextTest, AClusterAtACornerLeansHalf)
{
    const auto fitted = FitAlong(Ten(), {{0, 100}, {95, 100}, {95 + 80, 100 - 80}}, 90.0, {});
    ASSERT_TRUE(fitted);
    EXPECT_NEAR(fitted->clusters[5].angle, -22.5, 1e-6);
    EXPECT_NEAR(fitted->clusters[4].angle, 0.0, 1e-6);
    EXPECT_NEAR(fitted->clusters[6].angle, -45.0, 1e-6);
}

TEST_F(LineTextTest, IdeographsStandUprightOnSteepLines)
{
    LineText text = Ten();
    for (LineCluster& cluster : text.clusters)
        cluster.upright = true;
    text.clusters[3].upright = false;
    for (const PixelLine& line : {PixelLine{{50, 0}, {50, 200}}, PixelLine{{50, 200}, {50, 0}}})
    {
        const auto fitted = FitAlong(text, line, 100.0, {});
        ASSERT_TRUE(fitted);
        EXPECT_DOUBLE_EQ(fitted->clusters[0].at.y, 55.0);
        EXPECT_DOUBLE_EQ(fitted->clusters[0].angle, 0.0);
        EXPECT_DOUBLE_EQ(fitted->clusters[3].angle, 90.0);
    }
    const auto across = FitAlong(text, {{0, 50}, {200, 60}}, 100.0, {});
    EXPECT_NEAR(across->clusters[0].angle, 2.86, 0.01);
    EXPECT_TRUE(Make("東京").clusters[0].upright);
    EXPECT_FALSE(Make("a").clusters[0].upright);
}

TEST_F(LineTextTest, LinesWithoutMeaningFitNothing)
{
    EXPECT_FALSE(FitAlong(Ten(), {}, 0.0, {}));
    EXPECT_FALSE(FitAlong(Ten(), {{5, 5}}, 0.0, {}));
    EXPECT_FALSE(FitAlong(Ten(), {{5, 5}, {5, 5}, {5, 5}}, 0.0, {}));
    EXPECT_FALSE(FitAlong(Ten(), {{0, 0}, {kNaN, 5}, {200, 0}}, 100.0, {}));
    EXPECT_FALSE(FitAlong(Ten(), {{0, 0}, {200, 0}}, kNaN, {}));
    EXPECT_FALSE(FitAlong(LineText(), {{0, 0}, {200, 0}}, 100.0, {}));
    LineFit fit;
    fit.maxAngle = kNaN;
    EXPECT_FALSE(FitAlong(Ten(), {{0, 0}, {200, 0}}, 100.0, fit));
    // Points that repeat are no corners.
    EXPECT_TRUE(FitAlong(Ten(), {{0, 0}, {100, 0}, {100, 0}, {200, 0}}, 100.0, {}));
    const auto atTheEnd = FitAlong(Ten(), {{0, 0}, {200, 0}, {200, 0}}, 150.0, {});
    ASSERT_TRUE(atTheEnd);
    EXPECT_EQ(atTheEnd->clusters[9].angle, 0.0);
}
