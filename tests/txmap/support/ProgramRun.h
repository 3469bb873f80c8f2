#pragma once

#include <string>
#include <vector>

/// What a run of a program left.
struct ProgramRun
{
    int exitCode = -1; ///< -1 when it was ended by a signal.
    std::string output;
    std::string errors;
};

/// Runs txmap as a process of its own. @p environment holds "NAME=value" texts on top of this process's own.
ProgramRun RunTxmap(const std::vector<std::string>& arguments, const std::vector<std::string>& environment = {});

/// A file of the project's own geodata.
std::string DataFile(const std::string& name);
