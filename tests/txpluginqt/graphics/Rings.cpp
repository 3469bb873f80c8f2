#include "Rings.h"

#include <algorithm>

using namespace TZObjects;

Rings::Rings(std::initializer_list<std::vector<TXPoint>> rings)
{
    for (const std::vector<TXPoint>& ring : rings)
        Add(ring);
}

void Rings::Add(const std::vector<TXPoint>& ring)
{
    points.insert(points.end(), ring.begin(), ring.end());
    counts.push_back(static_cast<int>(ring.size()));
}

void Rings::CloseAll()
{
    Rings closed;
    auto first = points.cbegin();
    for (const int count : counts)
    {
        std::vector<TXPoint> ring(first, first + count);
        if (count > 0)
            ring.push_back(*first);
        closed.Add(ring);
        first += count;
    }
    *this = closed;
}

void Rings::ReverseLast() { std::reverse(points.end() - counts.back(), points.end()); }

bool Rings::Draw(TXGraphics& surface) const
{
    return surface.PolyPolygon(points.data(), counts.data(), static_cast<int>(counts.size()));
}

bool Rings::Draw(TXGraphics& surface, const TXGraphics::stGradientParams& gradient) const
{
    return surface.PolyPolygon(points.data(), counts.data(), static_cast<int>(counts.size()), gradient);
}

QPainterPath Rings::Path() const
{
    QPainterPath path;
    auto point = points.cbegin();
    for (const int count : counts)
        for (int i = 0; i < count; ++i, ++point)
            if (i == 0)
                path.moveTo(ToQt(*point));
            else
                path.lineTo(ToQt(*point));
    return path;
}

Rings SomeRings(Random& random)
{
    Rings rings;
    // At least one ring of three points, as a path of single segments only is drawn by another route.
    rings.Add(random.Points(3, 8));
    const int more = random.Int(0, 3);
    for (int i = 0; i < more; ++i)
    {
        std::vector<TXPoint> ring = random.Points(2, 8);
        if (random.Chance(15))
            ring.clear();
        else if (random.Chance(50))
            ring.push_back(ring.front());
        rings.Add(ring);
    }
    return rings;
}
