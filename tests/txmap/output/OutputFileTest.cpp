#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/RefusalOf.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/output/OutputFile.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::EndsWith;
namespace fs = std::filesystem;

namespace
{

void Fill(const std::string& path, const std::string& content)
{
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    ASSERT_TRUE(file);
    std::fwrite(content.data(), 1, content.size(), file);
    std::fclose(file);
}

} // namespace

TEST(OutputFile, AppearsAtTheCommit)
{
    const TemporaryFolder folder;
    OutputFile output(folder / "map.png");
    EXPECT_TRUE(folder.Names().empty());
    const std::string temporary = output.Begin();
    EXPECT_EQ(fs::path(temporary).parent_path(), folder.Path());
    EXPECT_THAT(temporary, EndsWith(".png"));
    Fill(temporary, "picture");
    EXPECT_FALSE(fs::exists(folder / "map.png"));
    output.Commit();
    EXPECT_EQ(folder.Names(), std::set<std::string>{"map.png"});
    EXPECT_EQ(ContentOf(folder / "map.png"), "picture");
}

TEST(OutputFile, KeepsTheOlderOneWithoutACommit)
{
    const TemporaryFolder folder;
    folder.Write("map.png", "older");
    {
        OutputFile output(folder / "map.png");
        Fill(output.Begin(), "half a pic");
    }
    EXPECT_EQ(folder.Names(), std::set<std::string>{"map.png"});
    EXPECT_EQ(ContentOf(folder / "map.png"), "older");
}

TEST(OutputFile, IsNotReplacedByNothing)
{
    const TemporaryFolder folder;
    folder.Write("map.png", "older");
    {
        OutputFile output(folder / "map.png");
        output.Begin();
        EXPECT_THROW(output.Commit(), Failure);
    }
    EXPECT_EQ(ContentOf(folder / "map.png"), "older");
    EXPECT_EQ(folder.Names(), std::set<std::string>{"map.png"});
}

TEST(OutputFile, GetsThePermissionsOfNewFiles)
{
    const TemporaryFolder folder;
    const mode_t before = umask(027);
    OutputFile output(folder / "map.png");
    Fill(output.Begin(), "picture");
    output.Commit();
    umask(before);
    struct stat status = {};
    ASSERT_EQ(stat((folder / "map.png").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0640u);
}

TEST(OutputFile, KeepsThePermissionsOfTheOlderOne)
{
    const TemporaryFolder folder;
    const std::string path = folder.Write("map.png", "older");
    for (const mode_t mode : {0600u, 0664u, 0444u})
    {
        ASSERT_EQ(chmod(path.c_str(), mode), 0);
        OutputFile output(path);
        Fill(output.Begin(), "picture");
        output.Commit();
        EXPECT_EQ(ContentOf(path), "picture");
        struct stat status = {};
        ASSERT_EQ(stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777u, mode);
    }
}

TEST(OutputFile, TakesAPathInTheCurrentFolder)
{
    const TemporaryFolder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    {
        OutputFile output("map.png");
        Fill(output.Begin(), "picture");
        output.Commit();
    }
    fs::current_path(before);
    EXPECT_EQ(folder.Names(), std::set<std::string>{"map.png"});
}

TEST(OutputFile, RefusesWhatCannotBeAFile)
{
    const TemporaryFolder folder;
    folder.Write("file", "content");
    fs::create_directory(folder / "folder.png");
    for (const std::string& path : {folder / "none/map.png", folder / "file/map.png", folder / "folder.png",
                                    folder / "no-suffix", std::string("/dev/null.d/map.png")})
        EXPECT_THROW(OutputFile output(path), Failure) << path;
}

TEST(OutputFile, NamesTheOptionThatAsksForIt)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "folder.json");
    const std::string path = folder / "folder.json";
    EXPECT_EQ(RefusalOf(ExitCode::Drawing, [&] { OutputFile(path, "--write-style"); }),
              "--write-style " + path + ": is a directory");
    EXPECT_EQ(RefusalOf(ExitCode::Drawing, [&] { OutputFile output(path); }), "--output " + path + ": is a directory");
    EXPECT_EQ(OutputFile("map.pgw", "--world-file").Name(), "--world-file map.pgw");
}

TEST(OutputFile, MayBeginWithAnotherSuffix)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "map.tif.png");
    OutputFile output(folder / "map.tif");
    EXPECT_THAT(output.Begin(".png"), EndsWith(".png"));
}

TEST(OutputFile, RefusesADevice)
{
    const TemporaryFolder folder;
    fs::create_symlink("/dev/null", folder / "null.png");
    EXPECT_THROW(OutputFile output(folder / "null.png"), Failure);
}

TEST(OutputFile, SaysWhyNothingMoreCanBeWritten)
{
    const TemporaryFolder folder;
    OutputFile output(folder / "map.png");
    output.Begin();
    EXPECT_EQ(output.WriteProblem(), "");
    // As on a disk that is full.
    rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit none{0, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &none), 0);
    EXPECT_EQ(output.WriteProblem(), " (File too large)");
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
}

TEST(OutputFile, IsRemovedWhenASignalEndsTheProcess)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGPIPE, SIGXCPU, SIGXFSZ})
    {
        const TemporaryFolder folder;
        const pid_t child = fork();
        if (child == 0)
        {
            OutputFile output(folder / "map.png");
            output.Begin();
            std::raise(signal);
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << signal;
        EXPECT_EQ(folder.Names(), std::set<std::string>{}) << signal;
    }
}
