#include "ChildProcess.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <iostream>

Outcome RunCommand(const std::string& command)
{
    Outcome outcome;
    std::FILE* const pipe = popen((command + " 2>&1").c_str(), "r");
    if (!pipe)
        return outcome;
    std::array<char, 4096> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
        outcome.log.append(buffer.data(), count);
    const int status = pclose(pipe);
    if (WIFEXITED(status))
        outcome.exitCode = WEXITSTATUS(status);
    return outcome;
}

void Expectations::Expect(bool condition, const std::string& what)
{
    if (condition)
        return;
    ++problems;
    std::cerr << "expected: " << what << std::endl;
}
