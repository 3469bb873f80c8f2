#pragma once

#include <QImage>
#include <QPainter>
#include <QRect>

/// True when Qt, drawing @p image into @p target in one go and without smoothing, takes for every pixel the one that
/// `QImage::scaled` takes, and blends it alike, in less time: then there is no need for a scaled copy. The painter must
/// compose source-over.
bool ScalesAlikeInPlace(const QPainter& painter, const QImage& image, const QRect& target);

/// Draws @p image into @p target without smoothing.
void DrawScaledInPlace(QPainter& painter, const QImage& image, const QRect& target);
