#pragma once

#include <QPainter>

#include <txgraphics/TXBrush.h>
#include <txgraphics/TXFont.h>
#include <txgraphics/TXPen.h>

namespace txqt
{

/// Put a resource's Qt object into an active painter. Nothing for an empty resource.
void ApplyPen(QPainter& painter, const TZObjects::TXPen& pen);
void ApplyBrush(QPainter& painter, TZObjects::TXBrush& brush);
void ApplyQFont(QPainter& painter, const TZObjects::TXFont& font);

/// False for a gradient that Qt's rasteriser does not survive: of no kind, or with a number that is not finite or
/// absurd.
bool IsDrawable(const QGradient& gradient);

} // namespace txqt
