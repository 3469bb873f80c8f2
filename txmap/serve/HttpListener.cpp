#include <txmap/serve/HttpListener.h>

#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <memory>
#include <system_error>
#include <utility>

#include <txmap/serve/HttpConnection.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

using std::chrono::milliseconds;

constexpr std::size_t kMostConnections = 128;
constexpr int kBacklog = 128;

struct AddressList
{
    addrinfo* first = nullptr;

    AddressList() = default;
    AddressList(const AddressList&) = delete;
    AddressList& operator=(const AddressList&) = delete;
    ~AddressList()
    {
        if (first)
            freeaddrinfo(first);
    }
};

int PortOf(int socket)
{
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    getsockname(socket, reinterpret_cast<sockaddr*>(&address), &length);
    return ntohs(address.ss_family == AF_INET6 ? reinterpret_cast<const sockaddr_in6&>(address).sin6_port
                                               : reinterpret_cast<const sockaddr_in&>(address).sin_port);
}

} // namespace

HttpListener::HttpListener(const std::string& address, int wantedPort, HttpHandler handler)
    : handler(std::move(handler)), stopEvent(eventfd(0, EFD_CLOEXEC))
{
    Listen(address, wantedPort);
    port = PortOf(listening);
    threads.emplace_back([this] { Accept(); });
    for (std::size_t i = 0; i < kMostConnections; ++i)
        threads.emplace_back([this] { Serve(); });
}

HttpListener::~HttpListener()
{
    StopListening();
    Join();
    close(stopEvent);
}

void HttpListener::Listen(const std::string& address, int wantedPort)
{
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_PASSIVE | AI_NUMERICHOST | AI_NUMERICSERV;
    AddressList list;
    if (getaddrinfo(address.c_str(), std::to_string(wantedPort).c_str(), &hints, &list.first) != 0)
        throw Failure(ExitCode::Usage, "--bind " + address + ": must be an address, such as 127.0.0.1 or ::1");
    listening = socket(list.first->ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const int yes = 1;
    // Connections of an earlier server that linger do not keep the port. A running server does.
    if (listening >= 0)
        setsockopt(listening, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    if (listening >= 0 && bind(listening, list.first->ai_addr, list.first->ai_addrlen) == 0 &&
        listen(listening, kBacklog) == 0)
        return;
    const int error = errno;
    if (listening >= 0)
        close(listening);
    close(stopEvent);
    const std::string place = "--port " + std::to_string(wantedPort);
    if (error == EADDRINUSE)
        throw Failure(ExitCode::Drawing, place + ": the port is in use");
    throw Failure(ExitCode::Drawing,
                  place + ": cannot listen on " + address + ": " + std::generic_category().message(error));
}

void HttpListener::Accept()
{
    while (WaitFor(listening, POLLIN, Deadline::max(), stopEvent) == Exchange::Done)
    {
        const int connection = accept4(listening, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (connection < 0)
        {
            // Too many open files, for example: those who are served will close some.
            if (errno != EAGAIN && errno != EINTR && errno != ECONNABORTED)
                std::this_thread::sleep_for(milliseconds(20));
            continue;
        }
        if (connections >= kMostConnections)
        {
            HttpConnection(connection, stopEvent).Refuse(503, "too many connections", false);
            continue;
        }
        ++connections;
        {
            const std::lock_guard<std::mutex> guard(mutex);
            accepted.push_back(connection);
        }
        arrived.notify_one();
    }
    close(listening);
}

void HttpListener::Serve()
{
    for (;;)
    {
        int connection = -1;
        {
            std::unique_lock<std::mutex> lock(mutex);
            arrived.wait(lock, [&] { return isStopping || !accepted.empty(); });
            if (accepted.empty())
                return;
            connection = accepted.front();
            accepted.pop_front();
        }
        try
        {
            HttpConnection(connection, stopEvent).Serve(handler);
        }
        catch (const std::exception&)
        {
            // Without memory for an answer the connection just ends.
        }
        --connections;
    }
}

void HttpListener::StopListening()
{
    {
        const std::lock_guard<std::mutex> guard(mutex);
        isStopping = true;
    }
    eventfd_write(stopEvent, 1);
    arrived.notify_all();
}

void HttpListener::Join()
{
    for (std::thread& thread : threads)
        thread.join();
    threads.clear();
}

} // namespace txmap
