#pragma once

#include <string>
#include <vector>

#include <QPainterPath>
#include <QPolygonF>

#include "Random.h"

/// A country as rings, for the plugin and for Qt.
struct Country
{
    std::vector<TZObjects::TXPoint> points;
    std::vector<int> counts;
    std::vector<QPolygonF> polygons;
    Name name;
    TZObjects::TXPoint middle; ///< Of the ring of the most points.
    int category = 0;

    int Rings() const { return static_cast<int>(counts.size()); }
    /// What a programmer makes for `QPainter::drawPath`.
    QPainterPath Path() const;
};

constexpr int kCountries10m = 255;

/// The countries of a file of the folder data/, the world on a picture of that size.
std::vector<Country> ReadCountries(const std::string& file, int width, int height);
