// txmap serve as a program: its workers, its style and its end.
#include <csignal>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/ServedFolder.h>

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::SizeIs;
using ::testing::StartsWith;

TEST(ServeWorker, ReplacesAWorkerThatEndsAndDrawsAllTheSame)
{
    const ServedFolder served({"--workers", "1"});
    const ServerRun& server = *served.server;
    ASSERT_TRUE(WaitUntil([&] { return server.Workers().size() == 1; }));
    server.SignalWorkers(SIGSTOP);
    auto tile = GetLater(server, "/3/3/3.png");
    auto view = GetLater(server, "/render?bbox=0,0,10,10&size=64x64");
    ASSERT_TRUE(WaitUntil([&] { return server.Health("jobs") == 2.0 && server.Health("waiting") == 1.0; }));
    server.SignalWorkers(SIGKILL);
    EXPECT_EQ(tile.get().status, 200);
    EXPECT_EQ(view.get().status, 200);
    EXPECT_THAT(server.Errors(), HasSubstr("a worker ended"));
    EXPECT_EQ(server.Health("workers_started"), 2.0);
}

TEST(ServeWorker, LosesNoOtherRequestWithAWorker)
{
    const ServedFolder served({"--workers", "2"});
    const ServerRun& server = *served.server;
    ASSERT_TRUE(WaitUntil([&] { return server.Health("workers") == 2.0; }));
    const std::vector<pid_t> workers = server.Workers();
    ASSERT_THAT(workers, SizeIs(2));
    server.SignalWorkers(SIGSTOP);
    auto one = GetLater(server, "/3/0/0.png");
    auto other = GetLater(server, "/3/4/4.png");
    auto third = GetLater(server, "/3/6/6.png");
    ASSERT_TRUE(WaitUntil([&] { return server.Health("jobs") == 3.0 && server.Health("waiting") == 1.0; }));
    kill(workers[0], SIGKILL);
    // The other one has not even noticed.
    ASSERT_TRUE(WaitUntil([&] { return server.Health("waiting") == 0.0; }));
    kill(workers[1], SIGCONT);
    EXPECT_EQ(one.get().status, 200);
    EXPECT_EQ(other.get().status, 200);
    EXPECT_EQ(third.get().status, 200);
    EXPECT_THAT(server.Workers(), Contains(workers[1]));
    EXPECT_TRUE(WaitUntil([&] { return server.Health("workers") == 2.0; }));
}

TEST(ServeWorker, RefusesWhatWouldWaitTooLong)
{
    const ServedFolder served({"--workers", "1", "--queue", "2"});
    const ServerRun& server = *served.server;
    ASSERT_TRUE(WaitUntil([&] { return server.Workers().size() == 1; }));
    server.SignalWorkers(SIGSTOP);
    std::vector<std::future<HttpReply>> waiting;
    waiting.push_back(GetLater(server, "/4/0/0.png"));
    // Which of the jobs a worker has taken already does not matter: one is with it, two wait.
    ASSERT_TRUE(WaitUntil([&] { return server.Health("jobs") == 1.0 && server.Health("waiting") == 0.0; }));
    for (const char* const target : {"/4/4/0.png", "/4/8/0.png"})
        waiting.push_back(GetLater(server, target));
    ASSERT_TRUE(WaitUntil([&] { return server.Health("waiting") == 2.0; }));
    // Whoever wants what is waited for already joins, also for another tile of its block.
    for (const char* const target : {"/4/4/0.png", "/4/5/1.png", "/4/9/0.png"})
        waiting.push_back(GetLater(server, target));
    const HttpReply refused = server.Get("/4/12/0.png");
    EXPECT_EQ(refused.status, 503);
    EXPECT_EQ(refused.headers.at("retry-after"), "1");
    EXPECT_EQ(server.Get("/health").status, 200);
    server.SignalWorkers(SIGCONT);
    for (std::future<HttpReply>& reply : waiting)
        EXPECT_EQ(reply.get().status, 200);
    EXPECT_EQ(server.Get("/4/12/0.png").status, 200);
}

TEST(ServeWorker, GivesUpWhatTakesTooLong)
{
    const ServedFolder served({"--workers", "1", "--timeout", "1"});
    const ServerRun& server = *served.server;
    ASSERT_TRUE(WaitUntil([&] { return server.Workers().size() == 1; }));
    server.SignalWorkers(SIGSTOP);
    auto drawn = GetLater(server, "/4/0/0.png");
    auto queued = GetLater(server, "/4/8/8.png");
    EXPECT_EQ(drawn.get().status, 504);
    EXPECT_EQ(queued.get().status, 504);
    EXPECT_TRUE(WaitUntil([&] { return server.Get("/4/0/0.png").status == 200; }));
    EXPECT_THAT(server.Errors(), HasSubstr("too long"));
}

