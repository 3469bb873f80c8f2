// docs/txmap.md against the program itself.
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/ProgramRun.h>

using ::testing::ContainerEq;
using ::testing::Contains;

namespace
{

/// Every "--option" of a text, and every "-o" of a single letter.
std::set<std::string> OptionsIn(const std::string& text)
{
    static const std::regex option("(^|[\\s`,(])(--[a-z][a-z-]*|-[a-z])(?=[\\s`,;.)]|$)");
    std::set<std::string> options;
    for (std::sregex_iterator match(text.begin(), text.end(), option), end; match != end; ++match)
        options.insert(match->str(2));
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

TEST(Documentation, HasTheOptionsOfStylesAndNoOthers)
{
    std::set<std::string> known = OptionsIn(RunTxmap({"render", "--help"}).output);
    ASSERT_THAT(known, Contains("--bearing"));
    known.merge(OptionsIn(RunTxmap({"validate", "--help"}).output));
    EXPECT_THAT(OptionsIn(Content(TX_TEST_DOCS "/styles.md")), ContainerEq(known));
}
