// One label at a time on a surface while it draws through cairo, and no lock at all while it does not.
#include "FontDouble.h"
#include "OtherThread.h"
#include <tests/txpluginqt/text/cairo/Entries.h>

using namespace TZObjects;

namespace
{

/// Holds the first label that asks the font a certain question.
class QuestionGate : public Gate
{
public:
    QuestionGate(FontDouble& font, FontDouble::Question question)
    {
        font.onQuestion = [this, question](FontDouble::Question asked)
        {
            if (asked == question)
                Pass();
        };
    }
};

/// A label drawn on a thread of its own.
class LabelThread : public OtherThread
{
public:
    LabelThread(TXGraphics& surface, const Entry& entry, const LabelCall& call)
        : OtherThread([&] { return entry.draw(surface, call); })
    {
    }
};

class Lock : public SilentTest
{
protected:
    Lock() { twins.Surface().SelectFont(font.get()); }

    CairoTwins twins;
    TXRefPtr<FontDouble> font = NewFontDouble(Look());
    LabelCall call;
};

class LockOf : public Lock, public ::testing::WithParamInterface<int>
{
};

TEST_P(LockOf, MakesASecondLabelWaitForTheFirst)
{
    const Entry& entry = kEntries[GetParam()];
    QuestionGate gate(*font, FontDouble::Height);
    gate.Arm();
    LabelThread first(twins.Surface(), entry, call);
    ASSERT_TRUE(gate.HoldsOne());

    LabelThread second(twins.Surface(), kPointEntry, call);
    EXPECT_TRUE(second.Waits());
    EXPECT_TRUE(twins.Untouched());

    gate.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
    entry.expect(twins.Direct(), call, Look());
    kPointEntry.expect(twins.Direct(), call, Look());
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_P(LockOf, IsWaitedForByEachOperation)
{
    const Entry& entry = kEntries[GetParam()];
    QuestionGate gate(*font, FontDouble::WordSpacing);
    gate.Arm();
    LabelThread first(twins.Surface(), kPointEntry, call);
    ASSERT_TRUE(gate.HoldsOne());

    LabelThread second(twins.Surface(), entry, call);
    EXPECT_TRUE(second.Waits());

    gate.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
    kPointEntry.expect(twins.Direct(), call, Look());
    entry.expect(twins.Direct(), call, Look());
    EXPECT_TRUE(twins.SameAndInked());
}

INSTANTIATE_TEST_SUITE_P(Entries, LockOf, ::testing::Range(0, 8),
                         [](const ::testing::TestParamInfo<int>& entry) { return kEntries[entry.param].name; });

TEST_F(Lock, IsNotTakenWithoutCairo)
{
    twins.Surface().EnableCairoDrawing(false);
    QuestionGate gate(*font, FontDouble::ItalicMode);
    gate.Arm();
    LabelThread first(twins.Surface(), kPointEntry, call);
    ASSERT_TRUE(gate.HoldsOne());

    // The first stands still, so that both do not use the painter at the same time.
    LabelThread second(twins.Surface(), kPointEntry, call);
    EXPECT_TRUE(second.Ends());

    gate.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
}

TEST_F(Lock, IsNotTakenWhileTheFontsAngleIsRead)
{
    QuestionGate gate(*font, FontDouble::Angle);
    gate.Arm();
    LabelThread first(twins.Surface(), kFontAngleEntry, call);
    ASSERT_TRUE(gate.HoldsOne());

    LabelThread second(twins.Surface(), kPointEntry, call);
    EXPECT_TRUE(second.Ends());

    gate.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
}

TEST_F(Lock, BelongsToOneSurface)
{
    QuestionGate gate(*font, FontDouble::WordSpacing);
    gate.Arm();
    LabelThread first(twins.Surface(), kPointEntry, call);
    ASSERT_TRUE(gate.HoldsOne());

    CairoTwins others;
    LabelThread second(others.Surface(), kPointEntry, call);
    EXPECT_TRUE(second.Ends());

    gate.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
}

TEST_F(Lock, IsGivenBackWhenALabelIsRefused)
{
    call.ox = 1e300;
    EXPECT_FALSE(kPointEntry.draw(twins.Surface(), call));
    call.ox = 20;
    LabelThread second(twins.Surface(), kPointEntry, call);
    EXPECT_TRUE(second.Ends());
    EXPECT_TRUE(second.Drawn());
}

} // namespace
