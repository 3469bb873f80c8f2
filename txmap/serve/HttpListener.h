#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <txmap/serve/HttpMessage.h>

namespace txmap
{

/// Listens on an address, and answers each connection on a thread of its own, of which there are so many and no more:
/// who comes when all are taken gets 503. cpp-httplib reads requests and writes answers; its own loops are not used,
/// because they wait for slow clients without end and take lines of any length.
class HttpListener
{
public:
    /// @param address as `--bind` has it. @param port 0 for any that is free. @throw Failure when it cannot listen
    /// there.
    HttpListener(const std::string& address, int port, HttpHandler handler);
    ~HttpListener();
    HttpListener(const HttpListener&) = delete;
    HttpListener& operator=(const HttpListener&) = delete;

    int Port() const { return port; }
    /// Takes no more connections, and ends those that wait for a request.
    void StopListening();
    /// Connections that are open.
    std::size_t Connections() const { return connections; }
    /// Waits until all connections have ended.
    void Join();

private:
    void Listen(const std::string& address, int wantedPort);
    void Accept();
    void Serve();

    const HttpHandler handler;
    int port = 0;
    int listening = -1;
    int stopEvent = -1; ///< Can be read when the listener stops.
    std::atomic<std::size_t> connections{0};
    std::mutex mutex;
    std::condition_variable arrived;
    std::deque<int> accepted; ///< Connections that a thread is about to take.
    bool isStopping = false;
    std::vector<std::thread> threads;
};

} // namespace txmap
