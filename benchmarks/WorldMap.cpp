// A whole map: the world's countries with their names.
#include <QFontMetricsF>

#include "Canvas.h"
#include "Countries.h"
#include "NaiveLabels.h"
#include "Scene.h"

using namespace TZObjects;

namespace
{

constexpr const char* kSubject = "World map of 2048 x 1024, countries 1:10 million and 250 names";
constexpr int kWidth = 2048;
constexpr int kHeight = 1024;
constexpr int kNames = 250;
constexpr int kItems = kCountries10m + kNames;

constexpr QRgb kColors[] = {0xffe8e0d0, 0xfff2d9b8, 0xffd8e6c4, 0xffe9c9c3,
                            0xffd3d3ea, 0xfff4ecb0, 0xffc8e2e0, 0xffe3cfe4};

struct WorldMap
{
    Canvas canvas{kWidth, kHeight};
    std::vector<Country> countries = ReadCountries("countries-10m.json", kWidth, kHeight);
    LabelLook look;
    QFont font = DirectFont(look);
    std::vector<TXRefPtr<TXBrush>> brushes;

    WorldMap()
    {
        look.height = 11;
        look.haloWidth = 3;
        font = DirectFont(look);
        canvas.Surface().SelectFont(MakeFont(look));
        canvas.Use({{}, {120, 110, 120, 255}, 1.0, true});
        for (const QRgb color : kColors)
        {
            brushes.emplace_back(Engine().NewBrush());
            brushes.back()->Create(TXColor(color, true), TXBrush::SolidBrush);
        }
    }

    std::size_t ColorOf(const Country& country) const { return static_cast<std::size_t>(country.category) % 8; }
    const Country& Labelled(int i) const { return countries[static_cast<std::size_t>(i - kCountries10m)]; }

    void DrawOurs(int i)
    {
        TXGraphics& surface = canvas.Surface();
        if (i < kCountries10m)
        {
            const Country& country = countries[static_cast<std::size_t>(i)];
            surface.SelectBrush(brushes[ColorOf(country)]);
            surface.PolyPolygon(country.points.data(), country.counts.data(), country.Rings());
            return;
        }
        const Country& country = Labelled(i);
        double width = 0.0;
        double height = 0.0;
        surface.GetFont()->GetTextExtent(country.name.text, width, height, true);
        const double left = country.middle.x - width * 0.5;
        const double top = country.middle.y - height * 0.5;
        surface.DrawOutlineString(left, top, left, top, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft,
                                  country.name.text, look.fill, 0.0, 0.0, 1.0);
    }

    void DrawDirect(int i)
    {
        QPainter& painter = canvas.Direct();
        if (i < kCountries10m)
        {
            const Country& country = countries[static_cast<std::size_t>(i)];
            painter.setBrush(QColor::fromRgba(kColors[ColorOf(country)]));
            painter.drawPath(country.Path());
            return;
        }
        const Country& country = Labelled(i);
        const QFontMetricsF metrics(font);
        const QRectF bounds = metrics.boundingRect(country.name.direct);
        const double width = std::max(metrics.horizontalAdvance(country.name.direct), bounds.width());
        DrawHaloLabel(painter, font, look,
                      QPointF(country.middle.x - width * 0.5, country.middle.y - bounds.height() * 0.5),
                      country.name.direct);
    }

    /// What was kept of earlier labels goes.
    void Forget()
    {
        TXGraphicsEngineManager& manager = *TXGraphicsEngineManager::instance("");
        const std::size_t size = manager.LabelCacheSize();
        manager.SetLabelCacheSize(0);
        DrawOurs(kCountries10m);
        manager.SetLabelCacheSize(size);
        canvas.Wipe();
    }
};

Contenders DrawMap(bool first)
{
    const auto map = std::make_shared<WorldMap>();
    Contenders contenders;
    contenders.begin = [=](int)
    {
        map->canvas.Wipe();
        if (first)
            map->Forget();
    };
    contenders.ours = Each([=](int i) { map->DrawOurs(i); });
    contenders.direct = Each([=](int i) { map->DrawDirect(i); });
    contenders.differing = [=] { return map->canvas.DifferingPixels(); };
    return contenders;
}

} // namespace

void AddWorldMap(Scenes& scenes)
{
    scenes.push_back({kSubject, "the first picture", kItems, Limit::AtMost(0.38), [] { return DrawMap(true); }});
    scenes.push_back({kSubject, "the next pictures", kItems, Limit::AtMost(0.25), [] { return DrawMap(false); }});
}
