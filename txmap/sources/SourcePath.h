#pragma once

#include <string>

namespace txmap
{

/// Where the data of a style lies.
class SourceFolder
{
public:
    /// @param folder what relative paths start from: the folder of the style, or of the file that names the path. Empty
    /// for the working directory.
    explicit SourceFolder(std::string folder) : folder(std::move(folder)) {}

    /// The folder of a file.
    static SourceFolder Of(const std::string& file);

    /// The path of a file that a style names, as a path or as an address that begins with "file://".
    /// @throw Failure with `ExitCode::Data` for an address that would be looked up on a network.
    std::string PathOf(const std::string& address) const;

    const std::string& Path() const { return folder; }

private:
    std::string folder;
};

/// True for an address that would be looked up on a network: one of a web server, or one of GDAL's own file systems for
/// them.
bool IsRemote(const std::string& address);

/// True when @p text begins with @p start, in whatever case.
bool StartsWithIgnoringCase(const std::string& text, const std::string& start);

/// All bytes of a file. @throw Failure with `ExitCode::Data` if there is none, it cannot be read, or it is larger than
/// @p limit bytes.
std::string ReadSourceFile(const std::string& path, std::size_t limit);

} // namespace txmap
