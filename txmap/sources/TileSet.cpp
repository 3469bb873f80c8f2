#include <txmap/sources/TileSet.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <stdexcept>

#include <txmap/map/Projection.h>
#include <txmap/sources/Gzip.h>
#include <txmap/sources/MbTiles.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/sources/TileFiles.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

constexpr std::size_t kTileJsonLimit = std::size_t{16} << 20;
constexpr int kDeepest = 64;
const std::string kMbTilesScheme = "mbtiles://";

[[noreturn]] void Fail(const std::string& reason) { throw Failure(ExitCode::Data, reason); }

/// The box of four degrees in the order west, south, east, north; all of the world if they make no sense.
MercatorBox BoundsOf(const std::vector<double>& degrees)
{
    if (degrees.size() != 4 || !std::all_of(degrees.begin(), degrees.end(), [](double d) { return std::isfinite(d); }))
        return {};
    const double west = std::max(degrees[0], -180.0), east = std::min(degrees[2], 180.0);
    if (west >= east || degrees[1] >= degrees[3])
        return {};
    const TZObjects::TXPoint northWest = ToMercator(west, degrees[3]);
    const TZObjects::TXPoint southEast = ToMercator(east, degrees[1]);
    return {northWest.x, northWest.y, southEast.x, southEast.y};
}

std::vector<double> NumbersIn(const std::string& text)
{
    std::vector<double> numbers;
    const char* at = text.c_str();
    while (*at)
    {
        char* end = nullptr;
        const double number = std::strtod(at, &end);
        if (end == at)
            return {};
        numbers.push_back(number);
        at = *end == ',' ? end + 1 : end;
    }
    return numbers;
}

} // namespace

TileSet::TileSet(const Json& source, const SourceFolder& folder, bool pictures, double ratio) : members(source)
{
    SourceFolder tileFolder = folder;
    if (const std::string url = Text("url"); !url.empty())
    {
        if (StartsWithIgnoringCase(url, kMbTilesScheme))
            OpenMbTiles(folder.PathOf(url.substr(kMbTilesScheme.size())));
        else
        {
            const std::string file = folder.PathOf(url);
            ReadTileJson(file);
            if (!source.contains("tiles"))
                tileFolder = SourceFolder::Of(file);
        }
    }
    ReadMembers(pictures);
    if (!stores.empty())
        return;
    if (const auto tiles = members.find("tiles"); tiles != members.end() && tiles->is_array())
        for (const Json& pattern : *tiles)
            if (pattern.is_string())
            {
                const std::string text = pattern.get<std::string>();
                if (StartsWithIgnoringCase(text, kMbTilesScheme))
                    OpenMbTiles(tileFolder.PathOf(text.substr(kMbTilesScheme.size())));
                else
                    stores.push_back(
                        std::make_unique<TileFiles>(tileFolder.PathOf(text), Text("scheme") == "tms", ratio));
            }
    if (stores.empty())
        Fail("a source names no tiles");
}

TileSet::~TileSet() = default;
TileSet::TileSet(TileSet&&) noexcept = default;

void TileSet::OpenMbTiles(const std::string& file)
{
    auto database = std::make_unique<MbTiles>(file);
    for (const auto& [name, text] : database->Metadata())
    {
        if (members.contains(name))
            continue;
        const std::vector<double> numbers = NumbersIn(text);
        if ((name == "minzoom" || name == "maxzoom") && numbers.size() == 1)
            members[name] = numbers[0];
        else if (name == "bounds" && numbers.size() == 4)
            members[name] = numbers;
    }
    stores.push_back(std::move(database));
}

void TileSet::ReadTileJson(const std::string& file)
{
    // What is nested without end is left out, because copies of it need the stack.
    const auto isShallow = [](int depth, Json::parse_event_t, const Json&) { return depth < kDeepest; };
    const Json tileJson = Json::parse(ReadSourceFile(file, kTileJsonLimit), isShallow, false);
    if (!tileJson.is_object())
        Fail(file + ": is no TileJSON");
    for (const char* const name : {"tiles", "minzoom", "maxzoom", "bounds", "scheme", "tileSize", "encoding"})
        if (const auto member = tileJson.find(name); member != tileJson.end() && !members.contains(name))
            members[name] = *member;
    if (!members.contains("tiles"))
        Fail(file + ": is no TileJSON, it names no tiles");
}

void TileSet::ReadMembers(bool pictures)
{
    const auto zoom = [&](const char* name, int usual)
    { return static_cast<int>(std::clamp(std::floor(Number(name).value_or(usual)), 0.0, double{kMaxTileZoom})); };
    pyramid.roundsZoom = pictures;
    pyramid.minZoom = zoom("minzoom", 0);
    pyramid.maxZoom = std::max(zoom("maxzoom", 22), pyramid.minZoom);
    // Geometry has no size in pixels.
    if (pictures)
        pyramid.tileSize = std::clamp(Number("tileSize").value_or(512.0), 64.0, 4096.0);
    if (const auto bounds = members.find("bounds"); bounds != members.end() && bounds->is_array())
    {
        std::vector<double> degrees;
        for (const Json& number : *bounds)
            if (number.is_number())
                degrees.push_back(number.get<double>());
        pyramid.bounds = BoundsOf(degrees);
    }
}

GeoBox TileSet::Extent() const { return Projection::WebMercator().ToDegrees(pyramid.bounds); }

std::string TileSet::Text(const char* member) const
{
    const auto found = members.find(member);
    return found != members.end() && found->is_string() ? found->get<std::string>() : std::string();
}

std::optional<double> TileSet::Number(const char* member) const
{
    const auto found = members.find(member);
    if (found == members.end() || !found->is_number())
        return std::nullopt;
    const auto number = found->get<double>();
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

TileStore& TileSet::StoreOf(const TileId& tile) const
{
    return *stores[static_cast<std::size_t>(tile.x + tile.y) % stores.size()];
}

std::optional<std::string> TileSet::Read(const TileId& tile, SourceDiagnostics& diagnostics)
{
    TileStore& store = StoreOf(tile);
    try
    {
        std::optional<std::string> data = store.Read(tile);
        if (!data || data->empty())
            return std::nullopt;
        if (IsCompressed(*data))
            return Unpacked(*data, TileStore::kLimit);
        return data;
    }
    catch (const Failure& failure)
    {
        diagnostics.Report(failure.what());
    }
    catch (const std::runtime_error& problem)
    {
        diagnostics.Report(store.NameOf(tile) + ": " + problem.what());
    }
    return std::nullopt;
}

std::string TileSet::NameOf(const TileId& tile) const { return StoreOf(tile).NameOf(tile); }

} // namespace txmap
