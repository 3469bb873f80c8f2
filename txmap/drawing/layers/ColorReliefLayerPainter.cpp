#include <txmap/drawing/layers/ColorReliefLayerPainter.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include <txmap/drawing/layers/HeightPixels.h>
#include <txmap/drawing/layers/PixelSampler.h>
#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

namespace
{

// No two colours of a ramp are nearer to each other than a picture can show.
constexpr int kSteps = 4096;

/// The colours of all heights of a grid, computed once.
class HeightColors
{
public:
    HeightColors(const LayerScene& scene, const ElevationGrid& grid)
    {
        lowest = 1e9;
        double highest = -1e9;
        for (const float metres : grid.metres)
            if (std::isfinite(metres))
            {
                lowest = std::min(lowest, static_cast<double>(metres));
                highest = std::max(highest, static_cast<double>(metres));
            }
        step = std::max((highest - lowest) / kSteps, 1e-3);
        const Expression* const ramp = scene.layer.Find("color-relief-color");
        EvaluationContext context = scene.Context();
        for (int i = 0; ramp && i <= kSteps; ++i)
        {
            context.elevation = lowest + i * step;
            Color color{0.0, 0.0, 0.0, 0.0};
            Take(ramp->EvaluateOrDefault(context), color);
            const double part = color.alpha * 255.0;
            colors.push_back(SampledColor{color.red * part, color.green * part, color.blue * part, part}.Packed());
        }
    }

    std::uint32_t At(double metres) const
    {
        if (!std::isfinite(metres) || colors.empty())
            return 0;
        return colors[static_cast<std::size_t>(std::clamp((metres - lowest) / step + 0.5, 0.0, 0.0 + kSteps))];
    }

private:
    double lowest;
    double step;
    std::vector<std::uint32_t> colors;
};

/// The height between the centres of cells, or of the nearest cell.
double HeightAt(const ElevationGrid& grid, double x, double y, bool linear)
{
    const auto cell = [&](double column, double row)
    {
        return static_cast<double>(grid.At(static_cast<int>(std::clamp(column, 0.0, grid.width - 1.0)),
                                           static_cast<int>(std::clamp(row, 0.0, grid.height - 1.0))));
    };
    if (!linear)
        return cell(std::floor(x), std::floor(y));
    const double left = std::floor(x - 0.5);
    const double top = std::floor(y - 0.5);
    const double across = x - 0.5 - left;
    const double down = y - 0.5 - top;
    const double above = cell(left, top) * (1.0 - across) + cell(left + 1.0, top) * across;
    const double below = cell(left, top + 1.0) * (1.0 - across) + cell(left + 1.0, top + 1.0) * across;
    return above * (1.0 - down) + below * down;
}

} // namespace

void DrawColorReliefLayer(const LayerScene& scene)
{
    const ElevationGrid& grid = scene.data.Heights(scene.layer);
    const EvaluationContext context = scene.Context();
    const double opacity =
        LayerProperty<double>(scene.layer, "color-relief-opacity", scene.Zoom(), context, 1.0).Constant();
    if (grid.IsEmpty() || opacity <= 0.0)
        return;
    const bool linear =
        LayerProperty<std::string>(scene.layer, "resampling", scene.Zoom(), context).Constant() != "nearest";
    const HeightColors colors(scene, grid);
    DrawHeightPixels(scene, grid, opacity,
                     [&](const TZObjects::TXPoint& /*place*/, double column, double row)
                     { return colors.At(HeightAt(grid, column, row, linear)); });
}

} // namespace txmap
