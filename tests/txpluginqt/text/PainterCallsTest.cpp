// What a picture does not show: the calls that reach a paint engine, recorded on a device of the test's own.
#include <cmath>
#include <vector>

#include <QPainter>

#include "ExpectedLabel.h"
#include <tests/support/QuietTest.h>
#include <tests/support/RandomSource.h>
#include <tests/support/Recorder.h>

using namespace TZObjects;

namespace
{

class PainterCallsTest : public QuietTest, public ::testing::WithParamInterface<Entry>
{
protected:
    /// What the surface does to the painter of a recording device, whose hints are off and whose pen is green.
    static std::vector<RecordedCall> CallsFor(const Label& label)
    {
        Recorder device;
        QPainter painter(&device);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing, false);
        painter.setPen(QPen(Qt::green, 3.0));
        const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
        surface->Attach(&painter);
        surface->SelectFont(MakeFont(label.font));
        EXPECT_TRUE(Draw(*surface, GetParam(), label));
        EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
        EXPECT_FALSE(painter.testRenderHint(QPainter::TextAntialiasing));
        EXPECT_TRUE(painter.worldTransform().isIdentity());
        surface->Detach();
        return device.Calls();
    }

    /// What the same label drawn directly does there.
    static std::vector<RecordedCall> DirectCallsFor(const Label& label)
    {
        Recorder device;
        QPainter painter(&device);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing, false);
        painter.setPen(QPen(Qt::green, 3.0));
        painter.setFont(DirectFont(label.font));
        DrawDirectly(painter, GetParam(), label);
        return device.Calls();
    }

    static bool HasColourOfItsOwn() { return GetParam() >= Entry::OutlineAbout; }
};

TEST_P(PainterCallsTest, BothHintsOfAntialiasingAreOnWhileDrawing)
{
    for (const wchar_t* const text : {L"Main\nStreet", L"<BOL>Main</BOL> <UND>Street</UND>"})
    {
        Label label;
        label.text = text;
        const std::vector<RecordedCall> calls = CallsFor(label);
        ASSERT_FALSE(calls.empty());
        for (const RecordedCall& call : calls)
        {
            EXPECT_TRUE(call.hints & QPainter::Antialiasing);
            EXPECT_TRUE(call.hints & QPainter::TextAntialiasing);
        }
    }
}

TEST_P(PainterCallsTest, AnAngleThatIsAsGoodAsNoneIsNoRotationForLabelsWithAColourOfTheirOwn)
{
    constexpr double kEpsilon = 2.220446049250313e-16;
    for (const double angle : {0.0, 1e-17, -1e-17, kEpsilon, -kEpsilon, 3e-16, -3e-16, 1.0})
    {
        Label label;
        label.angle = angle;
        label.font.angle = static_cast<int>(angle);
        const std::vector<RecordedCall> calls = CallsFor(label);
        ASSERT_FALSE(calls.empty());
        const double turned = GetParam() == Entry::StringByFontAngle ? label.font.angle : angle;
        const bool rotated = HasColourOfItsOwn() ? std::abs(turned) > kEpsilon : turned != 0.0;
        for (const RecordedCall& call : calls)
            EXPECT_EQ(call.transform.m12() != 0.0, rotated) << angle;
    }
}

TEST_P(PainterCallsTest, PlainLabelsAreDrawnAsOnePathOrAsAStrokeAndAFill)
{
    Label label;
    label.font.haloWidth = 5;
    label.text = L"Main\nStreet";
    const std::vector<RecordedCall> calls = CallsFor(label);
    ASSERT_EQ(calls.size(), HasColourOfItsOwn() ? 2u : 1u);
    EXPECT_FALSE(calls.front().isText);
    const RecordedCall& fill = calls.back();
    EXPECT_EQ(fill.pen.style(), Qt::NoPen);
    EXPECT_EQ(fill.brush, QBrush(HasColourOfItsOwn() ? QColor(200, 40, 10) : QColor(Qt::green)));
    if (HasColourOfItsOwn())
    {
        EXPECT_EQ(calls.front().pen, QPen(QBrush(Qt::black), 5));
        EXPECT_EQ(calls.front().brush.style(), Qt::NoBrush);
    }
}

TEST_P(PainterCallsTest, EveryElementOfAPathReachesADeviceThatIsNoImage)
{
    // Rules of marks without a width have lines without length.
    for (const wchar_t* const text : {L"e\u0301", L"e\u0301\nab", L"\u0301", L"i  ."})
        for (const wchar_t* const family : {L"No Such Face", L"DejaVu Sans"})
            for (const int rules : {0, 1, 2, 3})
            {
                Label label;
                label.text = text;
                label.font.family = family;
                label.font.underline = (rules & 1) != 0;
                label.font.strikeOut = (rules & 2) != 0;
                label.font.haloWidth = 4;
                // Once for the cache, and once from it.
                EXPECT_EQ(CallsFor(label), DirectCallsFor(label)) << label;
                EXPECT_EQ(CallsFor(label), DirectCallsFor(label)) << label;
            }
}

TEST_P(PainterCallsTest, AnchorsAreAddedUpInTheirOrder)
{
    // Transforms and points are compared to the last bit.
    RandomSource random(11);
    for (int i = 0; i < 300; ++i)
    {
        Label label;
        label.text = i % 2 ? L"a\nbb\nccc\ndddd\neeeee" : L"<BOL>a</BOL>\nbb";
        label.font.height = 9 + i % 20;
        label.hAlign = 1 + i % 3;
        for (double Label::*const member :
             {&Label::x, &Label::y, &Label::left, &Label::right, &Label::top, &Label::dx, &Label::dy, &Label::scale,
              &Label::lineSpacing, &Label::columnSpacing, &Label::charSpacing})
            label.*member = random.Real(-3.0, 6.0);
        ASSERT_EQ(CallsFor(label), DirectCallsFor(label)) << label;
    }
}

TEST_P(PainterCallsTest, RichLabelsAreTextUnlessTheyAreDrawnWithoutFormatting)
{
    Label label;
    label.text = L"<BOL>Main</BOL>";
    for (const RecordedCall& call : CallsFor(label))
    {
        EXPECT_EQ(call.isText, !HasColourOfItsOwn());
        EXPECT_EQ(call.isText ? call.pen.color() : QColor(Qt::green), QColor(Qt::green));
    }
}

INSTANTIATE_TEST_SUITE_P(Entries, PainterCallsTest, ::testing::ValuesIn(kAllEntries),
                         [](const auto& tested) { return std::string(NameOf(tested.param)); });

} // namespace
