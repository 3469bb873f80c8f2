// One label at a time on a surface while it draws through cairo, and no lock at all while it does not.
#include <atomic>
#include <chrono>
#include <future>

#include "Entries.h"
#include "FontDouble.h"

using namespace TZObjects;

namespace
{

constexpr std::chrono::seconds kLongEnough(20);
constexpr std::chrono::milliseconds kWhile(300);

/// Holds the first label that asks the font a certain question until it is let go.
class Gate
{
public:
    Gate(FontDouble& font, FontDouble::Question question)
    {
        font.onQuestion = [this, question](FontDouble::Question asked)
        {
            if (armed && asked == question && armed.exchange(false))
            {
                entered.set_value();
                opened.get_future().wait();
            }
        };
    }

    /// From now on the next label is held.
    void Arm() { armed = true; }
    bool HoldsOne() { return entered.get_future().wait_for(kLongEnough) == std::future_status::ready; }
    void Open() { opened.set_value(); }

private:
    std::atomic<bool> armed{false};
    std::promise<void> entered;
    std::promise<void> opened;
};

/// A label drawn on a thread of its own.
class OtherThread
{
public:
    OtherThread(TXGraphics& surface, const Entry& entry, const LabelCall& call)
        : result(std::async(std::launch::async,
                            [&]
                            {
                                started.set_value();
                                return entry.draw(surface, call);
                            }))
    {
    }

    bool Drawn() { return result.get(); }
    bool Waits()
    {
        started.get_future().wait();
        return result.wait_for(kWhile) == std::future_status::timeout;
    }
    bool Ends() { return result.wait_for(kLongEnough) == std::future_status::ready; }

private:
    std::promise<void> started;
    std::future<bool> result;
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
    Gate gate(*font, FontDouble::Height);
    gate.Arm();
    OtherThread first(twins.Surface(), entry, call);
    ASSERT_TRUE(gate.HoldsOne());

    OtherThread second(twins.Surface(), kPointEntry, call);
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
    Gate gate(*font, FontDouble::WordSpacing);
    gate.Arm();
    OtherThread first(twins.Surface(), kPointEntry, call);
    ASSERT_TRUE(gate.HoldsOne());

    OtherThread second(twins.Surface(), entry, call);
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
    Gate gate(*font, FontDouble::ItalicMode);
    gate.Arm();
    OtherThread first(twins.Surface(), kPointEntry, call);
    ASSERT_TRUE(gate.HoldsOne());

    // The first stands still, so that both do not use the painter at the same time.
    OtherThread second(twins.Surface(), kPointEntry, call);
    EXPECT_TRUE(second.Ends());

    gate.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
}

TEST_F(Lock, IsNotTakenWhileTheFontsAngleIsRead)
{
    Gate gate(*font, FontDouble::Angle);
    gate.Arm();
    OtherThread first(twins.Surface(), kFontAngleEntry, call);
    ASSERT_TRUE(gate.HoldsOne());

    OtherThread second(twins.Surface(), kPointEntry, call);
    EXPECT_TRUE(second.Ends());

    gate.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
}

TEST_F(Lock, BelongsToOneSurface)
{
    Gate gate(*font, FontDouble::WordSpacing);
    gate.Arm();
    OtherThread first(twins.Surface(), kPointEntry, call);
    ASSERT_TRUE(gate.HoldsOne());

    CairoTwins others;
    OtherThread second(others.Surface(), kPointEntry, call);
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
    OtherThread second(twins.Surface(), kPointEntry, call);
    EXPECT_TRUE(second.Ends());
    EXPECT_TRUE(second.Drawn());
}

} // namespace
