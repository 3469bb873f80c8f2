#include "ServerRun.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include <nlohmann/json.hpp>

namespace fs = std::filesystem;

void Pause() { std::this_thread::sleep_for(std::chrono::milliseconds(10)); }

HttpClient::HttpClient(int port) : socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (socket < 0 || connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        throw std::runtime_error("the server takes no connection");
}

HttpClient::~HttpClient() { close(socket); }

bool HttpClient::Send(const std::string& bytes)
{
    std::size_t sent = 0;
    while (sent < bytes.size())
    {
        const ssize_t count = send(socket, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

bool HttpClient::More()
{
    pollfd poller{socket, POLLIN, 0};
    char bytes[65536];
    if (poll(&poller, 1, 60000) <= 0)
        return false;
    const ssize_t count = recv(socket, bytes, sizeof bytes, 0);
    if (count <= 0)
        return false;
    received.append(bytes, static_cast<std::size_t>(count));
    return true;
}

HttpReply HttpClient::Receive(bool hasBody)
{
    HttpReply reply;
    while (received.find("\r\n\r\n") == std::string::npos)
        if (!More())
            return reply;
    const std::size_t end = received.find("\r\n\r\n") + 4;
    const std::string head = received.substr(0, end);
    received.erase(0, end);
    if (head.rfind("HTTP/1.1 ", 0) == 0)
        reply.status = std::atoi(head.c_str() + 9);
    for (std::size_t at = head.find("\r\n") + 2; at + 2 < head.size(); at = head.find("\r\n", at) + 2)
    {
        const std::size_t colon = head.find(": ", at);
        std::string name = head.substr(at, colon - at);
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
        reply.headers[name] = head.substr(colon + 2, head.find("\r\n", at) - colon - 2);
    }
    const std::size_t length = hasBody ? std::strtoul(reply.headers["content-length"].c_str(), nullptr, 10) : 0;
    while (received.size() < length)
        if (!More())
            break;
    reply.isWhole = received.size() >= length;
    reply.body = received.substr(0, length);
    received.erase(0, length);
    return reply;
}

bool HttpClient::IsClosed()
{
    while (More())
        ;
    char byte = 0;
    return recv(socket, &byte, 1, MSG_DONTWAIT) == 0;
}

HttpReply Get(int port, const std::string& target, const std::string& headers)
{
    HttpClient client(port);
    client.Send("GET " + target + " HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\n" + headers + "\r\n");
    return client.Receive();
}

ServerRun::ServerRun(const std::vector<std::string>& arguments)
{
    std::vector<std::string> command = {TX_TEST_TXMAP, "serve", "--port", "0"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(command.size() + 1);
    for (std::string& word : command)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, (folder / "output").c_str(), O_WRONLY | O_CREAT, 0600);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, (folder / "errors").c_str(), O_WRONLY | O_CREAT, 0600);
    const int failed = posix_spawn(&process, TX_TEST_TXMAP, &files, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    if (failed != 0)
        throw std::runtime_error("txmap cannot be run");
    static const std::string kBefore = "http://127.0.0.1:";
    const bool listens = WaitUntil(
        [&]
        {
            int status = 0;
            return Output().find("/\n") != std::string::npos || waitpid(process, &status, WNOHANG) == process;
        });
    const std::size_t at = Output().find(kBefore);
    if (!listens || at == std::string::npos)
        throw std::runtime_error("txmap does not listen: " + Errors());
    port = std::atoi(Output().c_str() + at + kBefore.size());
}

ServerRun::~ServerRun()
{
    if (process <= 0)
        return;
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
}

std::vector<pid_t> ServerRun::Workers() const
{
    std::vector<pid_t> workers;
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc"))
    {
        const std::string name = entry.path().filename().string();
        if (!std::all_of(name.begin(), name.end(), [](unsigned char letter) { return std::isdigit(letter) != 0; }))
            continue;
        // PID (NAME) STATE PARENT; the name may hold anything.
        const std::string status = ContentOf(entry.path() / "stat");
        const std::size_t end = status.rfind(") ");
        if (end != std::string::npos && status[end + 2] != 'Z' && std::atoi(status.c_str() + end + 4) == process)
            workers.push_back(std::atoi(name.c_str()));
    }
    return workers;
}

void ServerRun::SignalWorkers(int signal) const
{
    for (const pid_t worker : Workers())
        kill(worker, signal);
}

double ServerRun::Health(const std::string& name) const
{
    return nlohmann::json::parse(Get("/health").body).at(name).get<double>();
}

int ServerRun::Stop(int signal)
{
    kill(process, signal);
    int status = 0;
    waitpid(process, &status, 0);
    process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
