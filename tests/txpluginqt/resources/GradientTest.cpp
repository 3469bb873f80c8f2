#include "ResourceTest.h"

#include <limits>
#include <memory>

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

using namespace TZObjects;

namespace
{

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class GradientTest : public ResourceTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(linear);
        ASSERT_TRUE(radial);
    }

    QLinearGradient& QtLinear() { return *static_cast<QLinearGradient*>(linear->GetInternalObject()); }
    QRadialGradient& QtRadial() { return *static_cast<QRadialGradient*>(radial->GetInternalObject()); }

    TXRefPtr<TXLinearGradient> linear{TestEngine().NewLinearGradient(3.0, 4.5, 17.0, -6.25)};
    TXRefPtr<TXRadialGradient> radial{TestEngine().NewRadialGradient(11.0, 12.5, 7.75)};
};

// Copies as a host could make them, without a backend's destructor that would free the shared Qt gradient once more.
class LinearCopy : public TXLinearGradient
{
public:
    explicit LinearCopy(const TXLinearGradient& source) : TXLinearGradient(source) {}
    using TXLinearGradient::operator=;
    bool Delete() override { return true; }
    void SetColorAt(double /*position*/, const TXColor& /*color*/) override {}

    using TXLinearGradient::x1;
    using TXLinearGradient::x2;
    using TXLinearGradient::y1;
    using TXLinearGradient::y2;
};

class RadialCopy : public TXRadialGradient
{
public:
    explicit RadialCopy(const TXRadialGradient& source) : TXRadialGradient(source) {}
    using TXRadialGradient::operator=;
    bool Delete() override { return true; }
    void SetColorAt(double /*position*/, const TXColor& /*color*/) override {}

    using TXRadialGradient::cx;
    using TXRadialGradient::cy;
    using TXRadialGradient::radius;
};

QImage Filled(const QGradient& gradient)
{
    QImage image(8, 8, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter(&image).fillRect(image.rect(), QBrush(gradient));
    return image;
}

} // namespace

TEST_F(GradientTest, LinearGradientRunsBetweenItsPoints)
{
    ASSERT_NE(linear->GetInternalObject(), nullptr);
    EXPECT_EQ(QtLinear().type(), QGradient::LinearGradient);
    EXPECT_EQ(QtLinear(), QLinearGradient(3.0, 4.5, 17.0, -6.25));
}

TEST_F(GradientTest, RadialGradientHasItsFocusAtTheCentre)
{
    ASSERT_NE(radial->GetInternalObject(), nullptr);
    EXPECT_EQ(QtRadial().type(), QGradient::RadialGradient);
    EXPECT_EQ(QtRadial(), QRadialGradient(11.0, 12.5, 7.75));
    EXPECT_EQ(QtRadial().center(), QPointF(11.0, 12.5));
    EXPECT_EQ(QtRadial().focalPoint(), QPointF(11.0, 12.5));
    EXPECT_EQ(QtRadial().radius(), 7.75);
    EXPECT_EQ(QtRadial().focalRadius(), 0.0);
}

TEST_F(GradientTest, LinearStopsKeepTheirAlpha)
{
    linear->SetColorAt(0.0, TXColor(1, 2, 3, 0));
    linear->SetColorAt(0.5, TXColor(200, 100, 50, 128));
    linear->SetColorAt(1.0, TXColor(255, 254, 253, 255));

    EXPECT_EQ(QtLinear().stops(),
              (QGradientStops{
                  {0.0, QColor(1, 2, 3, 0)}, {0.5, QColor(200, 100, 50, 128)}, {1.0, QColor(255, 254, 253, 255)}}));
}

TEST_F(GradientTest, RadialStopsAreAlwaysOpaque)
{
    radial->SetColorAt(0.0, TXColor(1, 2, 3, 0));
    radial->SetColorAt(0.5, TXColor(200, 100, 50, 128));
    radial->SetColorAt(1.0, TXColor(255, 254, 253, 255));

    EXPECT_EQ(QtRadial().stops(),
              (QGradientStops{
                  {0.0, QColor(1, 2, 3, 255)}, {0.5, QColor(200, 100, 50, 255)}, {1.0, QColor(255, 254, 253, 255)}}));
}

