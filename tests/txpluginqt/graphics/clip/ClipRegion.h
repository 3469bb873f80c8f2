#pragma once

#include <QPainter>
#include <QPainterPath>

#include <cairo.h>
#include <tests/txpluginqt/graphics/Rings.h>
#include <txgraphics/TXGraphics.h>

/// Clips the surface under test.
void Clip(TZObjects::TXGraphics& surface, const Rings& region, const TZObjects::TXGraphics::stGradientParams& gradient);
void Clip(TZObjects::TXGraphics& surface, const Rings& region, bool fill, const TZObjects::TXColor& color);
/// Clips the surface without filling the region.
void Clip(TZObjects::TXGraphics& surface, const Rings& region);

/// What the same calls do, in direct calls of Qt.
void ClipDirectly(QPainter& painter, const Rings& region, const TZObjects::TXGraphics::stGradientParams& gradient);
void ClipDirectly(QPainter& painter, const Rings& region, bool fill, const TZObjects::TXColor& color);
void ClipDirectly(QPainter& painter, const Rings& region);
/// And what the overload with a colour does in direct calls of cairo.
void ClipDirectly(cairo_t* context, const Rings& region);

/// The region with every coordinate rounded, halves away from zero, as one path of closed polygons.
QPainterPath RoundedPath(const Rings& region);

/// A region of one rectangle.
Rings Box(double left, double top, double right, double bottom);
/// Rings with area, with holes and overlaps, on and beyond an image of about 100 by 70, and among them rings of none,
/// one and two points and rings that are counted negative.
Rings SomeRegion(Random& random);
