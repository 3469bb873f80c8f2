// Polygons, and shapes of many rings.
#include <QPainterPath>

#include "Canvas.h"
#include "Countries.h"
#include "Random.h"
#include "Scene.h"

using namespace TZObjects;

namespace
{

constexpr const char* kSubject = "Polygons";
constexpr int kPolygons = 10000;
constexpr int kPatchworks = 24;
constexpr int kSmallRings = 1;

/// Stars of 5 to 50 corners, at any position.
std::vector<Line> Stars()
{
    Random random(1);
    std::vector<Line> stars(kPolygons);
    for (Line& star : stars)
    {
        const int corners = random.Int(5, 50);
        const TXPoint centre = random.Point(20, 1024);
        const double radius = random.Real(4, 18);
        for (int i = 0; i < corners; ++i)
        {
            const double angle = 6.283185307179586 * i / corners;
            const double distance = radius * random.Real(0.6, 1.0);
            star.Add(TXPoint(centre.x + distance * std::cos(angle), centre.y + distance * std::sin(angle)));
        }
    }
    return stars;
}

void PaintCairoPath(cairo_t* context, const Look& look)
{
    if (look.filled)
    {
        SetCairoColor(context, look.fill);
        look.width > 0.0 ? cairo_fill_preserve(context) : cairo_fill(context);
    }
    if (look.width > 0.0)
    {
        SetCairoColor(context, look.outline);
        cairo_stroke(context);
    }
}

void AddCairoRing(cairo_t* context, const TXPoint* points, int count)
{
    for (int i = 0; i < count; ++i)
        i == 0 ? cairo_move_to(context, points[i].x, points[i].y) : cairo_line_to(context, points[i].x, points[i].y);
    cairo_close_path(context);
}

Contenders DrawPolygons(const Look& look)
{
    const Stage stage;
    stage.canvas->Use(look);
    Contenders contenders = stage.Contenders();
    const auto stars = std::make_shared<const std::vector<Line>>(Stars());
    Canvas* const canvas = stage.canvas.get();
    contenders.ours = Each([=](int i) { canvas->Surface().Polygon((*stars)[i].points.data(), (*stars)[i].Count()); });
    contenders.direct =
        Each([=](int i)
             { canvas->Direct().drawPolygon((*stars)[i].polygon.constData(), (*stars)[i].Count(), Qt::OddEvenFill); });
    contenders.cairo = Each(
        [=](int i)
        {
            AddCairoRing(canvas->Cairo(), (*stars)[i].points.data(), (*stars)[i].Count());
            PaintCairoPath(canvas->Cairo(), look);
        });
    contenders.agg = Each(
        [=](int i)
        {
            const int count = (*stars)[i].Count();
            canvas->Agg().Rings((*stars)[i].points.data(), &count, 1);
        });
    return contenders;
}

/// Shapes of a thousand patches each, as land use has them.
std::vector<Country> Patchworks()
{
    Random random(9);
    std::vector<Country> patchworks(kPatchworks);
    for (Country& patchwork : patchworks)
        for (int patch = 0; patch < 1000; ++patch)
        {
            const TXPoint centre = random.Point(10, 1014);
            const int corners = random.Int(5, 12);
            QPolygonF ring;
            for (int i = 0; i <= corners; ++i)
            {
                const double angle = 6.283185307179586 * (i % corners) / corners;
                ring << QPointF(centre.x + 5.0 * std::cos(angle), centre.y + 4.0 * std::sin(angle));
                patchwork.points.emplace_back(ring.last().x(), ring.last().y());
            }
            patchwork.counts.push_back(ring.size());
            patchwork.polygons.push_back(ring);
        }
    return patchworks;
}

/// 100,000 small triangles of one shape.
std::vector<Country> SmallRings()
{
    Random random(17);
    Country all;
    constexpr int kRings = 100000;
    for (int ring = 0; ring < kRings; ++ring)
    {
        const TXPoint centre = random.Point(5, 1019);
        QPolygonF triangle;
        for (int corner = 0; corner < 3; ++corner)
            triangle << QPointF(centre.x + random.Real(-1.5, 1.5), centre.y + random.Real(-1.5, 1.5));
        triangle << triangle.first();
        for (const QPointF& point : triangle)
            all.points.emplace_back(point.x(), point.y());
        all.counts.push_back(triangle.size());
        all.polygons.push_back(triangle);
    }
    return {std::move(all)};
}

Contenders DrawShapes(const Look& look, std::vector<Country> shapes)
{
    const Stage stage;
    stage.canvas->Use(look);
    Contenders contenders = stage.Contenders();
    const auto countries = std::make_shared<const std::vector<Country>>(std::move(shapes));
    Canvas* const canvas = stage.canvas.get();
    contenders.ours = Each(
        [=](int i)
        {
            const Country& country = (*countries)[i];
            canvas->Surface().PolyPolygon(country.points.data(), country.counts.data(), country.Rings());
        });
    contenders.direct = Each([=](int i) { canvas->Direct().drawPath((*countries)[i].Path()); });
    contenders.cairo = Each(
        [=](int i)
        {
            const TXPoint* ring = (*countries)[i].points.data();
            for (const int count : (*countries)[i].counts)
            {
                AddCairoRing(canvas->Cairo(), ring, count);
                ring += count;
            }
            PaintCairoPath(canvas->Cairo(), look);
        });
    contenders.agg = Each(
        [=](int i)
        {
            const Country& country = (*countries)[i];
            canvas->Agg().Rings(country.points.data(), country.counts.data(), country.Rings());
        });
    return contenders;
}

Contenders DrawCountries(const Look& look) { return DrawShapes(look, ReadCountries("countries-10m.json", 1024, 1024)); }

} // namespace

