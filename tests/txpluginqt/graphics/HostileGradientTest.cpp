#include <cmath>
#include <limits>
#include <vector>

#include "RandomCases.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const std::vector<double> kNotFinite = {kNaN, kInfinity, -kInfinity};
const std::vector<double> kHostile = {kNaN, kInfinity,    -kInfinity, 1e300, -1e300,
                                      1e12, 2147483648.0, 0.0,        -5.0,  5e-324};
const std::vector<TXImage::Format> kFormats = {
    TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied,  TXImage::Format_RGB32,     TXImage::Format_RGB16,
    TXImage::Format_RGB888, TXImage::Format_A2BGR30_Premultiplied, TXImage::Format_Grayscale8};
const TXRect kRect(5, 50, 5, 35);

class HostileGradientTest : public SurfaceTest
{
protected:
    template <class Gradient>
    static TXRefPtr<Gradient> WithColors(Gradient* gradient)
    {
        gradient->SetColorAt(0.0, TXColor(255, 0, 0, 200));
        gradient->SetColorAt(1.0, TXColor(0, 0, 255, 100));
        return gradient;
    }

    /// Fills with the gradient in every way there is.
    static void Use(TXGraphics& surface, TXGradient& gradient)
    {
        surface.FillRect(kRect, &gradient);
        surface.SelectGradient(&gradient);
        surface.Rectangle(10, 10, 30, 20);
        surface.Ellipse(30, 20, 30, 10, 30, true);
    }
};

TEST_F(HostileGradientTest, CoordinatesThatAreNotFiniteAreRefused)
{
    for (const double bad : kNotFinite)
    {
        std::vector<TXRefPtr<TXGradient>> gradients;
        for (int i = 0; i < 4; ++i)
        {
            double c[4] = {5, 6, 40, 30};
            c[i] = bad;
            gradients.emplace_back(WithColors(TestEngine().NewLinearGradient(c[0], c[1], c[2], c[3])));
            if (i < 3)
                gradients.emplace_back(WithColors(TestEngine().NewRadialGradient(c[0], c[1], c[2])));
        }
        for (const TXRefPtr<TXGradient>& gradient : gradients)
        {
            Twins twins;
            EXPECT_FALSE(twins.Surface().FillRect(kRect, gradient.get())) << bad;
            twins.Surface().SelectGradient(gradient.get());
            EXPECT_TRUE(twins.SameWithState()) << bad;
        }
    }
}

TEST_F(HostileGradientTest, AnyCoordinatesOnEveryFormat)
{
    for (const TXImage::Format format : kFormats)
    {
        const TXRefPtr<TXGraphics> surface = NewPaintingSurface(60, 40, format);
        for (const double hostile : kHostile)
        {
            for (int i = 0; i < 4; ++i)
            {
                double c[4] = {5, 6, 40, 30};
                c[i] = hostile;
                Use(*surface, *WithColors(TestEngine().NewLinearGradient(c[0], c[1], c[2], c[3])));
                Use(*surface, *WithColors(TestEngine().NewRadialGradient(c[0], c[1], c[2])));
            }
            Use(*surface, *WithColors(TestEngine().NewLinearGradient(hostile, hostile, hostile, hostile)));
            Use(*surface, *WithColors(TestEngine().NewRadialGradient(hostile, hostile, hostile)));
        }
        EXPECT_TRUE(surface->fillRect(TXRect(0, 60, 0, 40), TXColor::BLACK_));
        EXPECT_EQ(PixelsOf(*surface->GetImage()).pixel(30, 20), qRgb(0, 0, 0)) << format;
    }
}

TEST_F(HostileGradientTest, StopsOutsideTheGradientAreQuiet)
{
    const TXRefPtr<TXLinearGradient> gradient = WithColors(TestEngine().NewLinearGradient(5, 5, 40, 30));
    for (const double hostile : kHostile)
        gradient->SetColorAt(hostile, TXColor(0, 255, 0, 255));
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    Use(*surface, *gradient);
}

