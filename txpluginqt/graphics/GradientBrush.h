#pragma once

#include <optional>

#include <QBrush>
#include <QLineF>
#include <QRectF>

#include <txgraphics/TXGraphics.h>

class QPainter;

namespace txqt
{

/// The line along which a linear gradient runs over a rectangle, from position 0 to position 1.
///
/// @param angle the direction in degrees, clockwise from the x axis. Exactly 0, 90, 180, 270 and 360 run between the
///        middles of opposite edges. Every other angle runs between the two points where the line through the centre
///        leaves the rectangle; below 180 downward, from 180 on upward.
/// @return nothing when rounding leaves fewer than two such points.
std::optional<QLineF> LinearGradientLine(const QRectF& bounds, double angle);

/// The brush that fills @p bounds as @p gradient says; `Qt::NoBrush` for a gradient of no kind. Nothing when the
/// gradient cannot be computed.
std::optional<QBrush> GradientBrush(const QRectF& bounds, const TZObjects::TXGraphics::stGradientParams& gradient);

/// Gives the painter that brush and takes its pen away. Both stay until something else is selected.
/// @return false, nothing changed, when the gradient cannot be computed.
bool ApplyGradientBrush(QPainter& painter, const QRectF& bounds,
                        const TZObjects::TXGraphics::stGradientParams& gradient);

} // namespace txqt
