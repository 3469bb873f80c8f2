#include <string>
#include <vector>

#include <boost/dll/library_info.hpp>

#include <gtest/gtest.h>
#include <tests/support/ChildProcess.h>

namespace
{

/// Runs a sequence in a process of its own. @p environment is a list of arguments for env(1).
Outcome RunSequence(const std::string& sequence, const std::string& environment, const std::string& wrapper = "")
{
    return RunCommand(wrapper + " env " + environment + " '" TX_LOAD_SEQUENCE "' " + sequence +
                      " '" TX_TEST_PLUGIN "'");
}

int NoticesIn(const std::string& log)
{
    const std::string notice = "graphics engine create!\n";
    int notices = 0;
    for (std::size_t at = log.find(notice); at != std::string::npos; at = log.find(notice, at + 1))
        ++notices;
    return notices;
}

constexpr char kNoDisplay[] = "-u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM";
constexpr char kUnreachableDisplay[] = "-u WAYLAND_DISPLAY -u QT_QPA_PLATFORM DISPLAY=:4711";
constexpr char kUnreachableWayland[] = "-u DISPLAY -u QT_QPA_PLATFORM WAYLAND_DISPLAY=nowhere-4711";
constexpr char kHostChoice[] = "-u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=offscreen";

struct Case
{
    const char* sequence;
    const char* environment;
    int notices;
};

void PrintTo(const Case& tested, std::ostream* out) { *out << tested.sequence << " with env " << tested.environment; }

class LoadingTest : public ::testing::TestWithParam<Case>
{
};

TEST_P(LoadingTest, EndsWell)
{
    const Outcome outcome = RunSequence(GetParam().sequence, GetParam().environment);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.log;
    EXPECT_EQ(NoticesIn(outcome.log), GetParam().notices) << outcome.log;
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, LoadingTest,
    ::testing::Values(
        Case{"load-only", kNoDisplay, 1}, Case{"load-only", kUnreachableDisplay, 1},
        Case{"load-only", kUnreachableWayland, 1}, Case{"load-only", kHostChoice, 1},
        Case{"load-and-draw", kNoDisplay, 1}, Case{"load-and-draw", kUnreachableDisplay, 1},
        Case{"load-and-draw", kUnreachableWayland, 1}, Case{"load-and-draw", kHostChoice, 1},
        Case{"keep-surface-to-the-end", kNoDisplay, 1}, Case{"load-unload-load", kNoDisplay, 1},
        Case{"unload-with-live-surface", kNoDisplay, 1}, Case{"host-application-before", kHostChoice, 0},
        Case{"label-in-static-destructor", kHostChoice, 0}, Case{"host-application-destroyed-first", kHostChoice, 0},
        Case{"host-application-after-loading", kHostChoice, 1}, Case{"host-core-application-only", kHostChoice, 0},
        Case{"engine-on-thread", kNoDisplay, 1}, Case{"two-engines", kNoDisplay, 1},
        Case{"host-application-after-the-engine", kHostChoice, 1},
        Case{"lasting-host-application-after-the-engine", kHostChoice, 1},
        Case{"leaked-host-application-after-the-engine", kHostChoice, 1},
        Case{"application-outlives-engine", kNoDisplay, 1}, Case{"nothing-of-the-host-changes", kNoDisplay, 1},
        Case{"nothing-of-the-host-changes", kUnreachableDisplay, 1},
        Case{"nothing-of-the-host-changes", kHostChoice, 1}, Case{"notice-is-a-debug-message", kNoDisplay, 0},
        Case{"entry-gives-one-reference", kNoDisplay, 1}));

class WrongOrderTest : public ::testing::TestWithParam<const char*>
{
};

TEST_P(WrongOrderTest, EndsWellOnADisplay)
{
    const Outcome outcome = RunSequence(GetParam(), "-u WAYLAND_DISPLAY -u QT_QPA_PLATFORM", "xvfb-run -a");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.log;
    EXPECT_EQ(NoticesIn(outcome.log), 1) << outcome.log;
}

INSTANTIATE_TEST_SUITE_P(Sequences, WrongOrderTest,
                         ::testing::Values("host-application-after-the-engine",
                                           "lasting-host-application-after-the-engine",
                                           "leaked-host-application-after-the-engine"));

TEST(ProcessApplicationTest, EndsWithTheProcess)
{
    const Outcome outcome = RunSequence("application-ends-with-the-process", kNoDisplay);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.log;
    EXPECT_NE(outcome.log.find("application ended\n"), std::string::npos) << outcome.log;
}

TEST(PluginFileTest, ExportsItsEntryAloneInTheSectionOfAliases)
{
    boost::dll::library_info info(TX_TEST_PLUGIN);
    const std::vector<std::string> aliases = info.symbols("boostdll");
    EXPECT_EQ(aliases, std::vector<std::string>{"GetTZPlugIn"});

    const Outcome symbols = RunCommand("nm -D --defined-only --format=posix '" TX_TEST_PLUGIN "' | cut -d ' ' -f 1");
    EXPECT_EQ(symbols.exitCode, 0);
    EXPECT_EQ(symbols.log, "GetTZPlugIn\n");
}

} // namespace
