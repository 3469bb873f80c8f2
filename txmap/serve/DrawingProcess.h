#pragma once

#include <sys/types.h>

#include <string>

#include <txmap/serve/Frames.h>
#include <txmap/serve/ServedStyle.h>
#include <txmap/serve/WorkerMessages.h>

namespace txmap
{

/// A process of this program that draws what it is told over a socket. It ends with this object, or with the server.
class DrawingProcess
{
public:
    /// Starts a process and has it read a style. @param stop a descriptor that ends the waiting when it can be read.
    /// @throw Failure when the style cannot be drawn, or the process ends.
    DrawingProcess(const ServedStyle& style, Deadline deadline, int stop);
    ~DrawingProcess();
    DrawingProcess(const DrawingProcess&) = delete;
    DrawingProcess& operator=(const DrawingProcess&) = delete;

    /// Draws. After anything but `Exchange::Done` the process is of no more use.
    Exchange Draw(const std::string& job, WorkerAnswer& answer, Deadline deadline, int stop);
    /// Whether the process still runs.
    bool IsAlive();
    const std::string& Version() const { return version; }
    const WorkerGreeting& Greeting() const { return greeting; }

private:
    void Start(const ServedStyle& style);
    void End();

    std::string version;
    int socket = -1;
    pid_t process = -1;
    WorkerGreeting greeting;
};

} // namespace txmap