TEST(ServeWorker, TakesNoMoreConnectionsThanItHasThreads)
{
    const ServedFolder served;
    std::vector<std::unique_ptr<HttpClient>> clients;
    for (int i = 0; i < 128; ++i)
        clients.push_back(std::make_unique<HttpClient>(served.server->Port()));
    EXPECT_EQ(HttpClient(served.server->Port()).Receive().status, 503);
    clients.resize(64);
    EXPECT_TRUE(WaitUntil([&] { return served.server->Get("/health").status == 200; }));
}

TEST(ServeWorker, DrawsAStyleThatIsSavedAnew)
{
    const ServedFolder served({"--workers", "2"});
    const ServerRun& server = *served.server;
    const auto state = [&] { return nlohmann::json::parse(server.Get("/state").body); };
    const std::string version = state().at("version");
    EXPECT_EQ(served.Middle(), (Pixel{255, 0, 0, 255}));
    served.folder.Write("style.json", SquareStyle("#0000ff"));
    ASSERT_TRUE(WaitUntil([&] { return state().at("version") != version; }));
    EXPECT_EQ(served.Middle(), (Pixel{0, 0, 255, 255}));
    EXPECT_EQ(server.Get("/style.json").body, SquareStyle("#0000ff"));
    // The version that a client knew is no longer the one that it may keep.
    EXPECT_EQ(server.Get("/0/0/0.png?v=" + version).headers.at("cache-control"), "no-cache");
    EXPECT_EQ(server.Errors(), "");
}

TEST(ServeWorker, KeepsAStyleUntilABetterOneIsSaved)
{
    const ServedFolder served({"--workers", "1", "--cache", "0"});
    const ServerRun& server = *served.server;
    const auto problem = [&]
    { return nlohmann::json::parse(server.Get("/state").body).at("problem").get<std::string>(); };
    const std::string first = server.Get("/style.json").body;
    for (const char* const broken : {"{\"version\": 8,", R"({"version": 8, "sources": {}, "layers": [{"id": "x"}]})"})
    {
        const std::string before = problem();
        served.folder.Write("style.json", broken);
        ASSERT_TRUE(WaitUntil([&] { return !problem().empty() && problem() != before; }));
        EXPECT_THAT(problem(), HasSubstr("style.json: /"));
        EXPECT_THAT(server.Errors(), HasSubstr(problem()));
        EXPECT_EQ(server.Get("/style.json").body, first);
    }
    EXPECT_EQ(served.Middle(), (Pixel{255, 0, 0, 255}));
    // A worker that is started now draws the style that is served, not the file.
    server.SignalWorkers(SIGKILL);
    EXPECT_TRUE(WaitUntil([&] { return server.Health("workers_started") >= 2.0 && server.Health("workers") == 1.0; }));
    EXPECT_EQ(served.Middle(), (Pixel{255, 0, 0, 255}));
    served.folder.Write("style.json", SquareStyle("#0000ff"));
    ASSERT_TRUE(WaitUntil([&] { return problem().empty(); }));
    EXPECT_EQ(served.Middle(), (Pixel{0, 0, 255, 255}));
}

TEST(ServeWorker, StopsWhenItIsTold)
{
    for (const int signal : {SIGTERM, SIGINT})
    {
        const ServedFolder served({"--workers", "1"});
        ServerRun& server = *served.server;
        ASSERT_TRUE(WaitUntil([&] { return server.Workers().size() == 1; }));
        const std::vector<pid_t> workers = server.Workers();
        const HttpClient idle(server.Port());
        server.SignalWorkers(SIGSTOP);
        auto last = GetLater(server, "/3/3/3.png");
        ASSERT_TRUE(WaitUntil([&] { return server.Health("jobs") == 1.0 && server.Health("waiting") == 0.0; }));
        kill(server.Process(), signal);
        Pause();
        kill(workers[0], SIGCONT);
        // What was asked for before is still answered.
        EXPECT_EQ(last.get().status, 200);
        EXPECT_EQ(server.Stop(signal), 0);
        EXPECT_EQ(kill(workers[0], 0), -1);
        EXPECT_EQ(server.Errors(), "");
    }
}

TEST(ServeWorker, TakesItsWorkersAlongWhenItIsKilled)
{
    const ServedFolder served({"--workers", "2"});
    ASSERT_TRUE(WaitUntil([&] { return served.server->Workers().size() == 2; }));
    const std::vector<pid_t> workers = served.server->Workers();
    EXPECT_EQ(served.server->Stop(SIGKILL), -1);
    for (const pid_t worker : workers)
        EXPECT_TRUE(WaitUntil(
            [&]
            {
                const std::string status = ContentOf("/proc/" + std::to_string(worker) + "/stat");
                const std::size_t end = status.rfind(") ");
                return end == std::string::npos || status[end + 2] == 'Z';
            }));
}
