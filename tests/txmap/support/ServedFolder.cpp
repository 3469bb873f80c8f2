#include "ServedFolder.h"

std::string SquareStyle(const std::string& color)
{
    return R"({"version": 8, "sources": {"s": {"type": "geojson", "data": {"type": "Polygon",
        "coordinates": [[[-90, -60], [90, -60], [90, 60], [-90, 60], [-90, -60]]]}}}, "layers": [
        {"id": "b", "type": "background", "paint": {"background-color": "#00ff00"}},
        {"id": "f", "type": "fill", "source": "s", "paint": {"fill-color": ")" +
           color + R"(", "fill-antialias": false}}]})";
}

ServedFolder::ServedFolder(const std::vector<std::string>& options, const std::string& content)
    : style(folder.Write("style.json", content))
{
    std::vector<std::string> arguments = {style, "--plugin", TX_TEST_PLUGIN};
    arguments.insert(arguments.end(), options.begin(), options.end());
    server = std::make_unique<ServerRun>(arguments);
}

Pixel ServedFolder::Middle() const
{
    const HttpReply reply = server->Get("/0/0/0.png");
    return reply.status == 200 ? PictureOf(reply).At(256, 256) : Pixel{};
}

std::future<HttpReply> GetLater(const ServerRun& server, const std::string& target)
{
    return std::async(std::launch::async, [&server, target] { return server.Get(target); });
}
