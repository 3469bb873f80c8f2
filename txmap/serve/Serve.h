#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace txmap
{

/// How a style is served.
struct ServeOptions
{
    std::string style; ///< The file.
    std::string address = "127.0.0.1";
    int port = 8080;                      ///< 0 for any that is free.
    std::size_t workers = 0;              ///< 0 for as many as there are processors.
    std::size_t queue = 64;               ///< Pictures that may wait.
    double timeout = 30.0;                ///< Seconds that a client waits for a picture.
    std::size_t cacheBytes = 256u << 20u; ///< For what was drawn.
    bool lenient = false;
    std::string plugin = "txpluginqt";
};

/// Serves a style until SIGTERM or SIGINT. @param warn takes messages from several threads, @param tell the address.
/// @throw Failure when it cannot begin.
void ServeMap(const ServeOptions& options, const std::function<void(const std::string&)>& warn,
              const std::function<void(const std::string&)>& tell);

} // namespace txmap
