#pragma once

#include <functional>
#include <random>
#include <vector>

#include <QPainter>

#include "Label.h"

/// Makes the same labels and the same states of a painter for the same seed on every machine.
class RandomLabels
{
public:
    explicit RandomLabels(unsigned seed) : engine(seed) {}

    /// A label with everything about it chosen at random.
    Label NextLabel();
    /// A translucent or an opaque colour.
    QColor NextColor();
    /// A change of a painter's transform, clip, opacity, hints, composition and brush.
    std::function<void(QPainter&)> NextChange();

private:
    int Int(int lowest, int highest);
    double Real(double lowest, double highest);
    bool Chance(int percent) { return Int(1, 100) <= percent; }
    template <class T>
    const T& OneOf(const std::vector<T>& values)
    {
        return values[static_cast<std::size_t>(Int(0, static_cast<int>(values.size()) - 1))];
    }
    FontChoice NextFont();

    std::mt19937 engine;
};
