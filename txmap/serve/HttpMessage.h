#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace txmap
{

/// A request as the service sees it: checked, with GET or HEAD as its method.
struct HttpRequest
{
    std::string target;
    std::string ifNoneMatch; ///< The header; empty for none.
};

/// What is sent back.
struct HttpAnswer
{
    int status = 200;
    std::string type; ///< Empty for no content.
    std::string body;
    std::vector<std::pair<std::string, std::string>> headers;
};

using HttpHandler = std::function<HttpAnswer(const HttpRequest&)>;

} // namespace txmap
