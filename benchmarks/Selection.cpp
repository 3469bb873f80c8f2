// Selection of pens, brushes and fonts.
#include "Canvas.h"
#include "NaiveLabels.h"
#include "Scene.h"

using namespace TZObjects;

namespace
{

constexpr const char* kSubject = "Selection";
constexpr int kSelections = 200000;
constexpr std::size_t kKinds = 8;

template <class Ours, class Direct>
struct Resources
{
    std::vector<TXRefPtr<Ours>> ours;
    std::vector<Direct> direct;
};

Resources<TXPen, QPen> Pens()
{
    Resources<TXPen, QPen> pens;
    for (std::size_t i = 0; i < kKinds; ++i)
    {
        pens.ours.emplace_back(Engine().NewPen());
        pens.ours.back()->Create(TXPen::SolidLine, 1.0 + static_cast<double>(i) * 0.5,
                                 TXColor(static_cast<int>(i) * 20, 90, 40, 255), TXPen::RoundCap, TXPen::RoundJoin);
        pens.direct.push_back(*static_cast<const QPen*>(pens.ours.back()->GetInternalObject()));
        // One of its own.
        pens.direct.back().setWidthF(pens.direct.back().widthF() + 1.0);
        pens.direct.back().setWidthF(pens.direct.back().widthF() - 1.0);
    }
    return pens;
}

Resources<TXBrush, QBrush> Brushes()
{
    Resources<TXBrush, QBrush> brushes;
    for (std::size_t i = 0; i < kKinds; ++i)
    {
        const TXColor color(static_cast<int>(i) * 20, 90, 40, 255);
        brushes.ours.emplace_back(Engine().NewBrush());
        brushes.ours.back()->Create(color, TXBrush::SolidBrush);
        brushes.direct.emplace_back(QColor::fromRgba(color.GetColor()));
    }
    return brushes;
}

Resources<TXFont, QFont> Fonts()
{
    Resources<TXFont, QFont> fonts;
    for (std::size_t i = 0; i < kKinds; ++i)
    {
        LabelLook look;
        look.height = 10 + static_cast<int>(i);
        fonts.ours.push_back(MakeFont(look));
        fonts.direct.push_back(DirectFont(look));
    }
    return fonts;
}

/// @param equal says whether both painters hold the same at the end.
template <class Make, class Select, class Set, class Equal>
Scene SelectionScene(const char* name, Make make, Select select, Set set, Equal equal)
{
    return {kSubject, name, kSelections, Limit::None(),
            [=]
            {
                const Stage stage;
                const auto canvas = stage.canvas;
                const auto resources = std::make_shared<const decltype(make())>(make());
                Contenders contenders;
                contenders.ours = Each(
                    [=](int i) { select(canvas->Surface(), resources->ours[static_cast<std::size_t>(i) % kKinds]); });
                contenders.direct = Each(
                    [=](int i) { set(canvas->Direct(), resources->direct[static_cast<std::size_t>(i) % kKinds]); });
                contenders.begin = [](int) {};
                contenders.differing = [=]
                {
                    const auto& painter = *static_cast<QPainter*>(canvas->Surface().GetInteralObject());
                    return equal(painter, canvas->Direct()) ? 0L : 1L;
                };
                return contenders;
            }};
}

} // namespace

void AddSelection(Scenes& scenes)
{
    scenes.push_back(SelectionScene(
        "pens", Pens, [](TXGraphics& surface, const TXRefPtr<TXPen>& pen) { surface.SelectPen(pen); },
        [](QPainter& painter, const QPen& pen) { painter.setPen(pen); },
        [](const QPainter& a, const QPainter& b) { return a.pen() == b.pen(); }));
    scenes.push_back(SelectionScene(
        "brushes", Brushes, [](TXGraphics& surface, const TXRefPtr<TXBrush>& brush) { surface.SelectBrush(brush); },
        [](QPainter& painter, const QBrush& brush) { painter.setBrush(brush); },
        [](const QPainter& a, const QPainter& b) { return a.brush() == b.brush(); }));
    scenes.push_back(SelectionScene(
        "fonts", Fonts, [](TXGraphics& surface, const TXRefPtr<TXFont>& font) { surface.SelectFont(font); },
        [](QPainter& painter, const QFont& font) { painter.setFont(font); },
        [](const QPainter& a, const QPainter& b) { return a.font() == b.font(); }));
}
