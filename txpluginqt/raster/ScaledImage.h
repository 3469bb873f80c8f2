#pragma once

#include <QImage>
#include <QPainter>
#include <QRect>

namespace txqt
{

/// True when `DrawScaled` draws, pixel for pixel, what drawing a copy that `QImage::scaled` has scaled fast does, and
/// faster.
bool CanDrawScaled(const QPainter& painter, const QImage& image, const QRect& target);

/// Draws @p image into @p target, scaled fast. A strip of the scaled copy is made and drawn at a time, so that no
/// memory is needed for the whole.
void DrawScaled(QPainter& painter, const QImage& image, const QRect& target);

} // namespace txqt
