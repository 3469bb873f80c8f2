// txmap serve as a program: what it serves and refuses.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/ServedFolder.h>

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace
{

const std::string kPlugin = TX_TEST_PLUGIN;

void ExpectPictureOfRender(const ServedFolder& served, const std::string& target, std::vector<std::string> options)
{
    const HttpReply reply = served.server->Get(target);
    ASSERT_EQ(reply.status, 200) << reply.body;
    EXPECT_EQ(reply.headers.at("content-type"), "image/png");
    options.insert(options.begin(), {"render", served.style, "-o", served.folder / "map.png", "--plugin", kPlugin});
    ASSERT_EQ(RunTxmap(options).exitCode, 0);
    const Picture picture = served.PictureOf(reply);
    const Picture rendered(served.folder / "map.png");
    EXPECT_EQ(picture.Width(), rendered.Width());
    EXPECT_EQ(picture.Height(), rendered.Height());
    EXPECT_TRUE(picture.Pixels() == rendered.Pixels()) << target;
}

} // namespace

TEST(Serve, GivesThePicturesOfRender)
{
    const ServedFolder served;
    ExpectPictureOfRender(served, "/0/0/0.png", {"--size", "512x512", "--center", "0,0", "--zoom", "0"});
    ExpectPictureOfRender(served, "/0/0/0@2x.png",
                          {"--size", "512x512", "--center", "0,0", "--zoom", "0", "--scale", "2"});
    ExpectPictureOfRender(served, "/1/1/0.png", {"--size", "512x512", "--bbox", "0,0,180,85.05112877980659"});
    ExpectPictureOfRender(served, "/render?bbox=-100,-70,20,70&size=300x200",
                          {"--size", "300x200", "--bbox", "-100,-70,20,70"});
    ExpectPictureOfRender(served, "/render?bbox=-100,-70,20,70&size=30x20&scale=2",
                          {"--size", "30x20", "--bbox", "-100,-70,20,70", "--scale", "2"});
    EXPECT_EQ(served.server->Errors(), "");
}

TEST(Serve, KeepsWhatItHasDrawn)
{
    const ServedFolder served({"--workers", "1"});
    const HttpReply drawn = served.server->Get("/3/4/4.png");
    ASSERT_EQ(drawn.status, 200);
    EXPECT_EQ(served.server->Get("/render?bbox=0,0,10,10&size=10x10").status, 200);
    served.server->SignalWorkers(SIGSTOP);
    // Its neighbour in the block that was drawn, too.
    EXPECT_EQ(served.server->Get("/3/4/4.png").body, drawn.body);
    EXPECT_EQ(served.server->Get("/3/5/5.png").status, 200);
    EXPECT_EQ(served.server->Get("/render?bbox=0,0,10,10&size=10x10").status, 200);
    EXPECT_GT(served.server->Health("cache_bytes"), 0.0);
}

TEST(Serve, KeepsNoMoreThanItMay)
{
    const ServedFolder served({"--cache", "0"});
    EXPECT_EQ(served.server->Get("/3/4/4.png").status, 200);
    EXPECT_EQ(served.server->Health("cache_bytes"), 0.0);
}

TEST(Serve, SaysHowLongBrowsersMayKeepTiles)
{
    const ServedFolder served;
    const ServerRun& server = *served.server;
    const HttpReply first = server.Get("/1/0/0.png");
    const std::string tag = first.headers.at("etag");
    EXPECT_EQ(first.headers.at("cache-control"), "no-cache");
    EXPECT_EQ(server.Get("/1/0/0.png").headers.at("etag"), tag);
    for (const std::string& header : {tag, "W/" + tag, "\"other\", " + tag, std::string("*")})
    {
        const HttpReply same = server.Get("/1/0/0.png", "If-None-Match: " + header + "\r\n");
        EXPECT_EQ(same.status, 304);
        EXPECT_EQ(same.body, "");
        EXPECT_EQ(same.headers.at("etag"), tag);
    }
    EXPECT_EQ(server.Get("/1/0/0.png", "If-None-Match: \"other\"\r\n").status, 200);

    const std::string version = nlohmann::json::parse(server.Get("/state").body).at("version").get<std::string>();
    EXPECT_THAT(server.Get("/1/0/0.png?v=" + version).headers.at("cache-control"), HasSubstr("immutable"));
    EXPECT_EQ(server.Get("/1/0/0.png?v=0").headers.at("cache-control"), "no-cache");
    EXPECT_EQ(server.Get("/state").headers.at("cache-control"), "no-store");
    EXPECT_EQ(server.Get("/9/9/999.png").headers.at("cache-control"), "no-store");
}

