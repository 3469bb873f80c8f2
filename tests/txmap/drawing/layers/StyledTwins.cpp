#include "StyledTwins.h"

#include <cstring>
#include <sstream>

#include <txgraphics/TXImage.h>
#include <txmap/drawing/layers/StyledMap.h>
#include <txmap/map/MercatorView.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>

using namespace TZObjects;
using namespace txmap;

namespace
{

constexpr int kSide = 256;

std::vector<unsigned> PixelsOf(TXGraphics& surface)
{
    std::vector<unsigned> pixels(kSide * kSide);
    std::memcpy(pixels.data(), surface.GetImage()->GetBits(), pixels.size() * sizeof(unsigned));
    return pixels;
}

MercatorView ViewAt(double zoom, double bearing) { return {{0.0, 0.0, zoom, bearing}, {kSide, kSide}}; }

} // namespace

StyledTwins::StyledTwins() : plugin(TX_TEST_PLUGIN, TextPath::Qt) { PrepareGdal(); }

std::string StyledTwins::Place(double x, double y)
{
    const TXPoint place = FromMercator(ViewAt(0.0, 0.0).ToPlace({x, y}));
    std::ostringstream text;
    text.precision(17);
    text << '[' << place.x << ',' << place.y << ']';
    return text.str();
}

std::string StyledTwins::Geometry(const std::string& type, const std::vector<std::vector<TXPoint>>& parts)
{
    std::string text;
    for (const auto& part : parts)
    {
        text += text.empty() ? "[" : ",[";
        for (std::size_t i = 0; i < part.size(); ++i)
            text += (i == 0 ? "" : ",") + Place(part[i].x, part[i].y);
        text += "]";
    }
    if (type == "Polygon" || type == "MultiLineString")
        text = "[" + text + "]";
    return R"({"type": ")" + type + R"(", "coordinates": )" + text + "}";
}

std::vector<unsigned> StyledTwins::Styled(const std::string& geoJson, const std::string& layers, double zoom,
                                          double bearing)
{
    return StyledSource(R"({"type": "geojson", "lineMetrics": true, "data": )" + geoJson + "}", layers, zoom, bearing);
}

std::vector<unsigned> StyledTwins::StyledSource(const std::string& source, const std::string& layers, double zoom,
                                                double bearing)
{
    const std::string sprite =
        std::filesystem::exists(folder / "sprite.json") ? R"("sprite": "sprite", )" : std::string();
    const StyleReading reading = ReadStyle(R"({"version": 8, )" + sprite + R"("sources": {"s": )" + source +
                                           R"(}, "layers": [)" + layers + "]}");
    for (const StyleProblem& problem : reading.problems)
        ADD_FAILURE() << problem.ToString();
    const MercatorView view = ViewAt(zoom, bearing);
    SourceDiagnostics diagnostics(true);
    const MapData data(reading.style, SourceFolder(folder.Path().string()), view, diagnostics);
    MapCanvas canvas(plugin.Engine(), view);
    DrawingReport report;
    DrawLayers(canvas, reading.style, data, report);
    return PixelsOf(canvas.Surface());
}

std::vector<unsigned> StyledTwins::Direct(const Draw& draw)
{
    const TXRefPtr<TXGraphics> surface(plugin.Engine().NewGraphics());
    surface->CreateCompatibleGraphics(kSide, kSide);
    surface->ClearWithColor({0, 0, 0, 0});
    surface->SelectPen(TXPen::NullPen);
    draw(*surface);
    return PixelsOf(*surface);
}

TXRefPtr<TXPen> StyledTwins::Pen(const TXColor& color, double width, TXPen::PenCapStyle cap, TXPen::PenJoinStyle join)
{
    TXRefPtr<TXPen> pen(plugin.Engine().NewPen());
    pen->Create(TXPen::SolidLine, width, color, cap, join);
    return pen;
}

TXRefPtr<TXBrush> StyledTwins::Brush(const TXColor& color)
{
    TXRefPtr<TXBrush> brush(plugin.Engine().NewBrush());
    brush->Create(color, TXBrush::SolidBrush);
    return brush;
}

std::size_t Differing(const std::vector<unsigned>& a, const std::vector<unsigned>& b)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        count += a[i] != b[i] ? 1 : 0;
    return count;
}

std::size_t Drawn(const std::vector<unsigned>& pixels)
{
    std::size_t count = 0;
    for (const unsigned pixel : pixels)
        count += pixel >> 24 != 0 ? 1 : 0;
    return count;
}
