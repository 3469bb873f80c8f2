#pragma once

#include <string>

namespace txmap
{

/// A file that appears under its name all at once or not at all: it is written under a temporary name in the same
/// folder, and renamed when it is complete. What was there before is kept until then. The temporary file is removed
/// when a signal ends the process.
class OutputFile
{
public:
    /// @param path where the file is to be, below a folder that exists. A symbolic link is followed.
    /// @param option what asks for the file, for messages.
    /// @throw Failure with `ExitCode::Drawing` when no file can be there.
    explicit OutputFile(const std::string& path, const std::string& option = "--output");
    /// Removes what was not committed.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// What messages call the file: the option, and the path as it was given.
    const std::string& Name() const { return name; }
    /// Makes the empty temporary file and returns its path.
    /// @param suffix what the path ends with, such as ".png"; empty for the suffix of the final one.
    /// @throw Failure with `ExitCode::Drawing` when that fails.
    const std::string& Begin(const std::string& suffix = {});
    /// The path of the temporary file, as long as there is one.
    const std::string& Path() const { return temporary; }
    /// Why nothing more can be written to the temporary file, in brackets, to be put behind a message: that the disk is
    /// full, for example. Empty when more can be written.
    std::string WriteProblem() const;
    /// Gives the temporary file its final name. @throw Failure with `ExitCode::Drawing` when that fails.
    void Commit();

private:
    [[noreturn]] void Fail(const std::string& reason) const;

    std::string name;      ///< What messages call it.
    std::string target;    ///< The path with links followed.
    std::string temporary; ///< The temporary file, as long as there is one.
};

} // namespace txmap
