// Clipping to polygons. Setting a clip paints it as well.
#include <txpluginqt/graphics/TXGraphicsQT.h>

#include <txpluginqt/cairo/CairoScopes.h>
#include <txpluginqt/graphics/GradientBrush.h>
#include <txpluginqt/raster/RingShape.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/ScopeGuards.h>

using namespace txqt;

namespace
{

/// The region as a path for Qt; empty for none that can clip.
std::optional<QPainterPath> ClipPath(const TZObjects::TXPoint* points, const int* counts, int parts)
{
    if (!points || !counts || parts < 1)
        return std::nullopt;
    const RingShape region(points, counts, parts);
    if (!region.IsDrawable())
        return std::nullopt;
    return region.ToRoundedPath();
}

void Clip(QPainter& painter, const QPainterPath& region)
{
    painter.setClipping(true);
    painter.setClipPath(region, Qt::ReplaceClip);
}

} // namespace

void TXGraphicsQT::SetClipRegion(const TXPoint* points, const int* counts, int parts, const stGradientParams& gradient)
{
    Paint(
        [&](QPainter& p)
        {
            const std::optional<QPainterPath> region = ClipPath(points, counts, parts);
            if (!region)
                return;
            Clip(p, *region);
            const PenAndBrushScope penAndBrush(p);
            if (ApplyGradientBrush(p, region->boundingRect(), gradient))
                p.drawPath(*region);
        });
}

void TXGraphicsQT::SetClipRegion(const TXPoint* points, const int* counts, int parts, bool fill, TXColor color)
{
    if (!painter)
        return;
    Succeeds(
        [&]
        {
            const std::optional<QPainterPath> region = ClipPath(points, counts, parts);
            if (!region)
                return;
            Paint([&](QPainter& p) { Clip(p, *region); });
            ClipCairo(points, counts, parts);
            if (!fill)
                return;
            Paint(
                [&](QPainter& p)
                {
                    const PenAndBrushScope penAndBrush(p);
                    p.setPen(Qt::NoPen);
                    p.setBrush(ToQColor(color));
                    p.drawPath(*region);
                });
        });
}

void TXGraphicsQT::ClipCairo(const TXPoint* points, const int* counts, int parts)
{
    cairo_t* const context = ReadyCairoContext();
    if (!context)
        return;
    const FillRuleScope fillRule(context, CAIRO_FILL_RULE_EVEN_ODD);
    for (int i = 0; i < parts; ++i)
    {
        cairo_new_sub_path(context);
        for (int k = 0; k < counts[i]; ++k, ++points)
            k == 0 ? cairo_move_to(context, points->x, points->y) : cairo_line_to(context, points->x, points->y);
    }
    // Within the clip that is there, whereas the painter's is replaced.
    cairo_clip(context);
    cairo_new_sub_path(context);
}

void TXGraphicsQT::RestoreClipRegion()
{
    if (!painter)
        return;
    Paint([](QPainter& p) { p.setClipping(false); });
    if (cairo_t* const context = ReadyCairoContext())
        cairo_reset_clip(context);
}
