#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/Numbers.h>

using TZObjects::TXPoint;

using namespace txqt;

namespace
{

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(NumbersTest, RoundsHalvesAwayFromZero)
{
    const std::pair<double, int> cases[] = {{0.0, 0},   {0.4, 0},  {0.5, 1},          {1.49, 1},          {1.5, 2},
                                            {2.5, 3},   {-0.4, 0}, {-0.5, -1},        {-1.49, -1},        {-1.5, -2},
                                            {-2.5, -3}, {-0.0, 0}, {1e9, 1000000000}, {-1e9, -1000000000}};
    for (const auto& [value, expected] : cases)
        EXPECT_EQ(RoundHalfAway(value), expected) << value;
}

TEST(NumbersTest, TruncatesTowardZero)
{
    const std::pair<double, int> cases[] = {{0.99, 0}, {-0.99, 0}, {1.99, 1}, {-1.99, -1}, {7.0, 7}, {-7.0, -7}};
    for (const auto& [value, expected] : cases)
        EXPECT_EQ(Truncated(value), expected) << value;
}

TEST(NumbersTest, ConversionsAreDefinedForEveryDouble)
{
    for (const auto convert : {Truncated, RoundHalfAway})
    {
        EXPECT_EQ(convert(kNaN), 0);
        for (const double large : {1.1e9, 1e10, 1e300, std::numeric_limits<double>::max(), kInfinity})
        {
            EXPECT_EQ(convert(large), (1 << 30) - 1) << large;
            EXPECT_EQ(convert(-large), -((1 << 30) - 1)) << large;
        }
    }
}

TEST(NumbersTest, RectanglesFromAnyNumbersCanBeAddedUp)
{
    for (const double extreme : {1e300, -1e300, kNaN, 0.0})
    {
        const QRect rect = TruncatedRect(extreme, extreme, extreme, extreme);
        // QRect keeps its far edge as position + size - 1, in int.
        EXPECT_EQ(static_cast<long long>(rect.left()) + rect.width() - 1, rect.right());
        EXPECT_EQ(static_cast<long long>(rect.top()) + rect.height() - 1, rect.bottom());
    }
    EXPECT_EQ(TruncatedRect(-1.9, 2.9, 10.9, 20.1), QRect(-1, 2, 10, 20));
    EXPECT_EQ(TruncatedRect(TZObjects::TXRect(1.5, 12.4, -2.5, 8.4)), QRect(1, -2, 10, 10));
}

TEST(NumbersTest, IntegersAreClampedToWhatQtCanDouble)
{
    EXPECT_EQ(Clamped(5), 5);
    EXPECT_EQ(Clamped(std::numeric_limits<int>::max()), (1 << 30) - 1);
    EXPECT_EQ(Clamped(std::numeric_limits<int>::min()), -((1 << 30) - 1));
}

TEST(NumbersTest, CoordinatesBeyondTheLimitAreNotDrawable)
{
    EXPECT_TRUE(IsDrawable(1e12));
    EXPECT_TRUE(IsDrawable(-1e12, 0.0, 5.5));
    EXPECT_FALSE(IsDrawable(1.0001e12));
    EXPECT_FALSE(IsDrawable(0.0, kNaN));
    EXPECT_FALSE(IsDrawable(kInfinity, 0.0, 0.0));
    EXPECT_FALSE(IsDrawable(0.0, 0.0, -kInfinity));
}

TEST(NumbersTest, OneBadCoordinateAnywhereMakesPointsUndrawable)
{
    for (std::size_t at = 0; at < 40; ++at)
        for (const double bad : {kNaN, kInfinity, -kInfinity, 1e13, -1e13})
        {
            std::vector<TXPoint> points(20, TXPoint(3.0, 4.0));
            EXPECT_TRUE(AreDrawable(points.data(), 20));
            (at % 2 == 0 ? points[at / 2].x : points[at / 2].y) = bad;
            EXPECT_FALSE(AreDrawable(points.data(), 20)) << at << ", " << bad;
        }
}

TEST(ConversionsTest, ColoursKeepOrDropTheirAlpha)
{
    const TZObjects::TXColor color(10, 20, 30, 40);
    EXPECT_EQ(ToQColor(color), QColor(10, 20, 30, 40));
    EXPECT_EQ(ToOpaqueQColor(color), QColor(10, 20, 30, 255));
    EXPECT_EQ(ToTXColor(QColor(1, 2, 3, 4)).GetColor(), 0x04010203u);
}

TEST(ConversionsTest, TextKeepsItsUnits)
{
    using namespace std::string_literals;
    const std::wstring units = L"Zürich\0 東京 \U0001F5FA"s;
    EXPECT_EQ(ToQString(TZObjects::TXString(units)), QString::fromStdWString(units));
    EXPECT_EQ(ToTXString(ToQString(TZObjects::TXString(units))).toStdWString(), units);
}

} // namespace
