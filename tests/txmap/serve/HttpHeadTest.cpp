#include <string>

#include <gtest/gtest.h>
#include <txmap/serve/HttpHead.h>

using namespace txmap;

namespace
{

HttpHead Checked(const std::string& requestLine, const std::string& headers = "Host: a\r\n")
{
    return CheckHead(requestLine + "\r\n" + headers + "\r\n");
}

} // namespace

TEST(HttpHead, TakesWhatBrowsersSend)
{
    const HttpHead head = Checked("GET /3/4/2.png?v=1 HTTP/1.1", "Host: localhost:8080\r\nIf-None-Match: \"a\"\r\n"
                                                                 "X-Name: \xc3\xa4 b\r\nContent-Length: 0\r\n");
    EXPECT_EQ(head.status, 0) << head.reason;
    EXPECT_FALSE(head.closes);
    EXPECT_NE(head.text.find("If-None-Match"), std::string::npos);
    EXPECT_EQ(head.text.substr(head.text.size() - 4), "\r\n\r\n");
    EXPECT_EQ(Checked("HEAD / HTTP/1.0", "").status, 0);
    EXPECT_TRUE(Checked("GET / HTTP/1.1", "Host: a\r\nconnection: Close\r\n").closes);
}

TEST(HttpHead, HandsOnNoWishForRangesOrPacking)
{
    const HttpHead head = Checked(
        "GET / HTTP/1.1", "Host: a\r\nrange: bytes=0-,0-,0-\r\nAccept-Encoding: br\r\nExpect: 100-continue\r\n");
    EXPECT_EQ(head.text, "GET / HTTP/1.1\r\nHost: a\r\n\r\n");
}

TEST(HttpHead, RefusesWrongRequestLines)
{
    for (const char* const line :
         {"", "GET", "GET /", "GET / ", " / HTTP/1.1", "GET  / HTTP/1.1", "GET / x HTTP/1.1", "GET x HTTP/1.1",
          "GET http://a/ HTTP/1.1", "GET /\x01 HTTP/1.1", "GET /\xff HTTP/1.1", "G(T / HTTP/1.1", "GET / FTP/1.1"})
        EXPECT_EQ(Checked(line).status, 400) << line;
    for (const char* const method : {"POST", "PUT", "DELETE", "OPTIONS", "TRACE", "CONNECT", "PATCH", "BREW", "get"})
        EXPECT_EQ(Checked(std::string(method) + " / HTTP/1.1").status, 405) << method;
    EXPECT_EQ(Checked("GET / HTTP/2.0").status, 505);
    EXPECT_EQ(Checked("GET / HTTP/1.10").status, 505);
    EXPECT_EQ(Checked("GET /" + std::string(kLongestTarget - 1, 'a') + " HTTP/1.1").status, 0);
    EXPECT_EQ(Checked("GET /" + std::string(kLongestTarget, 'a') + " HTTP/1.1").status, 414);
}

TEST(HttpHead, RefusesWrongHeaders)
{
    for (const char* const headers : {"", "Host: a\r\nHost: b\r\n", "Host: a\r\nno colon\r\n", "Host: a\r\n: empty\r\n",
                                      "Host: a\r\n folded: x\r\n", "Host: a\r\nA B: x\r\n", "Host: a\r\nA: \x01\r\n",
                                      "Host: a\r\nTransfer-Encoding: chunked\r\n", "Host: a\r\nContent-Length: 5\r\n",
                                      "Host: a\r\nContent-Length: -1\r\n", "Host: a\r\nX: a\rb\r\n"})
        EXPECT_EQ(Checked("GET / HTTP/1.1", headers).status, 400) << headers;
    std::string many = "Host: a\r\n";
    for (std::size_t i = 1; i < kMostHeaders; ++i)
        many += "A: b\r\n";
    EXPECT_EQ(Checked("GET / HTTP/1.1", many).status, 0);
    EXPECT_EQ(Checked("GET / HTTP/1.1", many + "A: b\r\n").status, 431);
}

TEST(HttpHead, FindsWhereARequestEnds)
{
    std::size_t length = 0;
    EXPECT_EQ(FindHead("GET / HTTP/1.1\r\nHost: a\r\n", length), HeadState::Incomplete);
    EXPECT_EQ(FindHead("GET / HTTP/1.1\r\n\r\nGET /x", length), HeadState::Complete);
    EXPECT_EQ(length, 18u);
    EXPECT_EQ(FindHead("GET / HTTP/1.1\n", length), HeadState::Malformed);
    EXPECT_EQ(FindHead("\n", length), HeadState::Malformed);
    // What comes behind a complete request is another one.
    EXPECT_EQ(FindHead("GET / HTTP/1.1\r\n\r\n\n", length), HeadState::Complete);
    EXPECT_EQ(FindHead(std::string(kLongestHead, 'a'), length), HeadState::Incomplete);
    EXPECT_EQ(FindHead(std::string(kLongestHead + 1, 'a'), length), HeadState::TooLong);
    EXPECT_EQ(FindHead(std::string(kLongestHead, 'a') + "\r\n\r\n", length), HeadState::TooLong);
}
