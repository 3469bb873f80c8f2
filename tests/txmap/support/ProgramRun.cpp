#include "ProgramRun.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

#include "TemporaryFolder.h"

namespace
{

/// Later entries win, as the first of a name is the one that programs find.
std::vector<std::string> EnvironmentWith(const std::vector<std::string>& added)
{
    std::vector<std::string> result = added;
    for (char** entry = environ; *entry; ++entry)
        result.emplace_back(*entry);
    return result;
}

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

ProgramRun RunTxmap(const std::vector<std::string>& arguments, const std::vector<std::string>& environment)
{
    const TemporaryFolder folder;
    const std::string output = folder / "output";
    const std::string errors = folder / "errors";
    std::vector<std::string> command = {TX_TEST_TXMAP};
    command.insert(command.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables = EnvironmentWith(environment);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT, 0600);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, errors.c_str(), O_WRONLY | O_CREAT, 0600);
    pid_t process = 0;
    const int failed =
        posix_spawn(&process, TX_TEST_TXMAP, &files, nullptr, Pointers(command).data(), Pointers(variables).data());
    posix_spawn_file_actions_destroy(&files);
    int status = 0;
    if (failed != 0 || waitpid(process, &status, 0) != process)
        throw std::runtime_error("txmap cannot be run");

    ProgramRun run;
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.output = ContentOf(output);
    run.errors = ContentOf(errors);
    return run;
}

std::string DataFile(const std::string& name) { return std::string(TX_TEST_DATA) + "/" + name; }
