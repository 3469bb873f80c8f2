// Styles with random mistakes are read and, as far as they go, drawn: nothing may crash, hang or grow without end.
#include <chrono>

#include <tests/txmap/drawing/layers/StyledTwins.h>
#include <tests/txmap/support/OwnStyle.h>
#include <tests/txmap/support/StyleMutator.h>
#include <txmap/drawing/layers/StyledMap.h>
#include <txmap/map/MercatorView.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>

using namespace txmap;

namespace
{

const char* const kStyle =
    R"({"version": 8, "zoom": 1.5, "center": [10, 20], "bearing": 10, "state": {"a": {"default": 1}},
"sources": {"s": {"type": "geojson", "lineMetrics": true, "filter": ["has", "n"], "data": {"type": "FeatureCollection",
  "features": [{"type": "Feature", "properties": {"n": 3, "c": "#ff0000"}, "geometry": {"type": "Polygon",
    "coordinates": [[[-60, -40], [70, -30], [60, 50], [-50, 40], [-60, -40]]]}},
   {"type": "Feature", "properties": {"n": 5, "c": "teal"}, "geometry": {"type": "LineString",
    "coordinates": [[-80, 10], [0, 30], [10, -20], [90, 5]]}},
   {"type": "Feature", "properties": {"n": 1}, "geometry": {"type": "MultiPoint",
    "coordinates": [[20, 20], [179, -20]]}}]}}},
"layers": [
 {"id": "b", "type": "background", "paint": {"background-color": {"stops": [[0, "red"], [5, "blue"]]}}},
 {"id": "f", "type": "fill", "source": "s", "filter": ["all", [">", "n", 1], ["in", "$type", "Polygon"]],
  "layout": {"fill-sort-key": ["get", "n"]}, "paint": {"fill-color": ["get", "c"], "fill-translate": [3, 4],
  "fill-outline-color": ["case", ["==", ["get", "n"], 3], "black", "white"], "fill-opacity": 0.7}},
 {"id": "l", "type": "line", "source": "s", "minzoom": 1, "maxzoom": 9, "layout": {"line-join": "round",
  "line-cap": "square", "line-miter-limit": 3}, "paint": {"line-width": ["interpolate", ["exponential", 1.4], ["zoom"],
  0, 1, 4, ["get", "n"]], "line-dasharray": [2, 1, 0.5], "line-gap-width": 3, "line-offset": -2, "line-blur": 1}},
 {"id": "g", "type": "line", "source": "s", "paint": {"line-width": 4, "line-gradient": ["interpolate", ["linear"],
  ["line-progress"], 0, "red", 1, "blue"], "line-layer-opacity": 0.5, "line-layer-blend": "multiply"}},
 {"id": "c", "type": "circle", "source": "s", "paint": {"circle-radius": {"property": "n", "stops": [[0, 1], [5, 9]]},
  "circle-blur": 0.4, "circle-stroke-width": 2, "circle-stroke-color": ["rgba", 1, 2, ["get", "n"], 0.5]}},
 {"id": "t", "type": "symbol", "source": "s", "layout": {"text-field": ["format", ["get", "c"], {"font-scale": 1.2},
  "{n} <b>", {"text-color": "red"}], "text-font": ["DejaVu Sans"], "text-size": 9, "text-max-width": 6,
  "text-variable-anchor": ["top", "left"], "text-radial-offset": 1, "text-letter-spacing": 0.1, "text-rotate": 20,
  "symbol-sort-key": ["get", "n"], "text-overlap": "cooperative", "text-padding": 3}, "paint": {"text-halo-width": 1,
  "text-halo-color": "white", "text-halo-blur": 0.5, "text-opacity": 0.8, "text-translate": [2, 3]}},
 {"id": "u", "type": "symbol", "source": "s", "metadata": {"txmap:font-marker": {"font": "DejaVu Sans", "character": "x"}},
  "layout": {"symbol-placement": "line", "symbol-spacing": 30, "text-field": "{c}", "text-font": ["DejaVu Sans"],
  "text-max-angle": 60, "text-offset": [0, 1], "icon-size": 0.5, "icon-rotate": ["get", "n"], "icon-offset": [1, 2],
  "icon-padding": [1, 2], "icon-optional": true}, "paint": {"icon-color": "blue", "icon-halo-width": 1,
  "icon-halo-color": "yellow"}}]})";

class MutatedStyle : public StyledTwins
{
protected:
    /// Draws a style with the mistakes of so many seeds.
    void DrawAll(const Json& sound, unsigned seeds)
    {
        unsigned drawn = 0;
        for (unsigned seed = 1; seed <= seeds; ++seed)
        {
            const std::string text = StyleMutator(seed).Mutated(sound);
            const auto begin = std::chrono::steady_clock::now();
            try
            {
                Draw(ReadStyle(text).style);
                ++drawn;
            }
            catch (const std::exception& error)
            {
                ADD_FAILURE() << "seed " << seed << ": " << error.what() << "\n" << text;
            }
            const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
            EXPECT_LT(seconds, 10.0) << "seed " << seed << "\n" << text;
        }
        EXPECT_EQ(drawn, seeds);
    }

private:
    void Draw(const MapStyle& style)
    {
        const MercatorView view(
            {style.longitude.value_or(0.0), style.latitude.value_or(0.0), style.zoom.value_or(0.0), style.bearing},
            {64, 64});
        SourceDiagnostics diagnostics(false);
        const MapData data(style, SourceFolder(folder.Path().string()), view, diagnostics);
        MapCanvas canvas(plugin.Engine(), view);
        DrawingReport report;
        DrawLayers(canvas, style, data, report);
    }
};

} // namespace

TEST_F(MutatedStyle, IsReadAndDrawnInTime) { DrawAll(Json::parse(kStyle), 2000); }

TEST_F(MutatedStyle, OfTheProjectIsReadAndDrawnInTime)
{
    WriteSmallHeights(folder);
    for (const char* const style : {"political", "physical"})
        DrawAll(OwnStyleOnSmallSources(style), 300);
}
