#include <txmap/drawing/ScaleBar.h>

#include <algorithm>
#include <cmath>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/Decoration.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/LabelPainter.h>
#include <txmap/map/MapView.h>
#include <txmap/style/Style.h>
#include <txmap/style/Value.h>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

constexpr double kRadians = 3.141592653589793 / 180.0;
// As parts of the map, and of the text's height.
constexpr double kMostOfMap = 0.22;
constexpr double kBarHeight = 0.45;
constexpr double kPadding = 0.6;

} // namespace

GroundLength RoundLength(const MapView& view, double mostPixels)
{
    const TXRect& frame = view.Frame();
    const TXPoint middle = view.MapProjection().ToDegrees(
        view.ToPlace({(frame.left + frame.right) / 2.0, (frame.top + frame.bottom) / 2.0}));
    const double metres = Projection::WebMercator().Circumference() * std::cos(middle.y * kRadians) / view.WorldSize();
    const double most = metres * mostPixels;
    if (!(most > 0.0))
        return {};
    const double power = std::pow(10.0, std::floor(std::log10(most)));
    double round = power;
    for (const double factor : {2.0, 5.0})
        if (factor * power <= most)
            round = factor * power;
    const bool isFar = round >= 1000.0;
    return {round / metres, NumberText(isFar ? round / 1000.0 : round) + (isFar ? " km" : " m")};
}

ScaleBar::ScaleBar(const MapView& view, const Style& style, LabelFonts& fonts)
    : length(RoundLength(view, kMostOfMap * view.Frame().Width()))
{
    const TXRect& frame = view.Frame();
    const LabelLook look = DecorationLook(style, view);
    const double size = look.size;
    const LabelText text = MakeLabelText(length.text, fonts.Path());
    const LabelExtent extent = fonts.Measure(text, look);
    const double margin = DecorationMargin(view);
    const double width = std::max(length.pixels, extent.width) + 2.0 * kPadding * size;
    const double height = extent.height + kBarHeight * size + 2.5 * kPadding * size;
    const double right = std::round(frame.right - margin);
    const double bottom = std::round(frame.bottom - margin);
    box = {right - std::ceil(width), right, bottom - std::ceil(height), bottom};
    const double centre = (box.left + box.right) / 2.0;
    const double low = box.bottom - kPadding * size;
    bar = {centre - length.pixels / 2.0, centre + length.pixels / 2.0, low - kBarHeight * size, low};
    const double top = box.top + kPadding * size;
    label = {text, look, {centre - extent.width / 2.0, centre + extent.width / 2.0, top, top + extent.height}};
}

void ScaleBar::Draw(Canvas& canvas, LabelPainter& texts, const Style& style) const
{
    RequireDrawn(canvas.Surface().fillRect(box, style.panel));
    const double middle = (bar.left + bar.right) / 2.0;
    RequireDrawn(canvas.Surface().fillRect({bar.left, middle, bar.top, bar.bottom}, style.arrow.dark));
    RequireDrawn(canvas.Surface().fillRect({middle, bar.right, bar.top, bar.bottom}, style.arrow.light));
    canvas.Use({style.arrow.dark, 1.0});
    DrawOutline(canvas.Surface(), bar);
    texts.Draw({label});
}

} // namespace txmap
