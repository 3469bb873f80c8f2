// The life of surfaces and images: targets, attached painters, the switch of the text path, surfaces made anew.
#include "Operations.h"

using namespace TZObjects;

namespace
{

/// A size of about the surface's, seldom none.
std::tuple<int, int> SomeSize(Random& random)
{
    if (random.Chance(4))
        return {random.OneOf({0, -5, 30}), 0};
    return {random.Int(40, 100), random.Int(30, 80)};
}

/// Seldom one that the other surface may be painting on.
std::tuple<int> SomeTarget(Random& random) { return {random.Chance(85) ? random.Int(0, 1) : random.Int(2, 3)}; }

std::tuple<int> SomeImage(Random& random) { return {random.Int(0, kImages - 1)}; }

std::tuple<bool, bool, int> SomeDefaults(Random& random)
{
    return {random.Chance(75), random.Chance(40), random.OneOf({5, 5, 5, 6, 6, 6, 4})};
}

} // namespace

std::vector<Operation> LifeOperations()
{
    return {
        Row("a surface made anew", 1, Nothing, [](auto& side) { side.RenewSurface(); }),
        Row(
            "a surface made anew on", 1, [](Random& r) { return std::tuple{r.Int(-1, 3)}; },
            [](auto& side, int target) { side.RenewSurfaceOn(target); }),
        Row("CreateCompatibleGraphics", 4, SomeSize,
            [](auto& side, int width, int height)
            { return side.Surface().CreateCompatibleGraphics(side.WidthOf(width), side.HeightOf(height)); }),
        // Most of what follows leaves ink then, which it would not in most other states.
        Row("back to an ordinary state", 25, Nothing,
            [](auto& side)
            {
                if (!side.Painter() || !side.Painter()->isActive())
                    side.Surface().CreateCompatibleGraphics(side.WidthOf(96), side.HeightOf(72));
                side.Surface().RestoreClipRegion();
                side.Surface().SetOpacity(1.0);
                side.Surface().SetCompositionMode(TXGraphics::CompositionMode_SourceOver);
                side.Painter()->resetTransform();
            }),
        SurfaceRow("Delete", 1, Nothing, [](auto& s) { return s.Delete(); }),
        Row("SelectImage", 8, SomeTarget,
            [](auto& side, int target) { return side.NumberOf(side.Surface().SelectImage(side.Target(target))); }),
        Row("SelectImage(null)", 3, Nothing,
            [](auto& side) { return side.NumberOf(side.Surface().SelectImage(side.Target(-1))); }),
        Row(
            "Attach", 4,
            [](Random& r) {
                return std::tuple{r.OneOf({-1, 0, 0, 1, 1, 2, 2, 3, 4, 5})};
            },
            [](auto& side, int canvas) { side.Surface().Attach(side.Outside(canvas)); }),
        SurfaceRow("Detach", 6, Nothing, [](auto& s) { s.Detach(); }),
        SurfaceRow(
            "EnableCairoDrawing", 12, [](Random& r) { return std::tuple{r.Chance(60)}; },
            [](auto& s, bool on)
            {
                s.EnableCairoDrawing(on);
                return s.CairoDrawingEnabled();
            }),
        Row("CreateCompatibleImage", 1, Joined(SomeImage, SomeSize),
            [](auto& side, int image, int width, int height)
            { return side.Image(image)->CreateCompatibleImage(nullptr, width, height); }),
        Row("CreateImage", 1,
            Joined(SomeImage,
                   [](Random& r) {
                       return std::tuple{r.Int(40, 100), r.Int(5, 6)};
                   }),
            [](auto& side, int image, int size, int format)
            {
                const auto made = side.Image(image);
                const bool answer =
                    made->CreateImage(size, size / 2, static_cast<TXImage::Format>(side.FormatOf(format)));
                made->Fill(0x80304050u);
                return answer;
            }),
        Row("Delete of an image", 1, SomeImage, [](auto& side, int image) { return side.Image(image)->Delete(); }),
        Row("another image", 1, SomeImage,
            [](auto& side, int image)
            {
                side.RenewImage(image);
                side.Image(image)->CreateCompatibleImage(nullptr, 50, 60);
            }),
        Row("defaults of the manager", 2, SomeDefaults,
            [](auto& side, bool antialiasing, bool cairo, int format)
            {
                TXGraphicsEngineManager* const manager = TXGraphicsEngineManager::instance("");
                manager->EnableAntialiasing(antialiasing);
                manager->EnableCairoDrawing(cairo);
                manager->SetDefaultImageFormat(side.FormatOf(format));
            }),
    };
}
