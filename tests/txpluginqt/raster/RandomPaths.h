#pragma once

#include <functional>
#include <random>

#include <QBrush>
#include <QPainter>
#include <QPainterPath>
#include <QTransform>

/// Makes the same paths and the same ways to paint them for the same seed on every machine.
class RandomPaths
{
public:
    explicit RandomPaths(unsigned seed) : engine(seed) {}

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

    int Int(int lowest, int highest);
    double Real(double lowest, double highest);
    bool Chance(int percent) { return Int(1, 100) <= percent; }

private:
    void AddContour(QPainterPath& path, const QPointF& at, double size);

    std::mt19937 engine;
};
