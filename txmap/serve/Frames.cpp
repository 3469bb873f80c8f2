#include <txmap/serve/Frames.h>

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstring>

namespace txmap
{
namespace
{

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// More than any picture; what says to be longer is no message.
constexpr std::uint32_t kLongestFrame = std::uint32_t(1) << 30;

Exchange ReceiveAll(int socket, char* bytes, std::size_t count, Deadline deadline, int stop)
{
    while (count > 0)
    {
        if (const Exchange waited = WaitFor(socket, POLLIN, deadline, stop); waited != Exchange::Done)
            return waited;
        const ssize_t received = recv(socket, bytes, count, MSG_DONTWAIT);
        if (received < 0 && (errno == EAGAIN || errno == EINTR))
            continue;
        if (received <= 0)
            return Exchange::Closed;
        bytes += received;
        count -= static_cast<std::size_t>(received);
    }
    return Exchange::Done;
}

} // namespace

Exchange WaitFor(int socket, short events, Deadline deadline, int stop)
{
    for (;;)
    {
        const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now()).count();
        if (left <= 0)
            return Exchange::Late;
        pollfd descriptors[] = {{socket, events, 0}, {stop, POLLIN, 0}};
        const auto wait = static_cast<int>(std::min<long long>(left, INT_MAX));
        const int ready = poll(descriptors, 2, wait);
        if (ready < 0 && errno != EINTR)
            return Exchange::Closed;
        if (ready <= 0)
            continue;
        if (descriptors[1].revents != 0)
            return Exchange::Stopped;
        return Exchange::Done;
    }
}

Exchange SendAll(int socket, std::string_view bytes, Deadline deadline, int stop)
{
    while (!bytes.empty())
    {
        const ssize_t sent = send(socket, bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
        if (sent >= 0)
        {
            bytes.remove_prefix(static_cast<std::size_t>(sent));
            continue;
        }
        if (errno != EAGAIN && errno != EINTR)
            return Exchange::Closed;
        if (const Exchange waited = WaitFor(socket, POLLOUT, deadline, stop); waited != Exchange::Done)
            return waited;
    }
    return Exchange::Done;
}

Exchange SendFrame(int socket, std::string_view message, Deadline deadline, int stop)
{
    const auto length = static_cast<std::uint32_t>(message.size());
    char head[sizeof length];
    std::memcpy(head, &length, sizeof length);
    const Exchange sent = SendAll(socket, {head, sizeof head}, deadline, stop);
    return sent == Exchange::Done ? SendAll(socket, message, deadline, stop) : sent;
}

Exchange ReceiveFrame(int socket, std::string& message, Deadline deadline, int stop)
{
    char head[sizeof(std::uint32_t)];
    if (const Exchange received = ReceiveAll(socket, head, sizeof head, deadline, stop); received != Exchange::Done)
        return received;
    std::uint32_t length = 0;
    std::memcpy(&length, head, sizeof length);
    if (length > kLongestFrame)
        return Exchange::Closed;
    message.resize(length);
    return ReceiveAll(socket, message.data(), message.size(), deadline, stop);
}

} // namespace txmap
