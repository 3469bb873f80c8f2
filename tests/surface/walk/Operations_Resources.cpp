// Changes of pens, brushes, fonts and gradients that may be selected; a surface notices them, or not.
#include "Operations.h"

using namespace TZObjects;

namespace
{

int SomePen(Random& random) { return random.Int(0, kPens - 1); }
int SomeBrush(Random& random) { return random.Int(0, kBrushes - 1); }
int SomeImage(Random& random) { return random.Int(0, kImages - 1); }

double SomeWidth(Random& random) { return random.Chance(40) ? 1.0 : random.Real(0.2, 8.0); }

auto SomeNewPen(Random& random)
{
    return std::tuple{SomePen(random),
                      random.OneOf({0, 1, 1, 1, 2, 3, 4, 5, 7}),
                      SomeWidth(random),
                      random.Color(),
                      random.OneOf({0, 256, 512, 1}),
                      random.OneOf({0, 256, 8192, 512})};
}

auto SomeSteps(Random& random)
{
    const int pen = SomePen(random);
    std::vector<double> steps(random.Chance(50) ? 2 : 4);
    for (double& step : steps)
        step = random.Real(0.5, 4.0);
    return std::tuple{pen, steps};
}

std::tuple<int, int> SomeTexture(Random& random) { return {SomeBrush(random), SomeImage(random)}; }

/// A gradient, and positions with their colours.
std::tuple<int, std::vector<double>, std::vector<TXColor>> SomeStops(Random& random)
{
    const int gradient = random.Int(0, kGradients - 1);
    std::vector<double> positions(static_cast<std::size_t>(random.Int(3, 7)));
    std::vector<TXColor> colors;
    for (double& position : positions)
    {
        position = random.Chance(20) ? random.Int(0, 1) : random.Real(0.0, 1.0);
        colors.push_back(random.Color());
    }
    return {gradient, positions, colors};
}

} // namespace

std::vector<Operation> ResourceOperations()
{
    return {
        Row("Create of a pen", 6, SomeNewPen,
            [](auto& side, int pen, int style, double width, const TXColor& color, int cap, int join)
            {
                return side.Pen(pen)->Create(static_cast<TXPen::PenStyle>(style), width, color,
                                             static_cast<TXPen::PenCapStyle>(cap),
                                             static_cast<TXPen::PenJoinStyle>(join));
            }),
        Row(
            "SetColor of a pen", 2,
            [](Random& r) {
                return std::tuple{SomePen(r), r.Color()};
            },
            [](auto& side, int pen, const TXColor& color) { side.Pen(pen)->SetColor(color); }),
        Row(
            "SetWidth of a pen", 2,
            [](Random& r) {
                return std::tuple{SomePen(r), SomeWidth(r)};
            },
            [](auto& side, int pen, double width) { side.Pen(pen)->SetWidth(width); }),
        Row("SetSteps of a pen", 1, SomeSteps,
            [](auto& side, int pen, const std::vector<double>& steps) { side.Pen(pen)->SetSteps(steps); }),
        Row(
            "Create of a brush", 5,
            [](Random& r) {
                return std::tuple{SomeBrush(r), r.Color(), r.OneOf({1, 1, 2, 3, 4, 0})};
            },
            [](auto& side, int brush, const TXColor& color, int style)
            { return side.Brush(brush)->Create(color, static_cast<TXBrush::BrushStyle>(style)); }),
        Row(
            "SetColor of a brush", 2,
            [](Random& r) {
                return std::tuple{SomeBrush(r), r.Color()};
            },
            [](auto& side, int brush, const TXColor& color) { side.Brush(brush)->SetColor(color); }),
        Row("SetTextureImage", 2, SomeTexture,
            [](auto& side, int brush, int image)
            {
                side.Brush(brush)->SetTextureImage(side.Image(image));
                return side.NumberOf(side.Brush(brush)->textureImage());
            }),
        Row("a brush with a texture", 6, SomeTexture,
            [](auto& side, int brush, int image)
            {
                side.Brush(brush)->SetTextureImage(side.Image(image));
                return side.NumberOf(side.Surface().SelectBrush(side.Brush(brush)));
            }),
        Row(
            "another pen", 1, [](Random& r) { return std::tuple{SomePen(r)}; },
            [](auto& side, int pen) { side.RenewPen(pen); }),
        Row(
            "another brush", 1, [](Random& r) { return std::tuple{SomeBrush(r)}; },
            [](auto& side, int brush) { side.RenewBrush(brush); }),
        Row(
            "a linear gradient", 1,
            [](Random& r) {
                return std::tuple{r.Int(0, kGradients - 1), r.Real(-20, 90), r.Real(-20, 90), r.Real(-20, 90),
                                  r.Real(-20, 90)};
            },
            [](auto& side, int gradient, double x1, double y1, double x2, double y2)
            { side.RenewLinear(gradient, x1, y1, x2, y2); }),
        Row(
            "a radial gradient", 1,
            [](Random& r) {
                return std::tuple{r.Int(0, kGradients - 1), r.Real(0, 90), r.Real(0, 70), r.Real(1, 60)};
            },
            [](auto& side, int gradient, double x, double y, double radius)
            { side.RenewRadial(gradient, x, y, radius); }),
        Row(
            "SetColorAt", 3,
            [](Random& r) {
                return std::tuple{r.Int(0, kGradients - 1), r.Real(0.0, 1.0), r.Color()};
            },
            [](auto& side, int gradient, double position, const TXColor& color)
            { side.Gradient(gradient)->SetColorAt(position, color); }),
        Row("a gradient with stops", 6, SomeStops,
            [](auto& side, int gradient, const std::vector<double>& positions, const std::vector<TXColor>& colors)
            {
                for (std::size_t i = 0; i < positions.size(); ++i)
                    side.Gradient(gradient)->SetColorAt(positions[i], colors[i]);
                side.Surface().SelectGradient(side.Gradient(gradient));
            }),
    };
}