TEST_F(HostileGradientTest, DiscsOfAnyCentreAndRadius)
{
    for (const TXImage::Format format : kFormats)
    {
        const TXRefPtr<TXGraphics> surface = NewPaintingSurface(60, 40, format);
        for (const double hostile : kHostile)
            for (const int radius :
                 {20, 0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 1 << 30})
            {
                surface->EllipseByRadialGradient({hostile, 20}, radius, TXColor::RED_, TXColor::WHITE_);
                surface->EllipseByRadialGradient({20, hostile}, radius, TXColor::RED_, TXColor::WHITE_);
                surface->EllipseByRadialGradient({hostile, hostile}, radius, TXColor::RED_, TXColor::WHITE_);
            }
        EXPECT_TRUE(surface->fillRect(TXRect(0, 60, 0, 40), TXColor::BLACK_));
        EXPECT_EQ(PixelsOf(*surface->GetImage()).pixel(30, 20), qRgb(0, 0, 0)) << format;
    }
}

TEST_F(HostileGradientTest, DiscsAboutNoPointAreNotDrawn)
{
    for (const double bad : kNotFinite)
    {
        Twins twins;
        EXPECT_FALSE(twins.Surface().EllipseByRadialGradient({bad, 20}, 30, TXColor::RED_, TXColor::WHITE_));
        EXPECT_FALSE(twins.Surface().EllipseByRadialGradient({20, bad}, 30, TXColor::RED_, TXColor::WHITE_));
        EXPECT_TRUE(twins.SameWithState()) << bad;
    }
}

TEST_F(HostileGradientTest, ParametersOfAnyKind)
{
    const TXPoint triangle[] = {{5, 5}, {50, 8}, {20, 35}};
    for (const TXImage::Format format : kFormats)
    {
        const TXRefPtr<TXGraphics> surface = NewPaintingSurface(60, 40, format);
        for (const int type : {0, 1, 2, 3, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
            for (const double hostile : kHostile)
            {
                TXGraphics::stGradientParams gradient;
                gradient.type = type;
                gradient.startColor = TXColor(255, 0, 0, 100);
                gradient.angle = hostile;
                EXPECT_NO_THROW(surface->Polygon(triangle, 3, gradient));
                gradient.middle = hostile;
                EXPECT_NO_THROW(surface->Polygon(triangle, 3, gradient));
                gradient.angle = 30.0;
                EXPECT_NO_THROW(surface->Polygon(triangle, 3, gradient));
                surface->Rectangle(5, 5, 20, 20);
            }
        surface->SelectBrush(surface->GetBrush());
        EXPECT_TRUE(surface->fillRect(TXRect(0, 60, 0, 40), TXColor::BLACK_));
        EXPECT_EQ(PixelsOf(*surface->GetImage()).pixel(30, 20), qRgb(0, 0, 0)) << format;
    }
}

TEST_F(HostileGradientTest, ShapesOfAnySize)
{
    const std::vector<std::vector<TXPoint>> shapes = {
        {{5, 5}, {5, 5}, {5, 5}},                         // a point
        {{5, 5}, {50, 5}, {20, 5}},                       // a level line
        {{5, 5}, {5, 30}, {5, 20}},                       // an upright line
        {{-1e12, -1e12}, {1e12, 0}, {0, 1e12}},           // immense
        {{1e12, 1e12}, {1e12, 1e12 - 1}, {1e12 - 1, 5}},  // immense and far away
        {{5, 5}, {5 + 1e-12, 5}, {5, 5 + 1e-12}},         // tiny
        {{0, 0}, {5e-324, 0}, {0, 5e-324}},               // the smallest there is
        {{-1e12, 10}, {1e12, 10.0000001}, {1e12, 10.0}}}; // immense and flat
    for (const TXImage::Format format : kFormats)
        for (const std::vector<TXPoint>& points : shapes)
            for (const int type : {0, 1, 2})
                for (const double angle : {0.0, 30.0, 45.0, 90.0, 90.0000001, 135.0, 1e-300, 359.9999999999})
                {
                    const TXRefPtr<TXGraphics> surface = NewPaintingSurface(30, 20, format);
                    TXGraphics::stGradientParams gradient;
                    gradient.type = type;
                    gradient.angle = angle;
                    EXPECT_NO_THROW(surface->Polygon(points.data(), 3, gradient));
                    surface->Rectangle(5, 5, 20, 10);
                }
}

TEST_F(HostileGradientTest, AnAngleThatIsNoNumberDrawsNothing)
{
    const TXPoint triangle[] = {{5, 5}, {50, 8}, {20, 35}};
    for (const double bad : kNotFinite)
    {
        Twins twins;
        TXGraphics::stGradientParams gradient;
        gradient.angle = bad;
        EXPECT_NO_THROW(twins.Surface().Polygon(triangle, 3, gradient));
        EXPECT_TRUE(twins.Same()) << bad;
    }
}

} // namespace
