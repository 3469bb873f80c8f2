#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txmap/serve/WorkerMessages.h>

using namespace txmap;
using ::testing::ElementsAre;

TEST(WorkerMessages, BringJobsOver)
{
    const auto block = ReadJob(JobText(ScaledBlock{{5, 30, 12, 2, 1}, 2}));
    ASSERT_TRUE(block);
    const ScaledBlock& tiles = std::get<ScaledBlock>(*block);
    EXPECT_EQ(JobText(tiles), JobText(ScaledBlock{{5, 30, 12, 2, 1}, 2}));
    EXPECT_EQ(tiles.tiles.x, 30);
    EXPECT_EQ(tiles.scale, 2);
    const auto view = ReadJob(JobText(ViewRequest{{0.1, -1.0 / 3.0, 1e-5, 60.0}, {640, 480}, 1}));
    ASSERT_TRUE(view);
    EXPECT_EQ(std::get<ViewRequest>(*view).box.south, -1.0 / 3.0);
    EXPECT_EQ(std::get<ViewRequest>(*view).size.height, 480);
    for (const char* const text : {"", "tiles", "tiles 1 2", "view 1 2 3 4 5", "other 1 2 3 4 5 6 7"})
        EXPECT_FALSE(ReadJob(text)) << text;
}

TEST(WorkerMessages, BringAnswersOver)
{
    const std::string bytes("\0\n b", 4);
    const auto answer = ReadAnswer(AnswerText({{bytes, "", "x"}, {}}));
    ASSERT_TRUE(answer);
    EXPECT_THAT(answer->files, ElementsAre(bytes, "", "x"));
    const auto problem = ReadAnswer(AnswerText({{}, "two\nlines"}));
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->problem, "two lines");
    for (const char* const text : {"", "drawn 3\nab", "drawn 1\nab", "other\n", "drawn 99999999999\n", "drawn"})
        EXPECT_FALSE(ReadAnswer(text)) << text;
}

TEST(WorkerMessages, BringGreetingsOver)
{
    const auto greeting = ReadGreeting(GreetingText({ExitCode::Data, "a\nb", {"one", "two\n"}}));
    ASSERT_TRUE(greeting);
    EXPECT_EQ(greeting->code, ExitCode::Data);
    EXPECT_EQ(greeting->problem, "a b");
    EXPECT_THAT(greeting->warnings, ElementsAre("one", "two "));
    for (const char* const text : {"", "0", "x\n\n", "10\n\n"})
        EXPECT_FALSE(ReadGreeting(text)) << text;
}
