#include <txmap/serve/HttpConnection.h>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <exception>
#include <new>

#include <httplib.h>

#include <txmap/serve/HttpHead.h>

namespace txmap
{
namespace
{

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;

// How long a client may wait between requests, and take to send one and to read the answer.
constexpr seconds kLongestPause{15};
constexpr seconds kLongestSending{10};
constexpr seconds kLongestReading{30};
constexpr int kMostRequests = 1000;
// What is read of a client that has been refused, so that it gets to see why.
constexpr milliseconds kLinger{500};
constexpr std::size_t kMostLingering = std::size_t(1) << 20;

const char* StatusText(int status)
{
    switch (status)
    {
    case 405:
        return "Method Not Allowed";
    case 408:
        return "Request Timeout";
    case 414:
        return "URI Too Long";
    case 431:
        return "Request Header Fields Too Large";
    case 503:
        return "Service Unavailable";
    case 505:
        return "HTTP Version Not Supported";
    default:
        return "Bad Request";
    }
}

bool IsReadable(int descriptor)
{
    pollfd poller{descriptor, POLLIN, 0};
    return poll(&poller, 1, 0) > 0;
}

/// Shows cpp-httplib one request that has arrived whole, and collects what it answers.
class OneRequest : public httplib::Stream
{
public:
    explicit OneRequest(std::string_view request) : request(request) {}

    bool is_readable() const override { return true; }
    bool is_writable() const override { return true; }
    ssize_t read(char* bytes, std::size_t size) override
    {
        const std::size_t count = request.copy(bytes, size);
        request.remove_prefix(count);
        return static_cast<ssize_t>(count);
    }
    ssize_t write(const char* bytes, std::size_t size) override
    {
        answer.append(bytes, size);
        return static_cast<ssize_t>(size);
    }
    void get_remote_ip_and_port(std::string& /*ip*/, int& port) const override { port = 0; }
    void get_local_ip_and_port(std::string& /*ip*/, int& port) const override { port = 0; }
    socket_t socket() const override { return 0; }

    const std::string& Answer() const { return answer; }

private:
    std::string_view request;
    std::string answer;
};

/// cpp-httplib without its sockets and threads.
class RequestProcessor : public httplib::Server
{
public:
    explicit RequestProcessor(const HttpHandler& handler)
    {
        set_keep_alive_timeout(kLongestPause.count());
        set_keep_alive_max_count(kMostRequests);
        set_pre_routing_handler(
            [&handler](const httplib::Request& request, httplib::Response& response)
            {
                const HttpAnswer answer = handler({request.target, request.get_header_value("If-None-Match")});
                response.status = answer.status;
                for (const auto& [name, value] : answer.headers)
                    response.set_header(name, value);
                if (!answer.type.empty())
                    response.set_content(answer.body, answer.type);
                return HandlerResponse::Handled;
            });
        set_exception_handler(
            [](const httplib::Request&, httplib::Response& response, std::exception_ptr)
            {
                response.status = 500;
                response.set_content("the answer cannot be made\n", "text/plain");
            });
    }

    /// @return the bytes of the answer; empty for none.
    std::string Answer(const HttpHead& head, bool& closes)
    {
        OneRequest stream(head.text);
        if (!process_request(stream, closes, closes, nullptr))
            closes = true;
        return stream.Answer();
    }
};

} // namespace

HttpConnection::~HttpConnection() { close(socket); }

void HttpConnection::Serve(const HttpHandler& handler)
{
    for (int left = kMostRequests; left > 0 && ReadHead() && AnswerNext(handler, left == 1); --left)
        ;
}

bool HttpConnection::ReadHead()
{
    Deadline deadline = steady_clock::now() + kLongestPause;
    bool hasBegun = false;
    for (;;)
    {
        if (!received.empty() && !hasBegun)
        {
            hasBegun = true;
            deadline = steady_clock::now() + kLongestSending;
        }
        switch (FindHead(received, headLength))
        {
        case HeadState::Complete:
            return true;
        case HeadState::TooLong:
            Refuse(received.find('\n') == std::string::npos ? 414 : 431, "the request is too long");
            return false;
        case HeadState::Malformed:
            Refuse(400, "lines must end with CR and LF");
            return false;
        case HeadState::Incomplete:
            break;
        }
        const Exchange waited = WaitFor(socket, POLLIN, deadline, stop);
        if (waited == Exchange::Late && hasBegun)
            Refuse(408, "the request does not arrive");
        if (waited != Exchange::Done)
            return false;
        char bytes[4096];
        const ssize_t count = recv(socket, bytes, sizeof bytes, MSG_DONTWAIT);
        if (count < 0 && (errno == EAGAIN || errno == EINTR))
            continue;
        if (count <= 0)
            return false;
        received.append(bytes, static_cast<std::size_t>(count));
    }
}

bool HttpConnection::AnswerNext(const HttpHandler& handler, bool isLast)
{
    const HttpHead head = CheckHead(std::string_view(received).substr(0, headLength));
    received.erase(0, headLength);
    if (head.status != 0)
    {
        Refuse(head.status, head.reason);
        return false;
    }
    bool closes = head.closes || isLast || IsReadable(stop);
    const std::string answer = RequestProcessor(handler).Answer(head, closes);
    return SendAll(socket, answer, steady_clock::now() + kLongestReading) == Exchange::Done && !closes;
}

void HttpConnection::Refuse(int status, std::string_view reason, bool lingers)
{
    std::string answer = "HTTP/1.1 " + std::to_string(status) + ' ' + StatusText(status) + "\r\n";
    if (status == 405)
        answer += "Allow: GET, HEAD\r\n";
    if (status == 503)
        answer += "Retry-After: 1\r\n";
    answer += "Content-Type: text/plain\r\nContent-Length: " + std::to_string(reason.size() + 1) +
              "\r\nConnection: close\r\n\r\n";
    answer.append(reason).append("\n");
    const Deadline deadline = steady_clock::now() + kLinger;
    if (!lingers)
    {
        send(socket, answer.data(), answer.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
        return;
    }
    // To close with bytes unread would take the answer away from the client again.
    if (SendAll(socket, answer, deadline) != Exchange::Done)
        return;
    shutdown(socket, SHUT_WR);
    char bytes[4096];
    for (std::size_t read = 0; read < kMostLingering && WaitFor(socket, POLLIN, deadline, stop) == Exchange::Done;)
    {
        const ssize_t count = recv(socket, bytes, sizeof bytes, MSG_DONTWAIT);
        if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR))
            return;
        read += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
}

} // namespace txmap
