#include <txmap/symbols/IconShape.h>

#include <algorithm>
#include <cmath>

#include <txmap/sources/Sprites.h>
#include <txmap/symbols/SymbolAnchor.h>

namespace txmap
{

using TZObjects::TXRect;

namespace
{

constexpr double kPi = 3.141592653589793;

struct Interval
{
    double from = 0.0;
    double to = 0.0;

    double Length() const { return to - from; }
};

/// One direction of a picture that is laid around a text.
class StretchedAxis
{
public:
    StretchedAxis(double length, const std::vector<SpriteStretch>& parts, const Interval& content)
        : length(length), stretch(parts), content(content)
    {
        if (stretch.empty())
            stretch.push_back({0.0, length});
    }

    /// @param target what the content covers. @param scale pixels of the map for each of the picture's own.
    std::vector<IconStop> Stops(const Interval& target, double scale) const
    {
        const double stretched = StretchBefore(content.to) - StretchBefore(content.from);
        const double fixed = content.Length() - stretched;
        double fixedScale = scale;
        double stretchScale = scale;
        if (stretched > 0.0)
        {
            stretchScale = std::max(0.0, target.Length() - fixed * scale) / stretched;
            // A text that is too small for what is not stretched shrinks that as well.
            if (fixed * scale > target.Length())
                fixedScale = std::max(0.0, target.Length()) / fixed;
        }
        std::vector<IconStop> stops;
        const auto add = [&](double picture)
        {
            const double before = StretchBefore(picture) - StretchBefore(content.from);
            const double place = target.from + before * stretchScale + (picture - content.from - before) * fixedScale;
            if (stops.empty() || picture > stops.back().picture)
                stops.push_back({place, picture});
        };
        add(0.0);
        for (const SpriteStretch& part : stretch)
        {
            add(part.from);
            add(part.to);
        }
        add(length);
        return stops;
    }

private:
    /// How much of the picture before a place is stretched.
    double StretchBefore(double place) const
    {
        double sum = 0.0;
        for (const SpriteStretch& part : stretch)
            sum += std::clamp(place, part.from, part.to) - part.from;
        return sum;
    }

    double length;
    std::vector<SpriteStretch> stretch;
    Interval content;
};

/// Enlarges one side of the content's place such that its proportions stay, where the picture wants that. The side of
/// the anchor grows with it.
void KeepProportions(const SpritePicture& picture, double proportion, Interval& across, Interval& down)
{
    const auto grow = [](Interval& side, double length)
    {
        if (side.Length() <= 0.0)
            return;
        const double from = side.from * length / side.Length();
        side = {from, from + length};
    };
    const double now = across.Length() / down.Length();
    if (picture.fitHeight == TextFit::Proportional)
    {
        if (picture.fitWidth == TextFit::Proportional || (picture.fitWidth == TextFit::StretchOnly && now < proportion))
            grow(across, down.Length() * proportion);
    }
    else if (picture.fitWidth == TextFit::Proportional && picture.fitHeight == TextFit::StretchOnly && now > proportion)
        grow(down, across.Length() / proportion);
}

IconShape ShapeBox(double width, double height, const std::string& anchor, const std::array<double, 2>& offset,
                   double scale)
{
    const AnchorAlignment alignment = AlignmentOf(anchor);
    const double left = (offset[0] - width * alignment.left) * scale;
    const double top = (offset[1] - height * alignment.above) * scale;
    return {nullptr, {{left, 0.0}, {left + width * scale, 1.0}}, {{top, 0.0}, {top + height * scale, 1.0}}};
}

} // namespace

IconShape ShapeIcon(const SpritePicture& picture, const std::string& anchor, const std::array<double, 2>& offset,
                    double scale)
{
    IconShape shape = ShapeBox(picture.Width(), picture.Height(), anchor, offset, scale);
    shape.picture = &picture;
    shape.across.back().picture = picture.pixels.size.width;
    shape.down.back().picture = picture.pixels.size.height;
    return shape;
}

IconShape ShapeMark(double size, const std::string& anchor, const std::array<double, 2>& offset, double scale)
{
    return ShapeBox(size, size, anchor, offset, scale);
}

IconShape FitIcon(const SpritePicture& picture, const IconTextFit& fit)
{
    const double width = picture.pixels.size.width;
    const double height = picture.pixels.size.height;
    const double x = fit.offset[0] * fit.scale;
    const double y = fit.offset[1] * fit.scale;
    const TXRect& text = fit.text;
    Interval across{x + text.left - fit.padding[3] * fit.scale, x + text.right + fit.padding[1] * fit.scale};
    Interval down{y + text.top - fit.padding[0] * fit.scale, y + text.bottom + fit.padding[2] * fit.scale};
    if (!fit.width)
    {
        const double middle = x + (text.left + text.right) / 2.0;
        across = {middle - picture.Width() * fit.scale / 2.0, middle + picture.Width() * fit.scale / 2.0};
    }
    if (!fit.height)
    {
        const double middle = y + (text.top + text.bottom) / 2.0;
        down = {middle - picture.Height() * fit.scale / 2.0, middle + picture.Height() * fit.scale / 2.0};
    }
    Interval contentAcross{0.0, width};
    Interval contentDown{0.0, height};
    if (picture.content)
    {
        contentAcross = {(*picture.content)[0], (*picture.content)[2]};
        contentDown = {(*picture.content)[1], (*picture.content)[3]};
        KeepProportions(picture, contentAcross.Length() / contentDown.Length(), across, down);
    }
    const double scale = fit.scale / picture.ratio;
    return {&picture, StretchedAxis(width, picture.stretchX, contentAcross).Stops(across, scale),
            StretchedAxis(height, picture.stretchY, contentDown).Stops(down, scale)};
}

TXRect TurnedBox(const TXRect& box, double degrees)
{
    if (degrees == 0.0)
        return box;
    const double angle = degrees * kPi / 180.0;
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    TXRect turned{1e300, -1e300, 1e300, -1e300};
    for (const double x : {box.left, box.right})
        for (const double y : {box.top, box.bottom})
        {
            const double across = x * cosine - y * sine;
            const double down = x * sine + y * cosine;
            turned = {std::min(turned.left, across), std::max(turned.right, across), std::min(turned.top, down),
                      std::max(turned.bottom, down)};
        }
    return turned;
}

} // namespace txmap
