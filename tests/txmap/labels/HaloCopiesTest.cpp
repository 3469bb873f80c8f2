#include <cmath>

#include <gtest/gtest.h>
#include <txmap/labels/HaloCopies.h>

using namespace txmap;
using TZObjects::TXPoint;

TEST(HaloCopies, AreNoneWithoutAHalo)
{
    EXPECT_TRUE(HaloCopies(0.0).empty());
    EXPECT_TRUE(HaloCopies(-1.0).empty());
}

TEST(HaloCopies, ReachTheWidthAndNoFarther)
{
    for (const double width : {0.3, 1.0, 1.5, 3.0, 7.5, 32.0})
    {
        double farthest = 0.0;
        for (const TXPoint& copy : HaloCopies(width))
            farthest = std::max(farthest, std::hypot(copy.x, copy.y));
        EXPECT_NEAR(farthest, width, 1e-9);
    }
}

TEST(HaloCopies, LeaveNoGaps)
{
    for (const double width : {0.3, 1.5, 4.0, 11.0, 32.0})
    {
        const std::vector<TXPoint> copies = HaloCopies(width);
        const double near = 0.8 * std::max(1.0, width / 16.0);
        for (double radius = 0.0; radius <= width; radius += 0.21)
            for (double angle = 0.0; angle < 6.3; angle += 0.1)
            {
                double nearest = radius; // The letters themselves lie in the middle.
                for (const TXPoint& copy : copies)
                    nearest = std::min(
                        nearest, std::hypot(copy.x - radius * std::cos(angle), copy.y - radius * std::sin(angle)));
                ASSERT_LE(nearest, near) << width << ": " << radius << ", " << angle;
            }
    }
}

TEST(HaloCopies, StayFewInTheWidestHalo) { EXPECT_LT(HaloCopies(32.0).size(), 1000u); }