TEST_F(GradientTest, AStopWithoutAlphaIsPaintedOpaqueByARadialGradientOnly)
{
    for (TXGradient* const gradient : {static_cast<TXGradient*>(linear.get()), static_cast<TXGradient*>(radial.get())})
    {
        gradient->SetColorAt(0.0, TXColor(255, 0, 0, 0));
        gradient->SetColorAt(1.0, TXColor(255, 0, 0, 0));
    }
    EXPECT_EQ(Filled(QtLinear()).pixel(4, 4), 0x00000000u);
    EXPECT_EQ(Filled(QtRadial()).pixel(4, 4), 0xffff0000u);
}

TEST_F(GradientTest, StopsAreOrderedAndReplacedByPosition)
{
    for (TXGradient* const gradient : {static_cast<TXGradient*>(linear.get()), static_cast<TXGradient*>(radial.get())})
    {
        gradient->SetColorAt(1.0, TXColor(3, 3, 3, 255));
        gradient->SetColorAt(0.25, TXColor(9, 9, 9, 255));
        gradient->SetColorAt(0.0, TXColor(1, 1, 1, 255));
        gradient->SetColorAt(0.25, TXColor(2, 2, 2, 255));
        const auto* const qt = static_cast<QGradient*>(gradient->GetInternalObject());
        EXPECT_EQ(qt->stops(),
                  (QGradientStops{{0.0, QColor(1, 1, 1)}, {0.25, QColor(2, 2, 2)}, {1.0, QColor(3, 3, 3)}}));
    }
}

TEST_F(GradientTest, PositionsOutsideTheGradientAreIgnored)
{
    for (TXGradient* const gradient : {static_cast<TXGradient*>(linear.get()), static_cast<TXGradient*>(radial.get())})
    {
        gradient->SetColorAt(0.5, TXColor::RED_);
        for (const double position : {-0.0001, 1.0001, -1.0, 2.0, -1e300, 1e300, kNaN, -kNaN, kInfinity, -kInfinity})
            gradient->SetColorAt(position, TXColor::WHITE_);
        const auto* const qt = static_cast<QGradient*>(gradient->GetInternalObject());
        EXPECT_EQ(qt->stops(), (QGradientStops{{0.5, QColor(255, 0, 0)}}));
    }
}

TEST_F(GradientTest, DeleteFreesTheQtGradientAndIsTrueEveryTime)
{
    for (TXGradient* const gradient : {static_cast<TXGradient*>(linear.get()), static_cast<TXGradient*>(radial.get())})
    {
        EXPECT_TRUE(gradient->Delete());
        EXPECT_EQ(gradient->GetInternalObject(), nullptr);
        EXPECT_TRUE(gradient->Delete());
        EXPECT_EQ(gradient->GetInternalObject(), nullptr);
    }
}

TEST_F(GradientTest, ColorsAfterDeleteAreIgnored)
{
    for (TXGradient* const gradient : {static_cast<TXGradient*>(linear.get()), static_cast<TXGradient*>(radial.get())})
    {
        gradient->Delete();
        gradient->SetColorAt(0.5, TXColor::RED_);
        gradient->SetColorAt(kNaN, TXColor::RED_);
        EXPECT_EQ(gradient->GetInternalObject(), nullptr);
    }
}

TEST_F(GradientTest, GradientsCanBeDeletedThroughTheirBase)
{
    const std::unique_ptr<TXGradient> first(TestEngine().NewLinearGradient(0, 0, 1, 1));
    const std::unique_ptr<TXGradient> second(TestEngine().NewRadialGradient(0, 0, 1));
    EXPECT_TRUE(first);
    EXPECT_TRUE(second);
}

TEST_F(GradientTest, BothKindsAreToldApartAtRunTime)
{
    EXPECT_EQ(dynamic_cast<TXRadialGradient*>(static_cast<TXGradient*>(linear.get())), nullptr);
    EXPECT_EQ(dynamic_cast<TXLinearGradient*>(static_cast<TXGradient*>(linear.get())), linear.get());
    EXPECT_EQ(dynamic_cast<TXRadialGradient*>(static_cast<TXGradient*>(radial.get())), radial.get());
    EXPECT_EQ(dynamic_cast<TXLinearGradient*>(static_cast<TXGradient*>(radial.get())), nullptr);
}

