#pragma once

#include <future>
#include <memory>
#include <string>
#include <vector>

#include "Picture.h"
#include "ServerRun.h"
#include "TemporaryFolder.h"

/// A square around the middle of a green world, in a colour. Its edges are not smooth: tiles draw the lines around
/// smooth areas a little wider than single pictures do, to join without seams.
std::string SquareStyle(const std::string& color);

/// A server of a style, with its folder.
struct ServedFolder
{
    explicit ServedFolder(const std::vector<std::string>& options = {},
                          const std::string& content = SquareStyle("#ff0000"));

    Picture PictureOf(const HttpReply& reply) const { return Picture(folder.Write("reply.png", reply.body)); }
    /// The colour in the middle of the world.
    Pixel Middle() const;

    TemporaryFolder folder;
    std::string style; ///< The file.
    std::unique_ptr<ServerRun> server;
};

/// Asks on a thread of its own.
std::future<HttpReply> GetLater(const ServerRun& server, const std::string& target);
