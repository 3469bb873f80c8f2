#include <txmap/drawing/layers/HillshadeLayerPainter.h>

#include <algorithm>
#include <cmath>

#include <txmap/drawing/layers/HeightPixels.h>
#include <txmap/drawing/layers/Hillshade.h>
#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kPi = 3.14159265358979323846;

HillshadeLook LookOf(const LayerScene& scene)
{
    const EvaluationContext context = scene.Context();
    const StyleLayer& layer = scene.layer;
    const double zoom = scene.Zoom();
    const auto numbers = [&](const char* name)
    { return LayerProperty<std::vector<double>>(layer, name, zoom, context).Constant(); };
    const auto colors = [&](const char* name)
    { return LayerProperty<std::vector<Color>>(layer, name, zoom, context).Constant(); };
    const auto text = [&](const char* name)
    { return LayerProperty<std::string>(layer, name, zoom, context).Constant(); };
    HillshadeLook look;
    look.method = text("hillshade-method");
    look.exaggeration = LayerProperty<double>(layer, "hillshade-exaggeration", zoom, context, 0.5).Constant();
    look.accent = LayerProperty<Color>(layer, "hillshade-accent-color", zoom, context).Constant();
    const std::vector<double> directions = numbers("hillshade-illumination-direction");
    const std::vector<double> altitudes = numbers("hillshade-illumination-altitude");
    const std::vector<Color> shadows = colors("hillshade-shadow-color");
    const std::vector<Color> highlights = colors("hillshade-highlight-color");
    // A light that comes from a side of the picture turns against the map.
    const double turn = text("hillshade-illumination-anchor") == "viewport" ? scene.canvas.View().Bearing() : 0.0;
    const std::size_t count =
        std::max({directions.size(), altitudes.size(), shadows.size(), highlights.size(), std::size_t(1)});
    // The last value of a short list goes on.
    const auto item = [](const auto& list, std::size_t i, const auto& fallback)
    { return list.empty() ? fallback : list[std::min(i, list.size() - 1)]; };
    for (std::size_t i = 0; i < count; ++i)
        look.lights.push_back({(item(directions, i, 335.0) + turn) * kPi / 180.0,
                               item(altitudes, i, 45.0) * kPi / 180.0, item(shadows, i, Color{0.0, 0.0, 0.0, 1.0}),
                               item(highlights, i, Color{1.0, 1.0, 1.0, 1.0})});
    return look;
}

/// How heights change from cell to cell.
class Slopes
{
public:
    explicit Slopes(const ElevationGrid& grid) : grid(grid)
    {
        const double cell = (grid.box.right - grid.box.left) / grid.width * Projection::WebMercator().Circumference();
        // On maps of large areas, relief would be too flat to be seen.
        const double factor = grid.zoom < 2.0 ? 0.4 : grid.zoom < 4.5 ? 0.35 : 0.3;
        scale = std::exp2(grid.zoom < 15.0 ? (15.0 - grid.zoom) * factor : 0.0) / (8.0 * cell);
    }

    /// The slope eastward and southward, between the centres of cells. False where heights are not known.
    bool At(double x, double y, double& eastward, double& southward) const
    {
        const double left = std::floor(x - 0.5);
        const double top = std::floor(y - 0.5);
        eastward = 0.0;
        southward = 0.0;
        for (const int row : {0, 1})
            for (const int column : {0, 1})
            {
                const double across = x - 0.5 - left;
                const double down = y - 0.5 - top;
                const double weight = (column == 1 ? across : 1.0 - across) * (row == 1 ? down : 1.0 - down);
                const auto height = [&](int dx, int dy)
                { return static_cast<double>(grid.Nearest(left + column + dx, top + row + dy)); };
                eastward += weight * (height(1, -1) + 2.0 * height(1, 0) + height(1, 1) - height(-1, -1) -
                                      2.0 * height(-1, 0) - height(-1, 1));
                southward += weight * (height(-1, 1) + 2.0 * height(0, 1) + height(1, 1) - height(-1, -1) -
                                       2.0 * height(0, -1) - height(1, -1));
            }
        eastward *= scale;
        southward *= scale;
        return std::isfinite(eastward) && std::isfinite(southward);
    }

private:
    const ElevationGrid& grid;
    double scale;
};

} // namespace

void DrawHillshadeLayer(const LayerScene& scene)
{
    const ElevationGrid& grid = scene.data.Heights(scene.layer);
    if (grid.IsEmpty())
        return;
    const HillshadeLook look = LookOf(scene);
    const Slopes slopes(grid);
    const Projection projection = scene.canvas.View().MapProjection();
    DrawHeightPixels(scene, grid, 1.0,
                     [&](const TXPoint& place, double column, double row) -> std::uint32_t
                     {
                         double eastward = 0.0;
                         double southward = 0.0;
                         if (!slopes.At(column, row, eastward, southward))
                             return 0;
                         // Away from the equator, the map shows less of the ground in a pixel.
                         const double stretch = std::cos(projection.ToDegrees(place).y * kPi / 180.0);
                         return HillshadeColor(look, eastward / stretch, southward / stretch).Packed();
                     });
}

} // namespace txmap
