// Cutting lines and rings to a rectangle, held against slow ways that cannot be wrong.
#include <cmath>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txmap/map/RectangleClipper.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

const TXRect kBox{10.0, 90.0, 20.0, 80.0};

using Points = std::vector<TXPoint>;

Parts Ring(const Points& ring)
{
    Parts result;
    RectangleClipper(kBox).ClipRing(ring.data(), ring.size(), result);
    return result;
}

Parts Line(const Points& line, std::vector<LineSpan>* spans = nullptr)
{
    Parts result;
    RectangleClipper(kBox).ClipLine(line.data(), line.size(), result, spans);
    return result;
}

/// How many times a ring goes around a point, by its angles.
int Windings(const TXPoint* ring, std::size_t count, const TXPoint& point)
{
    double angle = 0.0;
    for (std::size_t i = 1; i < count; ++i)
    {
        const TXPoint a{ring[i - 1].x - point.x, ring[i - 1].y - point.y};
        const TXPoint b{ring[i].x - point.x, ring[i].y - point.y};
        angle += std::atan2(a.x * b.y - a.y * b.x, a.x * b.x + a.y * b.y);
    }
    return static_cast<int>(std::lround(angle / (2.0 * std::acos(-1.0))));
}

double Length(const Points& points)
{
    double length = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i)
        length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
    return length;
}

bool Inside(const TXPoint& p) { return p.x >= 10.0 && p.x <= 90.0 && p.y >= 20.0 && p.y <= 80.0; }

/// Random points, of which many lie on the sides and corners of the box.
class RandomPoints
{
public:
    explicit RandomPoints(unsigned seed) : random(seed) {}

    Points Make(int count)
    {
        Points points;
        for (int i = 0; i < count; ++i)
            points.push_back({Coordinate(10.0, 90.0), Coordinate(20.0, 80.0)});
        return points;
    }
    TXPoint InBox() { return {Uniform(10.01, 89.99), Uniform(20.01, 79.99)}; }
    int Count(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random); }

private:
    double Uniform(double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); }
    double Coordinate(double low, double high)
    {
        switch (Count(0, 7))
        {
        case 0:
            return low;
        case 1:
            return high;
        case 2:
            return Uniform(-1e6, 1e6);
        default:
            return Uniform(low - 60.0, high + 60.0);
        }
    }

    std::mt19937 random;
};

TEST(RectangleClipper, LeavesARingInsideAsItIs)
{
    const Points ring{{20, 30}, {40, 30}, {40, 60}, {20, 30}};
    EXPECT_EQ(Ring(ring).points.size(), 4u);
    EXPECT_THAT(Ring(ring).counts, ElementsAre(4));
}

TEST(RectangleClipper, GivesTheBoxForARingAroundIt)
{
    const Parts result = Ring({{-1000, -1000}, {1000, -1000}, {1000, 1000}, {-1000, 1000}, {-1000, -1000}});
    EXPECT_THAT(result.counts, ElementsAre(5));
    EXPECT_NEAR(Length(result.points), 2 * (80 + 60), 1e-9);
}

TEST(RectangleClipper, DropsRingsOutside)
{
    EXPECT_THAT(Ring({{100, 30}, {140, 30}, {140, 60}, {100, 30}}).counts, IsEmpty());
    // Its bounds meet the box, the ring itself does not.
    EXPECT_THAT(Ring({{80, 200}, {200, 70}, {200, 200}, {80, 200}}).counts, IsEmpty());
}

TEST(RectangleClipper, CutsALineIntoPieces)
{
    std::vector<LineSpan> spans;
    const Parts result = Line({{0, 50}, {50, 50}, {50, 100}, {60, 100}, {60, 50}}, &spans);
    EXPECT_THAT(result.counts, ElementsAre(3, 2));
    EXPECT_EQ(result.points[0].x, 10.0);
    EXPECT_EQ(result.points[2].y, 80.0);
    EXPECT_EQ(result.points[3].y, 80.0);
    EXPECT_EQ(result.points[4].y, 50.0);
    EXPECT_EQ(spans[0].start, 10.0);
    EXPECT_EQ(spans[0].end, 80.0);
    EXPECT_EQ(spans[1].start, 130.0);
    EXPECT_EQ(spans[1].end, 160.0);
}

