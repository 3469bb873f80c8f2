#pragma once

#include <string>

/// How a command ended, and what it printed. The exit code is -1 when it did not end by itself.
struct Outcome
{
    int exitCode = -1;
    std::string log;
};

/// Runs a command of the shell; its messages are part of the log.
Outcome RunCommand(const std::string& command);

/// What a child process found not to be as expected: each is printed, and their number decides its exit code.
class Expectations
{
public:
    void Expect(bool condition, const std::string& what);
    /// For the end of `main`.
    int ExitCode() const { return problems == 0 ? 0 : 1; }

private:
    int problems = 0;
};
