// Lines, rectangles, ellipses, paths and fills.
#include <QPainterPath>

#include "Canvas.h"
#include "Random.h"
#include "Scene.h"

using namespace TZObjects;

namespace
{

constexpr const char* kSubject = "Shapes";
constexpr int kShapes = 20000;

struct Box
{
    double x, y, width, height;
};

const std::vector<Box>& Boxes()
{
    static const std::vector<Box> boxes = []
    {
        Random random(3);
        std::vector<Box> made;
        for (int i = 0; i < kShapes; ++i)
        {
            const TXPoint corner = random.Point(0, 980);
            const double width = random.Real(3, 40);
            made.push_back({corner.x, corner.y, width, random.Real(3, 40)});
        }
        return made;
    }();
    return boxes;
}

/// Halves away from zero, as lines are rounded.
int Rounded(double value) { return static_cast<int>(std::round(value)); }
int Whole(double value) { return static_cast<int>(value); }
QRect WholeRect(const Box& b) { return QRect(Whole(b.x), Whole(b.y), Whole(b.width), Whole(b.height)); }

using DrawOurs = void (*)(TXGraphics& surface, const Box& box);
using DrawDirect = void (*)(QPainter& painter, const Box& box);

Scene ShapeScene(const char* name, const Look& look, DrawOurs ours, DrawDirect direct)
{
    return {kSubject, name, kShapes, Limit::Drawing(),
            [=]
            {
                const Stage stage;
                stage.canvas->Use(look);
                Contenders contenders = stage.Contenders();
                Canvas* const canvas = stage.canvas.get();
                const Box* const boxes = Boxes().data();
                contenders.ours = Each([=](int i) { ours(canvas->Surface(), boxes[i]); });
                contenders.direct = Each([=](int i) { direct(canvas->Direct(), boxes[i]); });
                return contenders;
            }};
}

const TXColor kFill(90, 150, 60, 255);

} // namespace

void AddShapes(Scenes& scenes)
{
    const Look usual;
    scenes.push_back(ShapeScene(
        "lines, width 1", usual,
        [](TXGraphics& surface, const Box& b) { surface.Line(b.x, b.y, b.x + b.width, b.y + b.height); },
        [](QPainter& painter, const Box& b)
        { painter.drawLine(Rounded(b.x), Rounded(b.y), Rounded(b.x + b.width), Rounded(b.y + b.height)); }));
    scenes.push_back(ShapeScene(
        "rectangles, filled and outlined", usual,
        [](TXGraphics& surface, const Box& b) { surface.Rectangle(b.x, b.y, b.width, b.height); },
        [](QPainter& painter, const Box& b) { painter.drawRect(WholeRect(b)); }));
    scenes.push_back(ShapeScene(
        "ellipses, filled and outlined", usual,
        [](TXGraphics& surface, const Box& b)
        { surface.Ellipse(TXPoint(b.x, b.y), Whole(b.width / 2), Whole(b.height / 2)); },
        [](QPainter& painter, const Box& b)
        { painter.drawEllipse(QPoint(Whole(b.x), Whole(b.y)), Whole(b.width / 2), Whole(b.height / 2)); }));
    scenes.push_back(ShapeScene(
        "ellipses, turned by 30 degrees", usual,
        [](TXGraphics& surface, const Box& b) { surface.Ellipse(b.x, b.y, b.width, b.height, 30, true); },
        [](QPainter& painter, const Box& b)
        {
            painter.save();
            painter.translate(b.x, b.y);
            painter.rotate(30);
            painter.drawEllipse(QRect(Whole(-b.width * 0.5), Whole(-b.height * 0.5), Whole(b.width), Whole(b.height)));
            painter.restore();
        }));
    scenes.push_back(ShapeScene(
        "pies", usual, [](TXGraphics& surface, const Box& b) { surface.Pie(b.x, b.y, b.width, b.height, 20.0, 250.0); },
        [](QPainter& painter, const Box& b) { painter.drawPie(WholeRect(b), 20 * 16, 250 * 16); }));
    scenes.push_back(ShapeScene(
        "arcs, width 1", usual,
        [](TXGraphics& surface, const Box& b) { surface.Arc(b.x, b.y, b.width, b.height, 20.0, 250.0); },
        [](QPainter& painter, const Box& b) { painter.drawArc(WholeRect(b), 20 * 16, 250 * 16); }));
    scenes.push_back(ShapeScene(
        "paths of lines and curves", usual,
        [](TXGraphics& surface, const Box& b)
        {
            surface.MoveTo(b.x, b.y);
            surface.LineTo(b.x + b.width, b.y);
            surface.CurveTo(b.x + b.width, b.y + b.height, b.x, b.y + b.height, b.x - b.width, b.y);
            surface.QuadTo(b.x, b.y - b.height, b.x + b.width * 0.5, b.y);
            surface.ClosePath();
            surface.DrawPath();
        },
        [](QPainter& painter, const Box& b)
        {
            QPainterPath path;
            path.moveTo(b.x, b.y);
            path.lineTo(b.x + b.width, b.y);
            path.cubicTo(b.x + b.width, b.y + b.height, b.x, b.y + b.height, b.x - b.width, b.y);
            path.quadTo(b.x, b.y - b.height, b.x + b.width * 0.5, b.y);
            path.closeSubpath();
            painter.drawPath(path);
        }));
    scenes.push_back(ShapeScene(
        "fills with a colour", usual,
        [](TXGraphics& surface, const Box& b)
        { surface.fillRect(TXRect(b.x, b.x + b.width, b.y, b.y + b.height), kFill); },
        [](QPainter& painter, const Box& b)
        {
            // From edge to edge, which need not be as wide as the width made whole.
            painter.fillRect(QRect(Whole(b.x), Whole(b.y), Whole(b.x + b.width - b.x), Whole(b.y + b.height - b.y)),
                             QColor(kFill.getR(), kFill.getG(), kFill.getB(), kFill.getA()));
        }));
}
