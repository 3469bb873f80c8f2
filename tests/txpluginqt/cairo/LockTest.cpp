// One label at a time on a surface while it draws through cairo, and no lock at all while it does not.
#include "FontDouble.h"
#include "OtherThread.h"
#include <tests/txpluginqt/text/cairo/ShortLabel.h>

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
    LabelThread(TXGraphics& surface, Entry entry, const ShortLabel& call)
        : OtherThread([&] { return ::Draw(surface, entry, call); })
    {
    }
};

class Lock : public QuietTest
{
protected:
    Lock() { twins.Surface().SelectFont(font.get()); }

    /// A label on @p other ends while one of @p entry is held by the question that it asks the font.
    void ExpectNoWaiting(FontDouble::Question question, Entry entry, TXGraphics& other)
    {
        QuestionGate gate(*font, question);
        gate.Arm();
        LabelThread first(twins.Surface(), entry, call);
        ASSERT_TRUE(gate.HoldsOne());

        LabelThread second(other, Entry::StringAt, call);
        EXPECT_TRUE(second.Ends());

        gate.Open();
        EXPECT_TRUE(first.Drawn());
        EXPECT_TRUE(second.Drawn());
    }

    CairoTwins twins;
    TXRefPtr<FontDouble> font = NewFontDouble(Look());
    ShortLabel call;
};

class LockOf : public Lock, public ::testing::WithParamInterface<Entry>
{
};

TEST_P(LockOf, MakesASecondLabelWaitForTheFirst)
{
    const Entry entry = GetParam();
    QuestionGate gate(*font, FontDouble::Height);
    gate.Arm();
    LabelThread first(twins.Surface(), entry, call);
    ASSERT_TRUE(gate.HoldsOne());

    LabelThread second(twins.Surface(), Entry::StringAt, call);
    EXPECT_TRUE(second.Waits());
    EXPECT_TRUE(twins.Untouched());

    gate.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
    DrawDirectly(twins.Direct(), entry, call, Look());
    DrawDirectly(twins.Direct(), Entry::StringAt, call, Look());
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_P(LockOf, IsWaitedForByEachOperation)
{
    const Entry entry = GetParam();
    QuestionGate gate(*font, FontDouble::WordSpacing);
    gate.Arm();
    LabelThread first(twins.Surface(), Entry::StringAt, call);
    ASSERT_TRUE(gate.HoldsOne());

    LabelThread second(twins.Surface(), entry, call);
    EXPECT_TRUE(second.Waits());

    gate.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
    DrawDirectly(twins.Direct(), Entry::StringAt, call, Look());
    DrawDirectly(twins.Direct(), entry, call, Look());
    EXPECT_TRUE(twins.SameAndInked());
}

INSTANTIATE_TEST_SUITE_P(Entries, LockOf, ::testing::ValuesIn(kAllEntries),
                         [](const auto& tested) { return std::string(NameOf(tested.param)); });

TEST_F(Lock, IsNotTakenWithoutCairo)
{
    twins.Surface().EnableCairoDrawing(false);
    // The first label stands still, so that both do not use the painter at the same time.
    ExpectNoWaiting(FontDouble::ItalicMode, Entry::StringAt, twins.Surface());
}

TEST_F(Lock, IsNotTakenWhileTheFontsAngleIsRead)
{
    ExpectNoWaiting(FontDouble::Angle, Entry::StringByFontAngle, twins.Surface());
}

TEST_F(Lock, BelongsToOneSurface)
{
    CairoTwins others;
    ExpectNoWaiting(FontDouble::WordSpacing, Entry::StringAt, others.Surface());
}

TEST_F(Lock, IsGivenBackWhenALabelIsRefused)
{
    call.x = 1e300;
    EXPECT_FALSE(::Draw(twins.Surface(), Entry::StringAt, call));
    call.x = 20;
    LabelThread second(twins.Surface(), Entry::StringAt, call);
    EXPECT_TRUE(second.Ends());
    EXPECT_TRUE(second.Drawn());
}

} // namespace