void AddPolygons(Scenes& scenes)
{
    const Look filled{{214, 196, 148, 255}, {}, 0.0, true};
    const Look translucent{{90, 150, 60, 120}, {70, 60, 90, 200}, 1.0, true};
    scenes.push_back({kSubject, "polygons of 5 to 50 corners, filled", kPolygons, Limit::AtMost(0.70),
                      [=] { return DrawPolygons(filled); }});
    scenes.push_back({kSubject, "polygons, filled and outlined, width 1", kPolygons, Limit::AtMost(0.75),
                      [] { return DrawPolygons(Look()); }});
    scenes.push_back({kSubject, "polygons, filled and outlined, translucent", kPolygons, Limit::AtMost(0.75),
                      [=] { return DrawPolygons(translucent); }});
    scenes.push_back({kSubject, "shapes of 1000 patches each, filled", kPatchworks, Limit::Drawing(),
                      [=] { return DrawShapes(filled, Patchworks()); }});
    scenes.push_back({kSubject, "100,000 small rings of one shape, filled", kSmallRings, Limit::AtMost(1.00),
                      [=] { return DrawShapes(filled, SmallRings()); }});
    const int countries = kCountries10m;
    scenes.push_back({kSubject, "countries 1:10 million, many rings, filled", countries, Limit::AtMost(0.20),
                      [=] { return DrawCountries(filled); }});
    scenes.push_back({kSubject, "countries 1:10 million, outlined, width 1", countries, Limit::AtMost(0.85), [] {
                          return DrawCountries({{}, {70, 60, 90, 255}, 1.0, false});
                      }});
    scenes.push_back({kSubject, "countries 1:10 million, outlined, width 3", countries / 8, Limit::AtMost(0.35), [] {
                          return DrawCountries({{}, {70, 60, 90, 255}, 3.0, false});
                      }});
    scenes.push_back({kSubject, "countries 1:10 million, filled and outlined, width 1", countries, Limit::AtMost(0.50),
                      [] { return DrawCountries(Look()); }});
}
