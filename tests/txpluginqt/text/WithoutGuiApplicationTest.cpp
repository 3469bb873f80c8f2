#include <gtest/gtest.h>

#include <tests/support/ChildProcess.h>

namespace
{

TEST(WithoutGuiApplicationTest, TextIsRefusedInAHostWithACoreApplicationOnly)
{
    const Outcome outcome = RunCommand("'" TX_LABEL_WITHOUT_GUI "' core-application-only");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.log;
}

TEST(WithoutGuiApplicationTest, TextIsRefusedOnceTheHostHasEndedItsApplication)
{
    const Outcome outcome = RunCommand("'" TX_LABEL_WITHOUT_GUI "' gui-application-ended");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.log;
}

} // namespace
