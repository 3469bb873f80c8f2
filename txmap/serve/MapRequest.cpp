#include <txmap/serve/MapRequest.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <map>
#include <optional>
#include <vector>

#include <txmap/map/BoxRules.h>
#include <txmap/map/Projection.h>
#include <txmap/support/Numbers.h>

namespace txmap
{
namespace
{

using Parameters = std::map<std::string, std::string, std::less<>>;

constexpr std::size_t kLongestVersion = 32;

std::vector<std::string_view> Split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (;;)
    {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

bool TakeSuffix(std::string_view& text, std::string_view suffix)
{
    if (text.size() < suffix.size() || text.substr(text.size() - suffix.size()) != suffix)
        return false;
    text.remove_suffix(suffix.size());
    return true;
}

/// A number without sign and without leading zeros, so that each tile has one address.
std::optional<int> Index(std::string_view text)
{
    const std::vector<int> numbers = NumbersIn<int>(text, ',');
    const bool isPlain = !text.empty() && text[0] != '-' && (text[0] != '0' || text.size() == 1);
    return isPlain && numbers.size() == 1 ? std::optional<int>(numbers[0]) : std::nullopt;
}

std::optional<std::string> Decoded(std::string_view text)
{
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at)
    {
        if (text[at] != '%')
        {
            result += text[at];
            continue;
        }
        const std::string_view digits = text.substr(at + 1, 2);
        int code = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
        if (digits.size() != 2 || error != std::errc() || end != digits.data() + 2 || code < 0)
            return std::nullopt;
        result += static_cast<char>(code);
        at += 2;
    }
    return result;
}

/// Nothing when the query is broken, or has a name twice or one that is not known.
std::optional<Parameters> ReadQuery(std::string_view query, const std::vector<std::string_view>& known)
{
    Parameters parameters;
    for (const std::string_view part : query.empty() ? std::vector<std::string_view>() : Split(query, '&'))
    {
        const std::size_t sign = part.find('=');
        if (sign == std::string_view::npos)
            return std::nullopt;
        const std::string_view name = part.substr(0, sign);
        const std::optional<std::string> value = Decoded(part.substr(sign + 1));
        const bool isKnown = std::find(known.begin(), known.end(), name) != known.end();
        if (!value || !isKnown || !parameters.emplace(name, *value).second)
            return std::nullopt;
    }
    return parameters;
}

MapRequest ReadTile(std::string_view path, std::string_view query)
{
    TileRequest tile;
    if (!TakeSuffix(path, ".png"))
        return BadRequest{404, "tiles are /ZOOM/COLUMN/ROW.png or /ZOOM/COLUMN/ROW@2x.png"};
    if (TakeSuffix(path, "@2x"))
        tile.scale = 2;
    const std::vector<std::string_view> parts = Split(path.substr(1), '/');
    std::vector<int> numbers;
    for (const std::string_view part : parts)
        if (const std::optional<int> number = Index(part))
            numbers.push_back(*number);
    if (parts.size() != 3 || numbers.size() != 3)
        return BadRequest{404, "tiles are /ZOOM/COLUMN/ROW.png or /ZOOM/COLUMN/ROW@2x.png"};
    if (numbers[0] > kMostServedZoom)
        return BadRequest{404, "zooms go from 0 to " + std::to_string(kMostServedZoom)};
    const int side = 1 << numbers[0];
    if (numbers[1] >= side || numbers[2] >= side)
        return BadRequest{404, "columns and rows of this zoom go from 0 to " + std::to_string(side - 1)};
    const std::optional<Parameters> parameters = ReadQuery(query, {"v"});
    if (!parameters)
        return BadRequest{400, "a tile takes no parameters"};
    tile.zoom = numbers[0];
    tile.column = numbers[1];
    tile.row = numbers[2];
    if (const auto version = parameters->find("v"); version != parameters->end())
        tile.version = version->second.substr(0, kLongestVersion);
    return tile;
}

MapRequest ReadView(std::string_view query)
{
    static const char* const kUsage = "a picture is /render?bbox=WEST,SOUTH,EAST,NORTH&size=WIDTHxHEIGHT[&scale=1|2]";
    const std::optional<Parameters> parameters = ReadQuery(query, {"bbox", "size", "scale"});
    if (!parameters || parameters->count("bbox") == 0 || parameters->count("size") == 0)
        return BadRequest{400, kUsage};
    ViewRequest view;
    const std::vector<double> edges = NumbersIn<double>(parameters->at("bbox"), ',');
    if (edges.size() != 4)
        return BadRequest{400, kUsage};
    view.box = {edges[0], edges[1], edges[2], edges[3]};
    if (const std::string problem = CompleteBox(view.box, Projection::WebMercator().MaxLatitude()); !problem.empty())
        return BadRequest{400, "bbox: " + problem};
    const auto scale = parameters->find("scale");
    if (scale != parameters->end() && scale->second != "1" && scale->second != "2")
        return BadRequest{400, "scale: must be 1 or 2"};
    view.scale = scale != parameters->end() && scale->second == "2" ? 2 : 1;
    const std::vector<int> sides = NumbersIn<int>(parameters->at("size"), 'x');
    if (sides.size() != 2)
        return BadRequest{400, kUsage};
    for (const int side : sides)
        if (side < 1 || side > kLongestServedSide / view.scale)
            return BadRequest{400, "size: each side must be from 1 to " + std::to_string(kLongestServedSide) +
                                       " pixels, times the scale"};
    view.size = {sides[0], sides[1]};
    return view;
}

bool IsFileName(std::string_view name)
{
    return std::all_of(name.begin(), name.end(),
                       [](char letter)
                       { return std::isalnum(static_cast<unsigned char>(letter)) || letter == '.' || letter == '-'; });
}

} // namespace

MapRequest ReadTarget(std::string_view target)
{
    const std::size_t mark = std::min(target.find('?'), target.size());
    const std::string_view path = target.substr(0, mark);
    const std::string_view query = target.substr(std::min(mark + 1, target.size()));
    if (path.empty() || path[0] != '/')
        return BadRequest{400, "a path begins with /"};
    if (path == "/render")
        return ReadView(query);
    if (path.size() > 1 && std::isdigit(static_cast<unsigned char>(path[1])))
        return ReadTile(path, query);
    if (!query.empty())
        return BadRequest{400, "this takes no parameters"};
    if (path == "/style.json")
        return StyleRequest{};
    if (path == "/health")
        return HealthRequest{};
    if (path == "/state")
        return StateRequest{};
    if (const std::string_view name = path.substr(1); IsFileName(name))
        return FileRequest{std::string(name)};
    return BadRequest{404, "there is no such page"};
}

} // namespace txmap