TEST(RectangleClipper, KeepsALineAlongASide)
{
    const Parts result = Line({{0, 20}, {100, 20}});
    EXPECT_THAT(result.counts, ElementsAre(2));
    EXPECT_EQ(result.points[1].x, 90.0);
}

TEST(RectangleClipper, KeepsALineOfNoLength) { EXPECT_THAT(Line({{50, 50}, {50, 50}}).counts, ElementsAre(2)); }

TEST(RectangleClipper, SurvivesTooFewPoints)
{
    EXPECT_THAT(Ring({}).counts, IsEmpty());
    EXPECT_THAT(Ring({{50, 50}, {60, 60}, {50, 50}}).counts, IsEmpty());
    EXPECT_THAT(Line({}).counts, IsEmpty());
    EXPECT_THAT(Line({{50, 50}}).counts, IsEmpty());
}

TEST(RectangleClipper, KeepsWindingsOfRandomRings)
{
    for (unsigned seed = 0; seed < 3000; ++seed)
    {
        RandomPoints random(seed);
        Points ring = random.Make(random.Count(3, 12));
        ring.push_back(ring.front());
        const Parts result = Ring(ring);
        ASSERT_LE(result.counts.size(), 1u) << seed;
        for (const TXPoint& point : result.points)
            ASSERT_TRUE(Inside(point)) << seed << ": " << point.x << ", " << point.y;
        if (!result.points.empty())
        {
            ASSERT_EQ(result.points.front().x, result.points.back().x) << seed;
            ASSERT_EQ(result.points.front().y, result.points.back().y) << seed;
        }
        for (int i = 0; i < 40; ++i)
        {
            const TXPoint point = random.InBox();
            ASSERT_EQ(Windings(result.points.data(), result.points.size(), point),
                      Windings(ring.data(), ring.size(), point))
                << seed << ": " << point.x << ", " << point.y;
        }
    }
}

TEST(RectangleClipper, KeepsWhatOfRandomLinesIsInside)
{
    for (unsigned seed = 0; seed < 3000; ++seed)
    {
        RandomPoints random(seed);
        const Points line = random.Make(random.Count(2, 10));
        std::vector<LineSpan> spans;
        const Parts result = Line(line, &spans);
        ASSERT_EQ(spans.size(), result.counts.size()) << seed;
        // Walk along the line in small steps; what is inside must lie in a span, and at the same place in its piece.
        double distance = 0.0;
        for (std::size_t i = 1; i < line.size(); ++i)
        {
            const double length = Length({line[i - 1], line[i]});
            for (int step = 0; step < 50; ++step)
            {
                const double t = (step + 0.5) / 50.0;
                const TXPoint p{line[i - 1].x + (line[i].x - line[i - 1].x) * t,
                                line[i - 1].y + (line[i].y - line[i - 1].y) * t};
                const double at = distance + length * t;
                const double slack = 1e-9 * (1.0 + at);
                bool inSpan = false, nearEnd = false;
                for (const LineSpan& span : spans)
                {
                    inSpan = inSpan || (at >= span.start && at <= span.end);
                    nearEnd = nearEnd || std::abs(at - span.start) < slack || std::abs(at - span.end) < slack;
                }
                ASSERT_TRUE(nearEnd || inSpan == Inside(p)) << seed << ": " << p.x << ", " << p.y;
            }
            distance += length;
        }
        std::size_t first = 0;
        for (std::size_t i = 0; i < spans.size(); ++i)
        {
            const auto count = static_cast<std::size_t>(result.counts[i]);
            const Points piece(&result.points[first], &result.points[first] + count);
            ASSERT_NEAR(Length(piece), spans[i].end - spans[i].start, 1e-9 * (1.0 + spans[i].end)) << seed;
            first += count;
        }
    }
}

} // namespace
