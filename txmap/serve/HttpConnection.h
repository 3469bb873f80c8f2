#pragma once

#include <string>
#include <string_view>

#include <txmap/serve/Frames.h>
#include <txmap/serve/HttpMessage.h>

namespace txmap
{

/// A connection to a client, closed with this object.
class HttpConnection
{
public:
    /// @param socket does not block. @param stop a descriptor that ends the waiting for requests when it can be read.
    HttpConnection(int socket, int stop) : socket(socket), stop(stop) {}
    ~HttpConnection();
    HttpConnection(const HttpConnection&) = delete;
    HttpConnection& operator=(const HttpConnection&) = delete;

    /// Answers requests until the client goes, sends something wrong or is too slow.
    void Serve(const HttpHandler& handler);
    /// Sends an answer of one line. @param lingers waits for the client to read it.
    void Refuse(int status, std::string_view reason, bool lingers = true);

private:
    bool ReadHead();
    bool AnswerNext(const HttpHandler& handler, bool isLast);

    const int socket;
    const int stop;
    std::string received; ///< What has come and is not answered yet.
    std::size_t headLength = 0;
};

} // namespace txmap