TEST_F(GradientTest, AnyCoordinatesMakeAGradient)
{
    for (const double odd : {kNaN, kInfinity, -kInfinity, 1e300, -5.0, 0.0})
    {
        const TXRefPtr<TXLinearGradient> line(TestEngine().NewLinearGradient(odd, 1.0, 2.0, odd));
        const TXRefPtr<TXRadialGradient> circle(TestEngine().NewRadialGradient(odd, 1.0, odd));
        ASSERT_TRUE(line);
        ASSERT_TRUE(circle);
        line->SetColorAt(0.5, TXColor::RED_);
        circle->SetColorAt(0.5, TXColor::RED_);
    }
}

TEST_F(GradientTest, ACopyRefersToTheSameQtGradientAndCoordinates)
{
    LinearCopy line(*linear);
    EXPECT_EQ(line.GetInternalObject(), linear->GetInternalObject());
    EXPECT_EQ(line.x1, 3.0);
    EXPECT_EQ(line.y1, 4.5);
    EXPECT_EQ(line.x2, 17.0);
    EXPECT_EQ(line.y2, -6.25);

    RadialCopy circle(*radial);
    EXPECT_EQ(circle.GetInternalObject(), radial->GetInternalObject());
    EXPECT_EQ(circle.cx, 11.0);
    EXPECT_EQ(circle.cy, 12.5);
    EXPECT_EQ(circle.radius, 7.75);

    linear->SetColorAt(0.5, TXColor(1, 2, 3, 4));
    EXPECT_EQ(static_cast<QGradient*>(line.GetInternalObject())->stops(), (QGradientStops{{0.5, QColor(1, 2, 3, 4)}}));
}

TEST_F(GradientTest, AssignmentTakesTheOthersQtGradientAndCoordinates)
{
    const TXRefPtr<TXLinearGradient> otherLine(TestEngine().NewLinearGradient(5.0, 6.0, 7.0, 8.0));
    LinearCopy line(*linear);
    line = *otherLine;
    EXPECT_EQ(line.GetInternalObject(), otherLine->GetInternalObject());
    EXPECT_EQ(line.x1, 5.0);
    EXPECT_EQ(line.y1, 6.0);
    EXPECT_EQ(line.x2, 7.0);
    EXPECT_EQ(line.y2, 8.0);
    EXPECT_NE(linear->GetInternalObject(), nullptr) << "the target's own gradient is dropped, not freed";
    EXPECT_EQ(QtLinear().start(), QPointF(3.0, 4.5));

    const TXRefPtr<TXRadialGradient> otherCircle(TestEngine().NewRadialGradient(1.0, 2.0, 3.0));
    RadialCopy circle(*radial);
    circle = *otherCircle;
    EXPECT_EQ(circle.GetInternalObject(), otherCircle->GetInternalObject());
    EXPECT_EQ(circle.cx, 1.0);
    EXPECT_EQ(circle.cy, 2.0);
    EXPECT_EQ(circle.radius, 3.0);
}

TEST_F(GradientTest, PluginGradientsShareAfterAssignmentThroughTheBase)
{
    // The target's own Qt gradient would be lost by the assignment; the test frees it itself.
    const std::unique_ptr<QLinearGradient> lost(&QtLinear());
    {
        const TXRefPtr<TXLinearGradient> source(TestEngine().NewLinearGradient(5.0, 6.0, 7.0, 8.0));
        TXLinearGradient& target = *linear;
        target = *source;
        EXPECT_EQ(linear->GetInternalObject(), source->GetInternalObject());
        linear->SetColorAt(0.25, TXColor(9, 8, 7, 6));
        EXPECT_EQ(static_cast<QGradient*>(source->GetInternalObject())->stops(),
                  (QGradientStops{{0.25, QColor(9, 8, 7, 6)}}));
        // The first one deleted frees the Qt gradient for both; the source must not free it again.
        linear->Delete();
        EXPECT_EQ(linear->GetInternalObject(), nullptr);
        EXPECT_NE(source->GetInternalObject(), nullptr);
        TXLinearGradient& emptied = *source;
        emptied = *linear;
        EXPECT_EQ(source->GetInternalObject(), nullptr);
    }
}
