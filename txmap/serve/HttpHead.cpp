#include <txmap/serve/HttpHead.h>

#include <algorithm>
#include <cctype>

namespace txmap
{
namespace
{

constexpr std::string_view kLineEnd = "\r\n";

bool IsVisible(char letter) { return letter > ' ' && letter < '\x7f'; }

bool IsNameLetter(char letter)
{
    return std::isalnum(static_cast<unsigned char>(letter)) != 0 ||
           std::string_view("!#$%&'*+-.^_`|~").find(letter) != std::string_view::npos;
}

bool IsValueLetter(char letter)
{
    return letter == '\t' || (static_cast<unsigned char>(letter) >= ' ' && letter != '\x7f');
}

bool IsSame(std::string_view a, std::string_view b)
{
    const auto lower = [](char letter) { return std::tolower(static_cast<unsigned char>(letter)); };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return lower(x) == lower(y); });
}

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string_view::npos ? "" : text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

/// Takes the first line off a text.
std::string_view TakeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find(kLineEnd), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + kLineEnd.size(), text.size()));
    return line;
}

HttpHead Refused(int status, const char* reason) { return {status, reason, {}, true}; }

HttpHead CheckRequestLine(std::string_view line)
{
    const std::size_t first = line.find(' ');
    const std::size_t last = line.rfind(' ');
    if (first == std::string_view::npos || first == last)
        return Refused(400, "the request line must be: METHOD TARGET HTTP/1.1");
    const std::string_view method = line.substr(0, first);
    const std::string_view target = line.substr(first + 1, last - first - 1);
    const std::string_view version = line.substr(last + 1);
    if (method.empty() || !std::all_of(method.begin(), method.end(), IsNameLetter))
        return Refused(400, "this is no method");
    if (target.size() > kLongestTarget)
        return Refused(414, "the target is too long");
    if (target.empty() || target[0] != '/' || !std::all_of(target.begin(), target.end(), IsVisible))
        return Refused(400, "the target must be a path of visible letters");
    if (version.substr(0, 5) != "HTTP/")
        return Refused(400, "the request line must be: METHOD TARGET HTTP/1.1");
    if (version != "HTTP/1.1" && version != "HTTP/1.0")
        return Refused(505, "this server speaks HTTP/1.1");
    if (method != "GET" && method != "HEAD")
        return Refused(405, "only GET and HEAD are answered");
    return {};
}

} // namespace

HeadState FindHead(std::string_view received, std::size_t& length)
{
    const std::size_t end = received.find("\r\n\r\n");
    length = end == std::string_view::npos ? received.size() : end + 4;
    const std::string_view head = received.substr(0, length);
    // A client that ends lines otherwise would be waited for in vain.
    for (std::size_t at = head.find('\n'); at != std::string_view::npos; at = head.find('\n', at + 1))
        if (at == 0 || head[at - 1] != '\r')
            return HeadState::Malformed;
    if (length > kLongestHead)
        return HeadState::TooLong;
    return end == std::string_view::npos ? HeadState::Incomplete : HeadState::Complete;
}

HttpHead CheckHead(std::string_view head)
{
    const std::string_view requestLine = TakeLine(head);
    HttpHead result = CheckRequestLine(requestLine);
    if (result.status != 0)
        return result;
    result.text.append(requestLine).append(kLineEnd);
    std::size_t headers = 0;
    std::size_t hosts = 0;
    for (std::string_view line = TakeLine(head); !line.empty(); line = TakeLine(head))
    {
        if (++headers > kMostHeaders)
            return Refused(431, "there are too many headers");
        const std::size_t colon = line.find(':');
        const std::string_view name = line.substr(0, colon);
        if (colon == std::string_view::npos || name.empty() || !std::all_of(name.begin(), name.end(), IsNameLetter))
            return Refused(400, "a header must be: NAME: VALUE");
        const std::string_view value = Trimmed(line.substr(colon + 1));
        if (!std::all_of(value.begin(), value.end(), IsValueLetter))
            return Refused(400, "a header has control characters");
        if (IsSame(name, "Transfer-Encoding") || (IsSame(name, "Content-Length") && value != "0"))
            return Refused(400, "a request must not have a body");
        if (IsSame(name, "Host") && ++hosts > 1)
            return Refused(400, "there is more than one host");
        if (IsSame(name, "Connection") && IsSame(value, "close"))
            result.closes = true;
        // A long list of ranges would make a long answer of a short request, and packing takes longer than sending.
        if (!IsSame(name, "Range") && !IsSame(name, "If-Range") && !IsSame(name, "Expect") &&
            !IsSame(name, "Accept-Encoding"))
            result.text.append(line).append(kLineEnd);
    }
    if (hosts == 0 && requestLine.back() == '1')
        return Refused(400, "there is no host");
    result.text.append(kLineEnd);
    return result;
}

} // namespace txmap
