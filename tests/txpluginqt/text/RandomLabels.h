#pragma once

#include <functional>

#include <QPainter>

#include <tests/support/RandomSource.h>

#include "Label.h"

/// Random labels and states of a painter.
class RandomLabels : private RandomSource
{
public:
    using RandomSource::RandomSource;

    /// A label with everything about it chosen at random.
    Label NextLabel();
    /// A translucent or an opaque colour.
    QColor NextColor();
    /// A change of a painter's transform, clip, opacity, hints, composition and brush.
    std::function<void(QPainter&)> NextChange();

private:
    FontChoice NextFont();
};
