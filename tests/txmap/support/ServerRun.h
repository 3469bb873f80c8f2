#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

#include "TemporaryFolder.h"

/// What a server answered.
struct HttpReply
{
    int status = 0;                             ///< 0 for no answer.
    std::map<std::string, std::string> headers; ///< By name in lower case.
    std::string body;
    bool isWhole = false; ///< The body is as long as was said.
};

/// A connection to a server on this machine.
class HttpClient
{
public:
    explicit HttpClient(int port);
    ~HttpClient();
    HttpClient(const HttpClient&) = delete;
    HttpClient& operator=(const HttpClient&) = delete;

    /// Sends bytes as they are. False when the server takes no more.
    bool Send(const std::string& bytes);
    /// Reads one answer. @param hasBody false for that to HEAD.
    HttpReply Receive(bool hasBody = true);
    /// Whether the server has closed the connection, now or within a few seconds.
    bool IsClosed();

private:
    bool More();

    int socket = -1;
    std::string received;
};

/// Asks for a target on a connection of its own. @param headers lines with their ends.
HttpReply Get(int port, const std::string& target, const std::string& headers = "");

/// txmap serve as a process of its own, on a free port.
class ServerRun
{
public:
    /// Starts it, and waits until it says where it listens.
    explicit ServerRun(const std::vector<std::string>& arguments);
    /// Kills it when it runs still.
    ~ServerRun();
    ServerRun(const ServerRun&) = delete;
    ServerRun& operator=(const ServerRun&) = delete;

    int Port() const { return port; }
    pid_t Process() const { return process; }
    std::string Output() const { return ContentOf(folder / "output"); }
    std::string Errors() const { return ContentOf(folder / "errors"); }
    /// The processes that draw.
    std::vector<pid_t> Workers() const;
    /// Sends a signal to all workers.
    void SignalWorkers(int signal) const;
    HttpReply Get(const std::string& target, const std::string& headers = "") const
    {
        return ::Get(port, target, headers);
    }
    /// A number that /health tells.
    double Health(const std::string& name) const;
    /// Sends a signal, waits for the end, and returns the exit code; -1 when a signal ended it.
    int Stop(int signal);

private:
    TemporaryFolder folder;
    pid_t process = -1;
    int port = 0;
};

/// Waits up to 20 seconds until something is so.
template <class Condition>
bool WaitUntil(const Condition& condition);

/// Sleeps for a moment.
void Pause();

template <class Condition>
bool WaitUntil(const Condition& condition)
{
    for (int i = 0; i < 2000; ++i)
    {
        if (condition())
            return true;
        Pause();
    }
    return false;
}
