#pragma once

#include <initializer_list>
#include <vector>

#include <QPainterPath>

#include <txgraphics/TXGraphics.h>

#include "ExpectedGradient.h"
#include "RandomCases.h"

/// A shape of several rings, as the multi-ring operations take it.
class Rings
{
public:
    Rings() = default;
    Rings(std::initializer_list<std::vector<TZObjects::TXPoint>> rings);

    void Add(const std::vector<TZObjects::TXPoint>& ring);
    /// Repeats the first point of every ring at its end.
    void CloseAll();
    /// Turns the direction of the last ring round.
    void ReverseLast();

    bool Draw(TZObjects::TXGraphics& surface) const;
    bool Draw(TZObjects::TXGraphics& surface, const TZObjects::TXGraphics::stGradientParams& gradient) const;
    /// The shape as a path: a ring starts with a move and goes on with lines, and is not closed by itself.
    QPainterPath Path() const;

    std::vector<TZObjects::TXPoint> points;
    std::vector<int> counts;
};

/// Between one and four rings, without rings of one point: a path drops those, which shifts dash patterns.
Rings SomeRings(Random& random);
