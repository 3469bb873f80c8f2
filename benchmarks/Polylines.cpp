// Polylines, as rivers and roads are.
#include "Canvas.h"
#include "Random.h"
#include "Scene.h"

using namespace TZObjects;

namespace
{

constexpr const char* kSubject = "Polylines";
constexpr int kLines = 10000;

/// Winding lines of 20 to 200 points.
std::vector<Line> Rivers()
{
    Random random(2);
    std::vector<Line> rivers(kLines);
    for (Line& river : rivers)
    {
        TXPoint at = random.Point(0, 1024);
        double direction = random.Real(0.0, 6.28);
        const int points = random.Int(20, 200);
        for (int i = 0; i < points; ++i)
        {
            river.Add(at);
            direction += random.Real(-0.7, 0.7);
            const double step = random.Real(0.5, 3.0);
            at = TXPoint(at.x + step * std::cos(direction), at.y + step * std::sin(direction));
        }
    }
    return rivers;
}

Contenders DrawPolylines(double width, const TXColor& color)
{
    const Stage stage;
    stage.canvas->Use({{}, color, width, false});
    Contenders contenders = stage.Contenders();
    const auto rivers = std::make_shared<const std::vector<Line>>(Rivers());
    Canvas* const canvas = stage.canvas.get();
    contenders.ours =
        Each([=](int i) { canvas->Surface().Polyline((*rivers)[i].points.data(), (*rivers)[i].Count()); });
    contenders.direct =
        Each([=](int i) { canvas->Direct().drawPolyline((*rivers)[i].polygon.constData(), (*rivers)[i].Count()); });
    contenders.cairo = Each(
        [=](int i)
        {
            cairo_t* const cairo = canvas->Cairo();
            for (const TXPoint& point : (*rivers)[i].points)
                cairo_line_to(cairo, point.x, point.y);
            SetCairoColor(cairo, color);
            cairo_stroke(cairo);
        });
    contenders.agg = Each([=](int i) { canvas->Agg().Polyline((*rivers)[i].points.data(), (*rivers)[i].Count()); });
    return contenders;
}

} // namespace

void AddPolylines(Scenes& scenes)
{
    scenes.push_back({kSubject, "polylines of 20 to 200 points, width 1", kLines, Limit::AtMost(0.85),
                      [] { return DrawPolylines(1.0, TXColor(60, 110, 180, 255)); }});
    scenes.push_back({kSubject, "polylines, width 3", kLines / 20, Limit::AtMost(0.45),
                      [] { return DrawPolylines(3.0, TXColor(170, 60, 40, 255)); }});
    scenes.push_back({kSubject, "polylines, width 3, translucent", kLines / 20, Limit::Drawing(),
                      [] { return DrawPolylines(3.0, TXColor(170, 60, 40, 140)); }});
}
