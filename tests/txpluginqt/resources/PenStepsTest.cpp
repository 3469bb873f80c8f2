#include "ResourceTest.h"

#include <limits>
#include <vector>

#include <QPen>

using namespace TZObjects;

namespace
{

using Steps = std::vector<double>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class PenStepsTest : public ResourceTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(pen);
        pen->Create(TXPen::SolidLine, 3.0, TXColor(1, 2, 3, 4), TXPen::FlatCap, TXPen::MiterJoin);
        ASSERT_NE(pen->GetInternalObject(), nullptr);
    }

    QPen& QtPen() { return *static_cast<QPen*>(pen->GetInternalObject()); }

    TXRefPtr<TXPen> pen{TestEngine().NewPen()};
};

} // namespace

TEST_F(PenStepsTest, StepsMakeACustomDashInTheSameOrderAndUnits)
{
    pen->SetSteps({4.0, 2.0, 1.0, 2.5});

    EXPECT_EQ(pen->GetPenStyle(), TXPen::CustomDashLine);
    EXPECT_EQ(QtPen().dashPattern(), (QVector<qreal>{4.0, 2.0, 1.0, 2.5}));
    EXPECT_EQ(pen->GetSteps(), (Steps{4.0, 2.0, 1.0, 2.5}));
    EXPECT_EQ(pen->GetWidth(), 3.0);
}

TEST_F(PenStepsTest, LaterStepsReplaceEarlierOnes)
{
    pen->SetSteps({4.0, 2.0, 1.0, 2.5});
    pen->SetSteps({7.0, 8.0});
    EXPECT_EQ(pen->GetSteps(), (Steps{7.0, 8.0}));
}

TEST_F(PenStepsTest, ManyStepsKeepTheirOrder)
{
    Steps steps;
    for (int i = 0; i < 1000; ++i)
        steps.push_back(1.0 + i * 0.25);
    pen->SetSteps(steps);
    EXPECT_EQ(pen->GetSteps(), steps);
}

TEST_F(PenStepsTest, AnEmptyPatternLeavesASolidPenSolid)
{
    pen->SetSteps({});
    EXPECT_EQ(pen->GetPenStyle(), TXPen::SolidLine);
    EXPECT_TRUE(pen->GetSteps().empty());
}

TEST_F(PenStepsTest, AnEmptyPatternLeavesACustomDashAsItWas)
{
    pen->SetSteps({5.0, 6.0});
    pen->SetSteps({});
    EXPECT_EQ(pen->GetPenStyle(), TXPen::CustomDashLine);
    EXPECT_EQ(pen->GetSteps(), (Steps{5.0, 6.0}));
}

// Qt completes an odd pattern with a gap of 1 and prints a warning, which a host must not see.
TEST_F(PenStepsTest, AnOddPatternEndsAsQtCompletesIt)
{
    pen->SetSteps({3.0, 1.0, 2.0});
    EXPECT_EQ(pen->GetPenStyle(), TXPen::CustomDashLine);
    EXPECT_EQ(pen->GetSteps(), (Steps{3.0, 1.0, 2.0, 1.0}));

    pen->SetSteps({9.0});
    EXPECT_EQ(pen->GetSteps(), (Steps{9.0, 1.0}));
}

TEST_F(PenStepsTest, SignsAreNotChecked)
{
    pen->SetSteps({-1.0, 2.0, 0.0, 4.0});
    EXPECT_EQ(pen->GetPenStyle(), TXPen::CustomDashLine);
    EXPECT_EQ(pen->GetSteps(), (Steps{-1.0, 2.0, 0.0, 4.0}));
}

TEST_F(PenStepsTest, APatternThatIsNotFiniteChangesNothing)
{
    for (const double bad : {kNaN, kInfinity, -kInfinity})
        for (std::size_t at = 0; at < 4; ++at)
        {
            SCOPED_TRACE(at);
            Steps steps{4.0, 2.0, 1.0, 2.0};
            steps[at] = bad;

            pen->SetPenStyle(TXPen::DotLine);
            pen->SetSteps(steps);
            EXPECT_EQ(pen->GetPenStyle(), TXPen::DotLine);
            EXPECT_EQ(QtPen().dashPattern(), QPen(QBrush(), 3.0, Qt::DotLine, Qt::FlatCap).dashPattern());

            pen->SetSteps({8.0, 9.0});
            pen->SetSteps(steps);
            EXPECT_EQ(pen->GetPenStyle(), TXPen::CustomDashLine);
            EXPECT_EQ(pen->GetSteps(), (Steps{8.0, 9.0}));
        }
}

TEST_F(PenStepsTest, PredefinedStylesReportThePatternThatQtGivesThem)
{
    for (int style = 1; style <= 6; ++style)
    {
        SCOPED_TRACE(style);
        pen->SetPenStyle(static_cast<TXPen::PenStyle>(style));
        const QVector<qreal> pattern = QPen(QBrush(), 3.0, static_cast<Qt::PenStyle>(style), Qt::FlatCap).dashPattern();
        EXPECT_EQ(pen->GetSteps(), Steps(pattern.begin(), pattern.end()));
    }
}

TEST_F(PenStepsTest, APredefinedStyleTakesTheStepsAway)
{
    pen->SetSteps({4.0, 2.0});
    pen->SetPenStyle(TXPen::SolidLine);
    EXPECT_EQ(pen->GetPenStyle(), TXPen::SolidLine);
    EXPECT_TRUE(pen->GetSteps().empty());
}

TEST_F(PenStepsTest, StepsGivenAreTheHostsOwn)
{
    Steps steps{4.0, 2.0};
    pen->SetSteps(steps);
    steps[0] = 99.0;
    Steps read = pen->GetSteps();
    read[1] = 77.0;
    EXPECT_EQ(pen->GetSteps(), (Steps{4.0, 2.0}));
}

TEST_F(PenStepsTest, DeleteTakesTheStepsAway)
{
    pen->SetSteps({4.0, 2.0});
    pen->Delete();
    EXPECT_TRUE(pen->GetSteps().empty());
    pen->SetSteps({6.0, 2.0});
    EXPECT_EQ(pen->GetInternalObject(), nullptr);
}