TEST(Serve, AnswersHeadWithoutABody)
{
    const ServedFolder served;
    HttpClient client(served.server->Port());
    client.Send("HEAD /0/0/0.png HTTP/1.1\r\nHost: a\r\n\r\n");
    const HttpReply head = client.Receive(false);
    EXPECT_EQ(head.status, 200);
    // The connection goes on with the next answer.
    client.Send("GET /0/0/0.png HTTP/1.1\r\nHost: a\r\n\r\n");
    EXPECT_EQ(client.Receive().status, 200);
}

TEST(Serve, AnswersSeveralRequestsOfAConnection)
{
    const ServedFolder served;
    HttpClient client(served.server->Port());
    client.Send("GET /health HTTP/1.1\r\nHost: a\r\n\r\nGET /style.json HTTP/1.1\r\nHost: a\r\n\r\n"
                "GET /nothing HTTP/1.1\r\nHost: a\r\n\r\nGET /health HTTP/1.1\r\nHost: a\r\nConnection: close\r\n\r\n");
    EXPECT_EQ(client.Receive().status, 200);
    EXPECT_EQ(client.Receive().body, ContentOf(served.style));
    EXPECT_EQ(client.Receive().status, 404);
    EXPECT_EQ(client.Receive().status, 200);
    EXPECT_TRUE(client.IsClosed());
}

TEST(Serve, TellsWhichAnswerIsTheLastOfAConnection)
{
    const ServedFolder served;
    HttpClient client(served.server->Port());
    for (int i = 1; i <= 1000; ++i)
    {
        ASSERT_TRUE(client.Send("GET /state HTTP/1.1\r\nHost: a\r\n\r\n"));
        const HttpReply reply = client.Receive();
        ASSERT_EQ(reply.status, 200);
        ASSERT_EQ(reply.headers.count("connection"), i == 1000 ? 1u : 0u) << i;
    }
    EXPECT_TRUE(client.IsClosed());
}

TEST(Serve, HasAPageThatNeedsNothingFromOutside)
{
    const ServedFolder served;
    const HttpReply page = served.server->Get("/");
    ASSERT_EQ(page.status, 200);
    EXPECT_THAT(page.headers.at("content-type"), StartsWith("text/html"));
    EXPECT_THAT(page.headers.at("content-security-policy"), HasSubstr("default-src 'self'"));
    EXPECT_THAT(page.body, Not(HasSubstr("://")));
    for (const char* const file : {"page.js", "page.css", "leaflet.js", "leaflet.css"})
    {
        EXPECT_THAT(page.body, HasSubstr(file));
        EXPECT_EQ(served.server->Get(std::string("/") + file).status, 200) << file;
    }
    EXPECT_THAT(served.server->Get("/page.js").headers.at("content-type"), StartsWith("text/javascript"));
}

