// Changes of pens, brushes, fonts, gradients and images that may be selected; a surface notices them, or not.
#include "FontChange.h"
#include "Operations.h"

using namespace TZObjects;

namespace
{

int SomePen(Random& random) { return random.Int(0, kPens - 1); }
int SomeBrush(Random& random) { return random.Int(0, kBrushes - 1); }
int SomeFont(Random& random) { return random.Int(0, kFonts - 1); }
int SomeImage(Random& random) { return random.Int(0, kImages - 1); }

double SomeWidth(Random& random) { return random.Chance(40) ? 1.0 : random.Real(0.2, 8.0); }

auto SomeNewPen(Random& random)
{
    return std::tuple{SomePen(random),
                      OneOf(random, {0, 1, 1, 1, 2, 3, 4, 5, 7}),
                      SomeWidth(random),
                      random.Color(),
                      OneOf(random, {0, 256, 512, 1}),
                      OneOf(random, {0, 256, 8192, 512})};
}

auto SomeSteps(Random& random)
{
    const int pen = SomePen(random);
    std::vector<double> steps(random.Chance(50) ? 2 : 4);
    for (double& step : steps)
        step = random.Real(0.5, 4.0);
    return std::tuple{pen, steps};
}

std::tuple<int, FontChange> SomeFontChange(Random& random)
{
    const int font = SomeFont(random);
    return {font, FontChange(random)};
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
                return std::tuple{SomeBrush(r), r.Color(), OneOf(r, {1, 1, 2, 3, 4, 0})};
            },
            [](auto& side, int brush, const TXColor& color, int style)
            { return side.Brush(brush)->Create(color, static_cast<TXBrush::BrushStyle>(style)); }),
        Row(
            "SetColor of a brush", 2,
            [](Random& r) {
                return std::tuple{SomeBrush(r), r.Color()};
            },
            [](auto& side, int brush, const TXColor& color) { side.Brush(brush)->SetColor(color); }),
        Row(
            "SetTextureImage", 2,
            [](Random& r) {
                return std::tuple{SomeBrush(r), SomeImage(r)};
            },
            [](auto& side, int brush, int image)
            {
                side.Brush(brush)->SetTextureImage(side.Image(image));
                return side.NumberOf(side.Brush(brush)->textureImage());
            }),
        Row("change of a font", 10, SomeFontChange,
            [](auto& side, int font, const FontChange& change) { change.Make(*side.Font(font)); }),
        Row(
            "another pen", 1, [](Random& r) { return std::tuple{SomePen(r)}; },
            [](auto& side, int pen) { side.RenewPen(pen); }),
        Row(
            "another brush", 1, [](Random& r) { return std::tuple{SomeBrush(r)}; },
            [](auto& side, int brush) { side.RenewBrush(brush); }),
        Row(
            "another font", 1, [](Random& r) { return std::tuple{SomeFont(r)}; },
            [](auto& side, int font) { side.RenewFont(font); }),
        Row(
            "a linear gradient", 2,
            [](Random& r) {
                return std::tuple{r.Int(0, kGradients - 1), r.Real(-20, 90), r.Real(-20, 90), r.Real(-20, 90),
                                  r.Real(-20, 90)};
            },
            [](auto& side, int gradient, double x1, double y1, double x2, double y2)
            { side.RenewLinear(gradient, x1, y1, x2, y2); }),
        Row(
            "a radial gradient", 2,
            [](Random& r) {
                return std::tuple{r.Int(0, kGradients - 1), r.Real(0, 90), r.Real(0, 70), r.Real(1, 60)};
            },
            [](auto& side, int gradient, double x, double y, double radius)
            { side.RenewRadial(gradient, x, y, radius); }),
        Row(
            "SetColorAt", 5,
            [](Random& r) {
                return std::tuple{r.Int(0, kGradients - 1), r.Real(0.0, 1.0), r.Color()};
            },
            [](auto& side, int gradient, double position, const TXColor& color)
            { side.Gradient(gradient)->SetColorAt(position, color); }),
        Row(
            "Fill of a part of an image", 2,
            [](Random& r)
            {
                const double left = r.Real(-5.0, 50.0);
                const double top = r.Real(-5.0, 40.0);
                const double size = r.Real(0.0, 12.0);
                return std::tuple{SomeImage(r), TXRect(left, left + size, top, top + 1.5 * size), r.Color()};
            },
            [](auto& side, int image, const TXRect& rect, const TXColor& color)
            { side.Image(image)->Fill(rect, color); }),
        Row(
            "SetPixel", 1,
            [](Random& r) {
                return std::tuple{SomeImage(r), r.Int(-1, 50), r.Int(-1, 40), r.Color()};
            },
            [](auto& side, int image, int x, int y, const TXColor& color)
            { side.Image(image)->SetPixel(x, y, color); }),
    };
}
