// Images and whole surfaces.
#include <algorithm>
#include <array>

#include "Operations.h"

using namespace TZObjects;

namespace
{

int SomeSource(Random& r)
{
    if (r.Chance(10))
        return Side<Modelled>::kOwn;
    return r.Chance(3) ? -1 : r.Int(0, kImages - 1);
}

double SomeOpacity(Random& r) { return r.Chance(60) ? 1.0 : r.Real(-0.1, 1.1); }

/// Left, top, width and height as a rectangle.
TXRect Placed(const std::array<double, 4>& box) { return {box[0], box[0] + box[2], box[1], box[1] + box[3]}; }

/// Where to, and what part: as it is, moved, along an edge of the target, beside it, or scaled.
std::tuple<TXRect, ImagePart> SomePlaces(Random& r)
{
    const double unit = r.Chance(50) ? 1.0 : 0.975;
    const auto number = [&](int low, int high) { return r.Int(low, high) * unit; };
    const TXRect part = r.Chance(30) ? TXRect(0.0, 30.0, 0.0, 24.0)
                                     : Placed({number(-8, 20), number(-8, 16), number(1, 40), number(1, 40)});
    const double w = part.Width();
    const double h = part.Height();
    switch (r.Int(1, 10))
    {
    case 1:
        return {TXRect(0.0, w, 0.0, h), TXRect(0.0, w, 0.0, h)};
    case 2:
        return {part, part};
    case 3:
    case 4:
        return {Placed({number(-30, 80), number(-20, 60), w, h}), part};
    case 5:
        return {Placed({-w, number(-20, 60), w, h}), part};
    case 6:
        return {Placed({number(-30, 80), -h, w, h}), part};
    case 7:
        return {Placed({r.OneOf({-200.0, 96.0, 200.0}), number(-20, 90), w, h}), part};
    default:
        return {Placed({number(-30, 80), number(-20, 60), number(1, 90), number(1, 90)}), part};
    }
}

/// False for what Qt does not survive: where it turns an image smoothly, it counts the pixels of a row in 16 bits, and
/// reads far away from an image that is wider.
bool CanBeDrawn(const QPainter* painter, const ModelImage* source, int drawnWidth, bool turns)
{
    constexpr int widest = 32767;
    if (!painter || !painter->isActive() || !source || source->GetWidth() <= widest || drawnWidth <= widest)
        return true;
    const bool turned = turns || painter->transform().type() > QTransform::TxTranslate;
    return !turned || !painter->testRenderHint(QPainter::SmoothPixmapTransform);
}

bool CanBeDrawnWhole(World& world, int surface, int source, double)
{
    const ModelImage* const image = world.SourceOfModel(surface, source);
    return CanBeDrawn(world.Model(surface).Painter(), image, image ? image->GetWidth() : 0, false);
}

/// The width of what is drawn of a source: in place Qt takes the part out of the whole, otherwise it is a copy.
int DrawnWidth(const TXRect& dst, const TXRect& src, const ModelImage* source)
{
    const bool isInPlace = dst == src && dst.left == 0.0 && dst.top == 0.0;
    return isInPlace && source ? source->GetWidth() : static_cast<int>(std::max(dst.Width(), src.Width()));
}

bool PartCanBeDrawn(World& world, int surface, const TXRect& dst, const ImagePart& src, int source, double)
{
    const ModelImage* const image = world.SourceOfModel(surface, source);
    return CanBeDrawn(world.Model(surface).Painter(), image, DrawnWidth(dst, src, image), false);
}

bool PartCanBeTurned(World& world, int surface, const TXRect& dst, const ImagePart& src, int source, double, double)
{
    const ModelImage* const image = world.SourceOfModel(surface, source);
    return CanBeDrawn(world.Model(surface).Painter(), image, DrawnWidth(dst, src, image), true);
}

bool CanBeStretched(World& world, int surface, const TXRect& dst, const ImagePart& src, int source)
{
    const ModelImage* const image = source < 0 ? nullptr : world.Model(source).GetImage().get();
    return CanBeDrawn(world.Model(surface).Painter(), image, DrawnWidth(dst, src, image), false);
}

bool CanBeCopiedTo(World& world, int surface, int target, int, int)
{
    const ModelImage* const image = world.Model(surface).GetImage().get();
    return target < 0 || CanBeDrawn(world.Model(target).Painter(), image, image ? image->GetWidth() : 0, false);
}

} // namespace

std::vector<Operation> ImageOperations()
{
    return {
        Row(
            "DrawImage(whole)", 4,
            [](Random& r) {
                return std::tuple{SomeSource(r), SomeOpacity(r)};
            },
            [](auto& side, int source, double opacity)
            { return side.Surface().DrawImage(side.Source(source).get(), opacity); },
            CanBeDrawnWhole),
        Row(
            "DrawImage", 14,
            Joined(SomePlaces,
                   [](Random& r) {
                       return std::tuple{SomeSource(r), SomeOpacity(r)};
                   }),
            [](auto& side, const TXRect& dst, const ImagePart& src, int source, double opacity)
            { return side.Surface().DrawImage(dst, side.Source(source).get(), src, opacity); },
            PartCanBeDrawn),
        Row(
            "DrawImage4BitmapRotate", 10,
            Joined(SomePlaces,
                   [](Random& r) {
                       return std::tuple{SomeSource(r), r.Real(-200.0, 200.0), SomeOpacity(r)};
                   }),
            [](auto& side, const TXRect& dst, const ImagePart& src, int source, double angle, double opacity)
            { return side.Surface().DrawImage4BitmapRotate(dst, side.Source(source).get(), src, angle, opacity); },
            PartCanBeTurned),
        Row(
            "StretchBlt", 4, Joined(SomePlaces, [](Random& r) { return std::tuple{r.Int(-1, kSurfaces - 1)}; }),
            [](auto& side, const TXRect& dst, const ImagePart& src, int source)
            { return side.Surface().StretchBlt(dst, side.SurfaceNumber(source), src); },
            CanBeStretched),
        Row(
            "BiltTo", 5,
            [](Random& r) {
                return std::tuple{r.Int(-1, kSurfaces - 1), r.Int(-30, 60), r.Int(-30, 40)};
            },
            [](auto& side, int target, int x, int y)
            { return side.Surface().BiltTo(side.SurfaceNumber(target), x, y); },
            CanBeCopiedTo),
        SurfaceRow(
            "ClearWithColor", 3, [](Random& r) { return std::tuple{r.Color()}; },
            [](auto& s, const TXColor& color) { return s.ClearWithColor(color); }),
    };
}
