#include <set>
#include <string>

#include <gtest/gtest.h>
#include <txmap/style/CategoryTable.h>

using txmap::CategoryTable;

TEST(CategoryTable, TakesSmallNumbersAsTheyAre)
{
    CategoryTable table(7);
    for (int number = 1; number <= 7; ++number)
        EXPECT_EQ(table.Of(std::to_string(number)), number);
}

TEST(CategoryTable, CountsLargerNumbersRoundTheClasses)
{
    CategoryTable table(7);
    EXPECT_EQ(table.Of("8"), 1);
    EXPECT_EQ(table.Of("13"), 6);
    EXPECT_EQ(table.Of("9223372036854775807"), 7); // 2^63 - 1 is a multiple of 7.
}

TEST(CategoryTable, HasNoClassForNothing)
{
    CategoryTable table(7);
    EXPECT_EQ(table.Of(""), 0);
    EXPECT_EQ(table.Of("0"), 0);
    EXPECT_EQ(table.Of("-99"), 0);
}

TEST(CategoryTable, GivesTextsTheClassesInTurn)
{
    CategoryTable table(3);
    EXPECT_EQ(table.Of("Asia"), 1);
    EXPECT_EQ(table.Of("Europe"), 2);
    EXPECT_EQ(table.Of("Africa"), 3);
    EXPECT_EQ(table.Of("Oceania"), 1);
}

TEST(CategoryTable, GivesTheSameTextTheSameClass)
{
    CategoryTable table(3);
    table.Of("Asia");
    table.Of("Europe");
    EXPECT_EQ(table.Of("Asia"), 1);
    EXPECT_EQ(table.Of("Europe"), 2);
    EXPECT_EQ(table.Of("Africa"), 3);
}

TEST(CategoryTable, TakesNumbersWithAnythingElseForTexts)
{
    CategoryTable table(7);
    EXPECT_EQ(table.Of("5a"), 1);
    EXPECT_EQ(table.Of("99999999999999999999"), 2);
    EXPECT_EQ(table.Of("3.5"), 3);
}
