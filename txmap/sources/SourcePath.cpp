#include <txmap/sources/SourcePath.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>

#include <txmap/support/Failure.h>

namespace txmap
{

namespace fs = std::filesystem;

namespace
{

const std::string kFileScheme = "file://";

/// The length of the scheme that an address begins with, as "https" of "https://tiles"; 0 for a path.
std::size_t SchemeLength(const std::string& address)
{
    const std::size_t end = address.find("://");
    if (end == std::string::npos || end == 0)
        return 0;
    const bool isName =
        std::all_of(address.begin(), address.begin() + static_cast<std::ptrdiff_t>(end),
                    [](unsigned char c) { return std::isalnum(c) || c == '+' || c == '-' || c == '.'; });
    return isName ? end : 0;
}

int HexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const int lower = std::tolower(static_cast<unsigned char>(c));
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Undoes the %20 of addresses.
std::string Decoded(const std::string& text)
{
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const bool isCode =
            text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 && HexDigit(text[i + 2]) >= 0;
        decoded += isCode ? static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2])) : text[i];
        i += isCode ? 2 : 0;
    }
    return decoded;
}

} // namespace

bool StartsWithIgnoringCase(const std::string& text, const std::string& start)
{
    return text.size() >= start.size() &&
           std::equal(start.begin(), start.end(), text.begin(),
                      [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

bool IsRemote(const std::string& address)
{
    // Two slashes at the beginning mean the scheme of the page in a browser.
    if (address.compare(0, 2, "//") == 0)
        return true;
    for (const char* const scheme : {"http://", "https://", "ftp://", "ftps://", "ws://", "wss://", "s3://"})
        if (StartsWithIgnoringCase(address, scheme))
            return true;
    // GDAL also fetches what these name, wherever in a path they stand: "/vsizip//vsicurl/…", "/vsicurl?url=…".
    for (const char* const system :
         {"/vsicurl", "/vsis3", "/vsigs", "/vsiaz", "/vsiadls", "/vsioss", "/vsiswift", "/vsiwebhdfs", "/vsihdfs"})
        if (address.find(system) != std::string::npos)
            return true;
    return false;
}

SourceFolder SourceFolder::Of(const std::string& file) { return SourceFolder(fs::path(file).parent_path().string()); }

std::string SourceFolder::PathOf(const std::string& address) const
{
    if (IsRemote(address))
        throw Failure(ExitCode::Data, address + ": would be fetched over a network, which is not done");
    if (SchemeLength(address) > 0 && !StartsWithIgnoringCase(address, kFileScheme))
        throw Failure(ExitCode::Data, address + ": is an address of a kind that is not known");
    std::string path = address;
    if (StartsWithIgnoringCase(address, kFileScheme))
    {
        path = Decoded(address.substr(kFileScheme.size()));
        // "file://localhost/data" names a host, and it is this one.
        if (StartsWithIgnoringCase(path, "localhost/"))
            path = path.substr(9);
        // "file://data/x.json" would be a file of the computer "data"; people mean a path from here.
    }
    if (fs::path(path).is_absolute() || folder.empty())
        return path;
    return (fs::path(folder) / path).string();
}

std::string ReadSourceFile(const std::string& path, std::size_t limit)
{
    std::error_code status;
    const auto type = fs::status(path, status).type();
    if (type == fs::file_type::not_found)
        throw Failure(ExitCode::Data, path + ": no such file");
    if (type == fs::file_type::directory)
        throw Failure(ExitCode::Data, path + ": is a directory, where a file is wanted");
    std::ifstream stream(path, std::ios::binary);
    std::string content;
    constexpr std::size_t kBlock = 1 << 16;
    // A pipe or a device has no size to ask for. Behind the end of a file is room for the end to be found there.
    const std::uintmax_t expected = type == fs::file_type::regular ? fs::file_size(path, status) : 0;
    std::size_t block = status || expected > limit ? kBlock : static_cast<std::size_t>(expected) + 1;
    while (stream)
    {
        const std::size_t size = content.size();
        content.resize(size + block);
        stream.read(&content[size], static_cast<std::streamsize>(block));
        content.resize(size + static_cast<std::size_t>(stream.gcount()));
        block = std::min(std::max(kBlock, content.size()), limit - std::min(limit, content.size()) + 1);
        if (content.size() > limit)
            throw Failure(ExitCode::Data, path + ": is larger than " + std::to_string(limit >> 20) + " MiB");
    }
    if (!stream.eof())
        throw Failure(ExitCode::Data, path + ": cannot be read");
    return content;
}

} // namespace txmap
