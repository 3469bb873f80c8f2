#include <txmap/drawing/layers/ColorReliefLayerPainter.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include <txmap/drawing/layers/HeightPixels.h>
#include <txmap/drawing/layers/PixelSampler.h>
#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

namespace
{

// Heights this near to each other, in metres, have the same colour: the same heights in every picture.
constexpr double kStep = 1.0 / 256.0;
// Broken heights may lie far apart.
constexpr double kMostSteps = 1 << 23;
// No colour: it is transparent and yet not black.
constexpr std::uint32_t kUnknown = 0x00FFFFFF;

/// The colours of the heights of a grid, each computed when it is wanted first.
class HeightColors
{
public:
    HeightColors(const LayerScene& scene, const ElevationGrid& grid)
        : ramp(scene.layer.Find("color-relief-color")), context(scene.Context())
    {
        double lowest = 1e9, highest = -1e9;
        for (const float metres : grid.metres)
            if (std::isfinite(metres))
            {
                lowest = std::min(lowest, static_cast<double>(metres));
                highest = std::max(highest, static_cast<double>(metres));
            }
        if (!ramp || lowest > highest)
            return;
        while ((highest - lowest) / step > kMostSteps)
            step *= 2.0;
        first = std::floor(lowest / step);
        colors.assign(static_cast<std::size_t>(std::floor(highest / step) - first) + 2, kUnknown);
    }

    std::uint32_t At(double metres)
    {
        if (!std::isfinite(metres) || colors.empty())
            return 0;
        const double number = std::clamp(std::floor(metres / step + 0.5) - first, 0.0, colors.size() - 1.0);
        std::uint32_t& known = colors[static_cast<std::size_t>(number)];
        if (known == kUnknown)
        {
            context.elevation = (first + number) * step;
            Color color{0.0, 0.0, 0.0, 0.0};
            Take(ramp->EvaluateOrDefault(context), color);
            const double part = color.alpha * 255.0;
            known = SampledColor{color.red * part, color.green * part, color.blue * part, part}.Packed();
        }
        return known;
    }

private:
    const Expression* ramp;
    EvaluationContext context;
    double step = kStep;
    double first = 0.0; ///< The number of the lowest step.
    std::vector<std::uint32_t> colors;
};

/// The height between the centres of cells, or of the nearest cell.
double HeightAt(const ElevationGrid& grid, double x, double y, bool linear)
{
    const auto cell = [&](double column, double row) { return static_cast<double>(grid.Nearest(column, row)); };
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
    HeightColors colors(scene, grid);
    DrawHeightPixels(scene, grid, opacity,
                     [&](const TZObjects::TXPoint& /*place*/, double column, double row)
                     { return colors.At(HeightAt(grid, column, row, linear)); });
}

} // namespace txmap