TEST(Serve, RefusesWhatIsMalformed)
{
    const ServedFolder served;
    struct Case
    {
        std::string request;
        int status;
    };
    const std::string end = " HTTP/1.1\r\nHost: a\r\n\r\n";
    const std::vector<Case> cases = {
        {"GET /0/0/1.png" + end, 404},
        {"GET /../../etc/passwd" + end, 404},
        {"GET /%2e%2e/%2e%2e/etc/passwd" + end, 404},
        {"GET /page.js%00" + end, 404},
        {"GET /render?bbox=0,0,1,1&size=99999x99999" + end, 400},
        {"POST /0/0/0.png HTTP/1.1\r\nHost: a\r\nContent-Length: 3\r\n\r\nabc", 405},
        {"GET /0/0/0.png HTTP/1.1\r\nHost: a\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n", 400},
        {"GET /0/0/0.png\r\n\r\n", 400},
        {"GET /0/0/0.png HTTP/1.1\r\n\r\n", 400},
        {"GET /0/0/0.png HTTP/1.1\nHost: a\n\n", 400},
        {std::string("GET /\0 HTTP/1.1\r\nHost: a\r\n\r\n", 29), 400},
        {"\x16\x03\x01\x02\r\n\r\n", 400},
        {"GET / HTTP/3.0\r\nHost: a\r\n\r\n", 505},
        {"GET /" + std::string(3000, 'a') + end, 414},
        {"GET /" + std::string(1 << 20, 'a') + end, 414},
        {"GET / HTTP/1.1\r\nHost: a\r\nX: " + std::string(1 << 20, 'a') + "\r\n\r\n", 431},
    };
    for (const Case& one : cases)
    {
        HttpClient client(served.server->Port());
        client.Send(one.request);
        const HttpReply reply = client.Receive();
        EXPECT_EQ(reply.status, one.status) << one.request.substr(0, 80);
        EXPECT_TRUE(reply.isWhole);
        EXPECT_EQ(reply.headers.count("exception_what"), 0u);
    }
    // One more try costs as much as the first.
    const std::string ranges = "Range: bytes=0-" +
                               []
    {
        std::string more;
        for (int i = 0; i < 1000; ++i)
            more += ",0-";
        return more;
    }() + "\r\n";
    EXPECT_EQ(served.server->Get("/0/0/0.png", ranges).body, served.server->Get("/0/0/0.png").body);
    EXPECT_EQ(served.server->Errors(), "");
    EXPECT_EQ(served.Middle(), (Pixel{255, 0, 0, 255}));
}

TEST(Serve, GivesUpARequestThatDoesNotEnd)
{
    const ServedFolder served;
    HttpClient slow(served.server->Port());
    slow.Send("GET /0/0/0.png HTTP/1.1\r\nHost: a\r\n");
    // Others do not wait for it.
    EXPECT_EQ(served.server->Get("/0/0/0.png").status, 200);
    const HttpReply reply = slow.Receive();
    EXPECT_EQ(reply.status, 408);
    EXPECT_TRUE(slow.IsClosed());
    EXPECT_EQ(served.server->Get("/health").status, 200);
}

TEST(Serve, SaysInOneLineWhyItCannotBegin)
{
    const ServedFolder served;
    const std::string port = std::to_string(served.server->Port());
    const TemporaryFolder folder;
    const std::string good = folder.Write("good.json", SquareStyle("#ff0000"));
    const std::string broken = folder.Write("broken.json", "{");
    const std::string lacking =
        folder.Write("lacking.json", R"({"version": 8, "sources": {"s": {"type": "geojson", "data": "none.json"}},
            "layers": [{"id": "f", "type": "fill", "source": "s"}]})");
    struct Case
    {
        std::vector<std::string> arguments;
        int exitCode;
        const char* culprit;
    };
    const std::vector<Case> cases = {
        {{good, "--port", port}, 1, "the port is in use"},
        {{good, "--bind", "10.255.255.1", "--port", "0"}, 1, "cannot listen on 10.255.255.1"},
        {{good, "--bind", "nowhere", "--port", "0"}, 2, "--bind nowhere"},
        {{good, "--port", "70000"}, 2, "--port 70000"},
        {{good, "--workers", "0"}, 2, "--workers 0"},
        {{good, "--queue", "x"}, 2, "--queue x"},
        {{good, "--timeout", "0"}, 2, "--timeout 0"},
        {{good, "--timeout", "nan"}, 2, "--timeout nan"},
        {{good, "--cache", "-1"}, 2, "--cache -1"},
        {{good, "--plugin", "none", "--port", "0"}, 3, "none"},
        {{broken, "--port", "0"}, 4, "broken.json: /: no JSON"},
        {{lacking, "--port", "0"}, 4, "none.json"},
        {{folder / "none.json", "--port", "0"}, 4, "none.json"}};
    for (const Case& one : cases)
    {
        std::vector<std::string> arguments = {"serve"};
        arguments.insert(arguments.end(), one.arguments.begin(), one.arguments.end());
        if (one.exitCode != 3)
            arguments.insert(arguments.end(), {"--plugin", kPlugin});
        const ProgramRun run = RunTxmap(arguments);
        EXPECT_EQ(run.exitCode, one.exitCode) << run.errors;
        EXPECT_THAT(run.errors, StartsWith("txmap: "));
        EXPECT_THAT(run.errors, HasSubstr(one.culprit));
        EXPECT_EQ(run.errors.find('\n'), run.errors.size() - 1) << run.errors;
        EXPECT_EQ(run.output, "");
    }
}
