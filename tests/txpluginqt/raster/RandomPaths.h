#pragma once

#include <functional>

#include <QBrush>
#include <QPainter>
#include <QPainterPath>
#include <QTransform>

#include <tests/support/RandomSource.h>

/// Random paths and ways to paint them.
class RandomPaths : public RandomSource
{
public:
    using RandomSource::RandomSource;

    /// Contours beside, over and within one another, in any order, many or few, large or tiny.
    QPainterPath NextPath();
    /// Outlines of a text.
    QPainterPath NextLetters();
    /// Opaque, translucent, patterned, or a gradient.
    QBrush NextBrush();
    /// Usually a translation and a scale, as labels have.
    QTransform NextTransform();
    /// A change of opacity, composition, antialiasing and clip.
    std::function<void(QPainter&)> NextState();

private:
    void AddContour(QPainterPath& path, const QPointF& at, double size);
};
