#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace txmap
{

using Deadline = std::chrono::steady_clock::time_point;

/// How an exchange with a socket ended.
enum class Exchange
{
    Done,
    Closed,  ///< The other side is gone.
    Late,    ///< The deadline has passed.
    Stopped, ///< The descriptor that stops it became readable.
};

/// Waits until a socket can be read, or written. @param stop a descriptor that ends the waiting when it can be read; -1
/// for none.
Exchange WaitFor(int socket, short events, Deadline deadline, int stop = -1);

/// Sends bytes whole. No signal comes of it.
Exchange SendAll(int socket, std::string_view bytes, Deadline deadline, int stop = -1);

/// A message between server and worker: its length, and so many bytes.
Exchange SendFrame(int socket, std::string_view message, Deadline deadline, int stop = -1);
Exchange ReceiveFrame(int socket, std::string& message, Deadline deadline, int stop = -1);

} // namespace txmap
