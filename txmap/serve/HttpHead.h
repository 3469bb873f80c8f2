#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace txmap
{

/// What a client may send at most.
constexpr std::size_t kLongestTarget = 2048;
constexpr std::size_t kLongestHead = 8192;
constexpr std::size_t kMostHeaders = 64;

/// How much of a request has arrived.
enum class HeadState
{
    Incomplete,
    Complete,
    TooLong,  ///< It is not complete and yet longer than `kLongestHead`.
    Malformed ///< A line does not end as lines do.
};

/// Looks for the end of the request line and the headers. @param length how long they are when they are complete.
HeadState FindHead(std::string_view received, std::size_t& length);

/// A request line with its headers, checked.
struct HttpHead
{
    int status = 0;      ///< 0 for a request to be answered, or the status that refuses it.
    std::string reason;  ///< Why it is refused, for people.
    std::string text;    ///< The head as it is handed on: without ranges of bytes and other wishes
                         ///< that are not fulfilled.
    bool closes = false; ///< The connection ends after the answer.
};

/// Checks a complete head: only GET and HEAD, without a body, with a plain path and one host.
HttpHead CheckHead(std::string_view head);

} // namespace txmap
