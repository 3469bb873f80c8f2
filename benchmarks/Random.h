#pragma once

#include <cmath>
#include <random>
#include <vector>

#include <QPointF>
#include <QPolygonF>
#include <QString>

#include <txbase/TXPoint.h>
#include <txbase/TXString.h>

/// The same numbers in every run.
class Random
{
public:
    explicit Random(unsigned seed) : engine(seed) {}

    int Int(int least, int greatest) { return std::uniform_int_distribution<int>(least, greatest)(engine); }
    double Real(double least, double greatest)
    {
        return std::uniform_real_distribution<double>(least, greatest)(engine);
    }
    TZObjects::TXPoint Point(double margin, double side)
    {
        const double x = Real(margin, side - margin);
        return TZObjects::TXPoint(x, Real(margin, side - margin));
    }

private:
    std::mt19937 engine;
};

/// The same points for the plugin and for Qt.
struct Line
{
    std::vector<TZObjects::TXPoint> points;
    QPolygonF polygon;

    void Add(const TZObjects::TXPoint& point)
    {
        points.push_back(point);
        polygon.append(QPointF(point.x, point.y));
    }
    int Count() const { return static_cast<int>(points.size()); }
};

/// A text for the plugin and for Qt.
struct Name
{
    TZObjects::TXString text;
    QString direct;
};

/// So many names of places; no two with the same number and seed are the same.
std::vector<Name> Names(int count, unsigned seed);
/// The name of number @p number in a long row of names that are all distinct.
Name DistinctName(int number);
