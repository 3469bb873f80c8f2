#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <txpluginqt/graphics/ImagePlacement.h>

using TZObjects::TXRect;

using namespace txqt;

namespace
{

constexpr QSize kTarget(100, 80);

/// Numbers that are often equal, so that edges meet.
class Numbers
{
public:
    explicit Numbers(unsigned seed) : random(seed) {}

    double Next(double lowest, double highest)
    {
        const double value = random.Real(lowest, highest);
        return random.Below(2) ? value : static_cast<int>(value / 10.0) * 10.0;
    }

    TXRect NextRect(double width, double height)
    {
        const double left = Next(-width, 2 * width);
        const double right = Next(-width, 2 * width);
        const double top = Next(-height, 2 * height);
        return {left, right, top, Next(-height, 2 * height)};
    }

private:
    RandomSource random;
};

void ExpectRect(const TXRect& actual, const TXRect& expected)
{
    EXPECT_EQ(actual.left, expected.left);
    EXPECT_EQ(actual.right, expected.right);
    EXPECT_EQ(actual.top, expected.top);
    EXPECT_EQ(actual.bottom, expected.bottom);
}

TEST(ImagePlacementTest, InsideNothingIsClipped)
{
    for (const TXRect& dst :
         {TXRect(0, 100, 0, 80), TXRect(10, 20, 30, 40), TXRect(20, 10, 40, 30), TXRect(5, 5, 6, 6)})
    {
        const TXRect src(3, 77, -8, 200);
        const ImagePlacement placement = ClipToTarget(dst, src, kTarget);
        ExpectRect(placement.dst, dst);
        ExpectRect(placement.src, src);
    }
}

TEST(ImagePlacementTest, EachEdgeTakesItsShareOfTheSource)
{
    struct
    {
        TXRect dst;
        TXRect expectedDst;
        TXRect expectedSrc;
    } const rows[] = {
        {TXRect(-50, 50, 0, 80), TXRect(0, 50, 0, 80), TXRect(30, 50, 20, 60)},
        {TXRect(80, 160, 0, 80), TXRect(80, 100, 0, 80), TXRect(10, 20, 20, 60)},
        {TXRect(0, 100, -60, 20), TXRect(0, 100, 0, 20), TXRect(10, 50, 50, 60)},
        {TXRect(0, 100, 40, 120), TXRect(0, 100, 40, 80), TXRect(10, 50, 20, 40)},
        {TXRect(-100, 300, -80, 240), TXRect(0, 100, 0, 80), TXRect(20, 30, 30, 40)},
    };
    for (const auto& row : rows)
    {
        const ImagePlacement placement = ClipToTarget(row.dst, TXRect(10, 50, 20, 60), kTarget);
        ExpectRect(placement.dst, row.expectedDst);
        ExpectRect(placement.src, row.expectedSrc);
    }
}

TEST(ImagePlacementTest, AMirroredSourceStaysMirrored)
{
    const ImagePlacement placement = ClipToTarget(TXRect(-50, 150, -40, 120), TXRect(60, 20, 90, 10), kTarget);
    ExpectRect(placement.dst, TXRect(0, 100, 0, 80));
    ExpectRect(placement.src, TXRect(50, 30, 70, 30));
}

TEST(ImagePlacementTest, RandomRectanglesAreClippedByTheRule)
{
    Numbers numbers(3);
    int clipped = 0;
    for (int i = 0; i < 5000; ++i)
    {
        const TXRect dst = numbers.NextRect(100, 80);
        const TXRect src = numbers.NextRect(60, 50);
        const bool reaches = dst.left <= 100 && dst.right >= 0 && dst.top <= 80 && dst.bottom >= 0;
        ASSERT_EQ(Reaches(dst, kTarget), reaches);
        if (!reaches)
            continue;
        TXRect expectedDst = dst;
        TXRect expectedSrc = src;
        const double dstWidth = dst.right - dst.left;
        const double dstHeight = dst.bottom - dst.top;
        if (dst.left < 0)
        {
            expectedDst.left = 0;
            expectedSrc.left = src.left - (src.right - src.left) * (dst.left / dstWidth);
        }
        if (dst.right > 100)
        {
            expectedDst.right = 100;
            expectedSrc.right = src.right + (src.right - src.left) * ((100 - dst.right) / dstWidth);
        }
        if (dst.top < 0)
        {
            expectedDst.top = 0;
            expectedSrc.top = src.top - (src.bottom - src.top) * (dst.top / dstHeight);
        }
        if (dst.bottom > 80)
        {
            expectedDst.bottom = 80;
            expectedSrc.bottom = src.bottom + (src.bottom - src.top) * ((80 - dst.bottom) / dstHeight);
        }
        const ImagePlacement placement = ClipToTarget(dst, src, kTarget);
        ExpectRect(placement.dst, expectedDst);
        ExpectRect(placement.src, expectedSrc);
        ASSERT_FALSE(::testing::Test::HasFailure()) << "case " << i;
        clipped += expectedDst != dst;
    }
    EXPECT_GE(clipped, 500);
}

TEST(ImagePlacementTest, ReachesUpToAndWithTheEdge)
{
    const double beyond = 1e-9;
    EXPECT_TRUE(Reaches(TXRect(-10, 0, 0, 10), kTarget));
    EXPECT_FALSE(Reaches(TXRect(-10, -beyond, 0, 10), kTarget));
    EXPECT_TRUE(Reaches(TXRect(100, 110, 0, 10), kTarget));
    EXPECT_FALSE(Reaches(TXRect(100 + beyond, 110, 0, 10), kTarget));
    EXPECT_TRUE(Reaches(TXRect(0, 10, -10, 0), kTarget));
    EXPECT_FALSE(Reaches(TXRect(0, 10, -10, -beyond), kTarget));
    EXPECT_TRUE(Reaches(TXRect(0, 10, 80, 90), kTarget));
    EXPECT_FALSE(Reaches(TXRect(0, 10, 80 + beyond, 90), kTarget));
    EXPECT_TRUE(Reaches(TXRect(0, 0, 0, 0), QSize(0, 0)));
}

TEST(ImagePlacementTest, StaysInPlaceFromTheOriginOnly)
{
    EXPECT_TRUE(StaysInPlace(TXRect(0, 9, 0, 8), TXRect(0, 9, 0, 8)));
    EXPECT_TRUE(StaysInPlace(TXRect(-0.0, 9.5, 0, -8), TXRect(0, 9.5, -0.0, -8)));
    EXPECT_FALSE(StaysInPlace(TXRect(1, 9, 0, 8), TXRect(1, 9, 0, 8)));
    EXPECT_FALSE(StaysInPlace(TXRect(0, 9, 1, 8), TXRect(0, 9, 1, 8)));
    EXPECT_FALSE(StaysInPlace(TXRect(-1e-12, 9, 0, 8), TXRect(-1e-12, 9, 0, 8)));
    for (double TXRect::*const edge : {&TXRect::left, &TXRect::right, &TXRect::top, &TXRect::bottom})
    {
        TXRect other(0, 9, 0, 8);
        other.*edge += 1e-9;
        EXPECT_FALSE(StaysInPlace(TXRect(0, 9, 0, 8), other));
        EXPECT_FALSE(StaysInPlace(other, TXRect(0, 9, 0, 8)));
    }
}

TEST(ImagePlacementTest, CropAndScaledSizeAreTruncatedTowardZero)
{
    const ImagePlacement placement{TXRect(3.9, 8.8, 1.5, -7.4), TXRect(-2.9, 4.95, 6.99, 20.98)};
    EXPECT_EQ(placement.Crop(), QRect(-2, 6, 7, 13));
    EXPECT_EQ(placement.ScaledSize(), QSize(4, -8));
    const ImagePlacement far{TXRect(-1e12, 1e12, 0, 1e11), TXRect(-1e12, 1e12, 1e11, 2e11)};
    EXPECT_EQ(far.Crop(), QRect(-((1 << 30) - 1), (1 << 30) - 1, (1 << 30) - 1, (1 << 30) - 1));
    EXPECT_EQ(far.ScaledSize(), QSize((1 << 30) - 1, (1 << 30) - 1));
}

TEST(ImagePlacementTest, TakesTheWholeSourceWhenItIsExactlyThat)
{
    const TXRect dst(0, 10, 0, 10);
    const QSize size(30, 20);
    EXPECT_TRUE((ImagePlacement{dst, TXRect(0, 30, 0, 20)}.TakesWhole(size)));
    for (const TXRect& src : {TXRect(1, 31, 0, 20), TXRect(0, 30, 1, 21), TXRect(0, 30.5, 0, 20),
                              TXRect(0, 30, 0, 20.5), TXRect(0, 29, 0, 20), TXRect(0, 30, 0, 19),
                              TXRect(-0.25, 29.75, 0, 20), TXRect(0, 30, -0.25, 19.75), TXRect(0, 20, 0, 30)})
        EXPECT_FALSE((ImagePlacement{dst, src}.TakesWhole(size)));
}

TEST(ImagePlacementTest, KeepsTheSizeWhenBothExtentsAreEqual)
{
    const TXRect src(5, 25, 7, 17);
    EXPECT_TRUE((ImagePlacement{TXRect(50, 70, 30, 40), src}.KeepsSize()));
    EXPECT_FALSE((ImagePlacement{TXRect(50, 70.5, 30, 40), src}.KeepsSize()));
    EXPECT_FALSE((ImagePlacement{TXRect(50, 70, 30, 40.5), src}.KeepsSize()));
    EXPECT_FALSE((ImagePlacement{TXRect(50, 60, 30, 50), src}.KeepsSize()));
}

TEST(ImagePlacementTest, LeftAndTopCollapseDifferently)
{
    struct
    {
        TXRect dst;
        bool collapses;
    } const rows[] = {
        {TXRect(0, 0, 10, 20), true},      {TXRect(-5, 0, 10, 20), true},    {TXRect(-5, -1, 10, 20), true},
        {TXRect(0, 1e-9, 10, 20), false},  {TXRect(1e-9, 0, 10, 20), false}, {TXRect(10, 20, 0, 0), false},
        {TXRect(10, 20, -5, 0), true},     {TXRect(10, 20, -5, -1), true},   {TXRect(10, 20, 0, -1), false},
        {TXRect(10, 20, -5, 1e-9), false}, {TXRect(0, 0, -5, 0), true},      {TXRect(10, 20, 10, 20), false},
    };
    for (const auto& row : rows)
        EXPECT_EQ((ImagePlacement{row.dst, TXRect()}.Collapses()), row.collapses)
            << row.dst.left << " " << row.dst.right << " " << row.dst.top << " " << row.dst.bottom;
}

} // namespace
