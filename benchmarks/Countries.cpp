#include "Countries.h"

#include <cstdlib>
#include <iostream>

#include <ogrsf_frmts.h>

using namespace TZObjects;

namespace
{

void AddRing(Country& country, const OGRLinearRing& ring, int width, int height)
{
    QPolygonF polygon;
    // The last point is the first one again: rings are outlined as far as they go.
    for (int i = 0; i < ring.getNumPoints(); ++i)
        polygon.append(QPointF((ring.getX(i) + 180.0) / 360.0 * width, (90.0 - ring.getY(i)) / 180.0 * height));
    if (polygon.size() < 4)
        return;
    int most = 0;
    for (const int count : country.counts)
        most = std::max(most, count);
    if (polygon.size() > most)
    {
        const QPointF centre = polygon.boundingRect().center();
        country.middle = TXPoint(centre.x(), centre.y());
    }
    for (const QPointF& point : polygon)
        country.points.emplace_back(point.x(), point.y());
    country.counts.push_back(polygon.size());
    country.polygons.push_back(polygon);
}

void AddPolygon(Country& country, const OGRPolygon& polygon, int width, int height)
{
    for (const OGRLinearRing* const ring : polygon)
        AddRing(country, *ring, width, height);
}

} // namespace

QPainterPath Country::Path() const
{
    QPainterPath path;
    for (const QPolygonF& polygon : polygons)
        path.addPolygon(polygon);
    return path;
}

std::vector<Country> ReadCountries(const std::string& file, int width, int height)
{
    GDALAllRegister();
    const std::string path = std::string(TX_BENCH_DATA) + "/" + file;
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
    OGRLayer* const layer = dataset ? dataset->GetLayerByName("countries") : nullptr;
    if (!layer)
    {
        std::cerr << path << " cannot be read" << std::endl;
        std::exit(1);
    }
    std::vector<Country> countries;
    for (const auto& feature : layer)
    {
        Country country;
        country.name.direct = QString::fromUtf8(feature->GetFieldAsString("name"));
        country.name.text = TXString(country.name.direct.toStdWString());
        country.category = feature->GetFieldAsInteger("mapcolor");
        const OGRGeometry* const geometry = feature->GetGeometryRef();
        const auto type = geometry ? wkbFlatten(geometry->getGeometryType()) : wkbUnknown;
        if (type == wkbPolygon)
            AddPolygon(country, *geometry->toPolygon(), width, height);
        else if (type == wkbMultiPolygon)
            for (const OGRPolygon* const polygon : *geometry->toMultiPolygon())
                AddPolygon(country, *polygon, width, height);
        countries.push_back(std::move(country));
    }
    return countries;
}
