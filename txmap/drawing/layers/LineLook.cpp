#include <txmap/drawing/layers/LineLook.h>

#include <algorithm>
#include <cmath>

namespace txmap
{
namespace
{

// How far lines reach whose width depends on the feature, in logical pixels.
constexpr double kUnknownReach = 128.0;
// No line is wider, blurred or moved further: in diagonals of the picture, which it covers by far, and in pixels, as
// backends have their limits.
constexpr double kMostDiagonals = 4.0;
constexpr double kWidest = 16000.0;

double WidestIn(const PixelSize& picture)
{
    return std::min(kWidest, kMostDiagonals * std::hypot(picture.width, picture.height));
}

} // namespace

LineProperties::LineProperties(const LayerScene& scene)
    : scale(scene.Scale()), widest(WidestIn(scene.canvas.View().Size())),
      dashScale(std::exp2(scene.Zoom() - std::floor(scene.Zoom()))),
      color(scene.layer, "line-color", scene.Zoom(), scene.Context()),
      opacity(scene.layer, "line-opacity", scene.Zoom(), scene.Context(), 1.0),
      width(scene.layer, "line-width", scene.Zoom(), scene.Context(), 1.0),
      wholeZoomWidth(scene.layer, "line-width", std::floor(scene.Zoom()), scene.Context(), 1.0),
      gap(scene.layer, "line-gap-width", scene.Zoom(), scene.Context()),
      offset(scene.layer, "line-offset", scene.Zoom(), scene.Context()),
      blur(scene.layer, "line-blur", scene.Zoom(), scene.Context()),
      cap(scene.layer, "line-cap", scene.Zoom(), scene.Context()),
      join(scene.layer, "line-join", scene.Zoom(), scene.Context()),
      miterLimit(scene.layer, "line-miter-limit", scene.Zoom(), scene.Context(), 2.0),
      dashes(scene.layer, "line-dasharray", std::floor(scene.Zoom()), scene.Context()),
      pattern(scene.layer, "line-pattern", std::floor(scene.Zoom()), scene.Context())
{
}

LineLook LineProperties::At(const EvaluationContext& context) const
{
    LineLook look;
    look.color = color.At(context);
    look.opacity = std::clamp(opacity.At(context), 0.0, 1.0);
    look.color.alpha *= look.opacity;
    look.width = std::clamp(width.At(context) * scale, 0.0, widest);
    look.gap = std::clamp(gap.At(context) * scale, 0.0, widest);
    look.offset = std::clamp(offset.At(context) * scale, -widest, widest);
    look.blur = std::clamp(blur.At(context) * scale, 0.0, widest);
    look.cap = cap.At(context);
    look.join = join.At(context);
    look.miterLimit = miterLimit.At(context);
    look.dashes = dashes.At(context);
    look.pattern = pattern.At(context);
    if (!look.dashes.empty() || !look.pattern.empty())
        look.wholeZoomWidth = std::clamp(wholeZoomWidth.At(context) * scale, 0.0, widest);
    if (!look.dashes.empty())
    {
        const double unit = look.wholeZoomWidth * dashScale;
        for (double& length : look.dashes)
            length = std::max(0.0, length) * unit;
    }
    return look;
}

bool LineProperties::AreConstant() const
{
    return color.IsConstant() && opacity.IsConstant() && width.IsConstant() && wholeZoomWidth.IsConstant() &&
           gap.IsConstant() && offset.IsConstant() && blur.IsConstant() && cap.IsConstant() && join.IsConstant() &&
           miterLimit.IsConstant() && dashes.IsConstant() && pattern.IsConstant();
}

double LineProperties::Reach() const
{
    // There is no feature to ask yet.
    if (!width.IsConstant() || !gap.IsConstant() || !offset.IsConstant())
        return kUnknownReach * scale;
    const auto pixels = [&](const LayerProperty<double>& length)
    { return std::clamp(std::abs(length.Constant()) * scale, 0.0, widest); };
    return pixels(width) * 2.0 + pixels(gap) + pixels(offset) + 4.0;
}

} // namespace txmap
