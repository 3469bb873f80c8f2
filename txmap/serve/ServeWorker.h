#pragma once

#include <string>

namespace txmap
{

/// What a worker draws.
struct WorkerLook
{
    std::string style; ///< The file, whose text comes as the first message.
    std::string plugin;
    bool lenient = false;
};

/// Draws the jobs that come over standard input, which is a socket, until it is closed.
void ServeJobs(const WorkerLook& look);

} // namespace txmap
