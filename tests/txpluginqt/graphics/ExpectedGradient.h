#pragma once

#include <vector>

#include <QBrush>
#include <QLineF>
#include <QPolygonF>

#include <txgraphics/TXGraphics.h>

#include "RandomCases.h"

/// Where the line through the middle of @p bounds at @p angle degrees crosses the left, bottom, right and top edge, in
/// that order; a corner can be there twice.
std::vector<QPointF> EdgeHits(const QRectF& bounds, double angle);

/// From where to where a linear gradient over @p bounds runs.
QLineF GradientAxis(const QRectF& bounds, double angle);

/// The brush that fills a shape of these bounds with the gradient.
QBrush GradientBrush(const QRectF& bounds, const TZObjects::TXGraphics::stGradientParams& gradient);

/// Random parameters: all three types, and for linear ones exact quarter turns, diagonals and any other angle.
TZObjects::TXGraphics::stGradientParams SomeGradient(Random& random);
