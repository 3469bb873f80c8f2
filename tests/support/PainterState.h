#pragma once

#include <QBrush>
#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QTransform>

#include <gtest/gtest.h>

/// Everything of a painter that an operation could leave changed.
struct PainterState
{
    explicit PainterState(const QPainter& painter);

    QPen pen;
    QBrush brush;
    QPointF brushOrigin;
    QFont font;
    QTransform transform;
    bool clipping;
    QPainterPath clip;
    qreal opacity;
    QPainter::CompositionMode composition;
    QPainter::RenderHints hints;
};

/// Success when both states are the same in every respect; a failure names each respect that differs.
::testing::AssertionResult SameState(const PainterState& actual, const PainterState& expected);
::testing::AssertionResult SameState(const QPainter& actual, const QPainter& expected);
