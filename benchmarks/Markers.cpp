// Point symbols.
#include <QPolygonF>

#include "Canvas.h"
#include "Random.h"
#include "Scene.h"

using namespace TZObjects;

namespace
{

constexpr const char* kSubject = "Markers";
constexpr int kMarkers = 10000;
constexpr const char* kSymbolFont = "DejaVu Sans";

struct Symbol
{
    Line shape;
    TXPoint anchor;
    double scale;
    double angle;
};

/// Small symbols of 4 to 12 corners.
std::shared_ptr<const std::vector<Symbol>> Symbols(bool turned)
{
    Random random(4);
    auto symbols = std::make_shared<std::vector<Symbol>>();
    for (int i = 0; i < kMarkers; ++i)
    {
        Symbol symbol{{}, random.Point(10, 1024), random.Real(2.5, 7.0), turned ? random.Real(1.0, 359.0) : 0.0};
        const int corners = random.Int(4, 12);
        for (int k = 0; k < corners; ++k)
        {
            const double angle = 6.283185307179586 * k / corners;
            const double distance = k % 2 == 0 ? 1.0 : 0.6;
            symbol.shape.Add(TXPoint(distance * std::cos(angle), distance * std::sin(angle)));
        }
        symbols->push_back(std::move(symbol));
    }
    return symbols;
}

Contenders DrawVectorMarkers(bool turned, bool closed)
{
    const Stage stage;
    stage.canvas->Use(Look());
    Contenders contenders = stage.Contenders();
    const auto symbols = Symbols(turned);
    Canvas* const canvas = stage.canvas.get();
    contenders.ours = Each(
        [=](int i)
        {
            const Symbol& s = (*symbols)[i];
            canvas->Surface().VectorMarker(s.anchor.x, s.anchor.y, s.scale, s.scale, s.angle, s.shape.points.data(),
                                           s.shape.Count(), closed);
        });
    contenders.direct = Each(
        [=](int i)
        {
            const Symbol& s = (*symbols)[i];
            QPainter& painter = canvas->Direct();
            painter.save();
            painter.translate(s.anchor.x, s.anchor.y);
            if (s.angle != 0.0)
                painter.rotate(s.angle);
            QPolygonF scaled(s.shape.Count());
            for (int k = 0; k < s.shape.Count(); ++k)
                scaled[k] = QPointF(s.scale * s.shape.polygon[k].x(), s.scale * s.shape.polygon[k].y());
            if (closed)
                painter.drawPolygon(scaled);
            else
                painter.drawPolyline(scaled);
            painter.restore();
        });
    return contenders;
}

Contenders DrawFontMarkers()
{
    const Stage stage;
    stage.canvas->Use(Look());
    const TXRefPtr<TXFont> font(Engine().NewFont());
    font->Create();
    stage.canvas->Surface().SelectFont(font);
    Contenders contenders = stage.Contenders();
    const auto symbols = Symbols(true);
    Canvas* const canvas = stage.canvas.get();
    contenders.ours = Each(
        [=](int i)
        {
            const Symbol& s = (*symbols)[i];
            canvas->Surface().FontMarker(s.anchor.x, s.anchor.y, 14.0, 14.0, s.angle, TXString(kSymbolFont),
                                         static_cast<short>('A' + i % 26));
        });
    // The font that the surface uses; of a programmer's own font only the size and the family would change.
    const QFont* const start = static_cast<const QFont*>(font->GetInternalObject());
    const auto direct = std::make_shared<QFont>(*start);
    contenders.direct = Each(
        [=](int i)
        {
            const Symbol& s = (*symbols)[i];
            QPainter& painter = canvas->Direct();
            direct->setStretch(start->stretch());
            direct->setPixelSize(14);
            direct->setFamily(QString::fromUtf8(kSymbolFont));
            direct->setStyleStrategy(QFont::PreferAntialias);
            painter.setFont(*direct);
            painter.save();
            painter.setRenderHint(QPainter::TextAntialiasing);
            painter.translate(s.anchor.x, s.anchor.y);
            painter.rotate(s.angle);
            painter.translate(-7.0, -7.0);
            painter.drawText(QRect(0, 0, 14, 14), Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextDontClip,
                             QString(QChar('A' + i % 26)));
            painter.restore();
        });
    return contenders;
}

} // namespace

void AddMarkers(Scenes& scenes)
{
    scenes.push_back({kSubject, "symbols of 4 to 12 corners", kMarkers, Limit::AtMost(0.75),
                      [] { return DrawVectorMarkers(false, true); }});
    scenes.push_back({kSubject, "symbols, each at an angle", kMarkers, Limit::AtMost(0.75),
                      [] { return DrawVectorMarkers(true, true); }});
    scenes.push_back({kSubject, "open symbols, each at an angle", kMarkers, Limit::SmallMarker(),
                      [] { return DrawVectorMarkers(true, false); }});
    scenes.push_back({kSubject, "characters of a symbol font, each at an angle", kMarkers / 5, Limit::SmallMarker(),
                      [] { return DrawFontMarkers(); }});
}
