#pragma once

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include "RandomPaths.h"

/// Draws random shapes with random painters, by QPainter and by the rasteriser, and compares every byte. Both draw in
/// the same memory: Qt itself differs where a buffer lies elsewhere.
class RandomDrawings
{
public:
    explicit RandomDrawings(unsigned seed) : random(seed) {}

    /// Draws one shape both ways.
    ::testing::AssertionResult DrawnAlike();

private:
    enum class Way
    {
        QPainter,
        Rasterizer
    };

    struct Shape
    {
        int kind;
        std::vector<QPointF> points;
        QPainterPath path;
        QRect rect;
        int start;
        int span;
        Qt::FillRule rule;
    };

    QBrush RandomBrush(bool solidOnly);
    QPen RandomPen();
    QColor RandomColor();
    QPointF RandomPoint(double reach);
    Shape RandomShape();
    void SetRandomClip(QPainter& painter);
    QTransform RandomTransform();
    /// Draws over the background everything that the random numbers from here on say.
    void DrawAll(QImage& picture, const QImage& background, Way way);
    /// The same by QPainter, from farther down the stack.
    void DrawAllFarther(int bytes, QImage& picture, const QImage& background);
    static void Draw(QPainter& painter, const Shape& shape, Way way);

    RandomPaths random;
};
