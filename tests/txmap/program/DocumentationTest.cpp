// docs/txmap.md against the program itself.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/ProgramRun.h>

using ::testing::ContainerEq;
using ::testing::Contains;

namespace
{

/// Every "--option" of a text, and every "-o" of a single letter: those that stand as words.
std::set<std::string> OptionsIn(const std::string& text)
{
    static const std::string kBefore = " \n\t`,(";
    static const std::string kAfter = " \n\t`,;.)";
    static const std::string kLetters = "abcdefghijklmnopqrstuvwxyz-";
    std::set<std::string> options;
    for (std::size_t at = text.find('-'); at != std::string::npos; at = text.find('-', at + 1))
    {
        if (at > 0 && kBefore.find(text[at - 1]) == std::string::npos)
            continue;
        const std::size_t end = std::min(text.find_first_not_of(kLetters, at), text.size());
        if (end < text.size() && kAfter.find(text[end]) == std::string::npos)
            continue;
        const std::string word = text.substr(at, end - at);
        const bool isLong = word.size() > 2 && word[1] == '-' && word[2] != '-';
        const bool isShort = word.size() == 2 && word[1] != '-';
        if (isLong || isShort)
            options.insert(word);
    }
    return options;
}

std::string Content(const std::string& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace

TEST(Documentation, HasTheOptionsOfHelpAndNoOthers)
{
    const std::set<std::string> known = OptionsIn(RunTxmap({"--help"}).output);
    ASSERT_THAT(known, Contains("--bbox"));
    ASSERT_THAT(known, Contains("-o"));
    EXPECT_THAT(OptionsIn(Content(TX_TEST_DOCS "/txmap.md")), ContainerEq(known));
}

TEST(Documentation, HasTheOptionsOfServingAndNoOthers)
{
    const std::set<std::string> known = OptionsIn(RunTxmap({"serve", "--help"}).output);
    ASSERT_THAT(known, Contains("--port"));
    EXPECT_THAT(OptionsIn(Content(TX_TEST_DOCS "/serving.md")), ContainerEq(known));
}

TEST(Documentation, HasTheOptionsOfStylesAndNoOthers)
{
    std::set<std::string> known = OptionsIn(RunTxmap({"render", "--help"}).output);
    ASSERT_THAT(known, Contains("--bearing"));
    known.merge(OptionsIn(RunTxmap({"validate", "--help"}).output));
    EXPECT_THAT(OptionsIn(Content(TX_TEST_DOCS "/styles.md")), ContainerEq(known));
}
