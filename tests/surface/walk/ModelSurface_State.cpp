// Selection, the painter's state and the current path of the model.
#include <QBuffer>
#include <QFile>

#include "ModelSurface.h"

using namespace TZObjects;

bool ModelSurface::Paint(const std::function<void(QPainter&)>& draw) const
{
    if (!Painter())
        return false;
    if (Painter()->isActive())
        draw(*Painter());
    return true;
}

void ModelSurface::SelectPen(TXPen::PenStyle style)
{
    Paint([&](QPainter& p) { p.setPen(static_cast<Qt::PenStyle>(static_cast<int>(style))); });
}

ModelSurface::Ptr<ModelPen> ModelSurface::SelectPen(const Ptr<ModelPen>& newPen)
{
    if (!newPen || !Painter())
        return nullptr;
    Paint(
        [&](QPainter& p)
        {
            if (newPen->qpen.style() == Qt::NoPen)
                p.setPen(Qt::NoPen);
            else
                p.setPen(newPen->qpen);
        });
    return std::exchange(pen, Ptr<ModelPen>(newPen));
}

ModelSurface::Ptr<ModelBrush> ModelSurface::SelectBrush(const Ptr<ModelBrush>& newBrush)
{
    if (!newBrush || !Painter())
        return nullptr;
    Paint([&](QPainter& p) { p.setBrush(newBrush->qbrush); });
    return std::exchange(brush, Ptr<ModelBrush>(newBrush));
}

ModelSurface::Ptr<ModelFont> ModelSurface::SelectFont(const Ptr<ModelFont>& newFont)
{
    if (!newFont || !Painter())
        return nullptr;
    Paint([&](QPainter& p) { p.setFont(newFont->qfont); });
    const Ptr<ModelFont> old = std::exchange(font, Ptr<ModelFont>(newFont));
    SelectCairoFace();
    return old;
}

void ModelSurface::SelectGradient(const ModelGradient* gradient)
{
    if (gradient)
        Paint([&](QPainter& p) { p.setBrush(QBrush(gradient->qgradient)); });
}

ModelSurface::Ptr<ModelPen> ModelSurface::GetPen()
{
    if (outside && pen)
        pen->qpen = outside->painter.isActive() ? outside->painter.pen() : QPen();
    return pen;
}

ModelSurface::Ptr<ModelBrush> ModelSurface::GetBrush()
{
    if (outside && brush)
        brush->qbrush = outside->painter.isActive() ? outside->painter.brush() : QBrush();
    return brush;
}

ModelSurface::Ptr<ModelFont> ModelSurface::GetFont()
{
    if (!outside || !font)
        return font;
    const QPainter& painter = outside->painter;
    font->qfont = painter.isActive() ? painter.font() : QFont();
    font->dotsPerInch = painter.isActive() ? painter.device()->logicalDpiY() : 0;
    return font;
}

bool ModelSurface::Save(const TXString& fileName)
{
    return image && image->pixels && image->pixels->save(QString::fromStdWString(fileName.toStdWString()));
}

void ModelSurface::Save()
{
    Paint(
        [&](QPainter& p)
        {
            p.save();
            ++SavedStates();
        });
}

void ModelSurface::Restore()
{
    Paint(
        [&](QPainter& p)
        {
            p.restore();
            if (SavedStates() == 0)
                qtWarning = "QPainter::restore: Unbalanced save/restore";
            else
                --SavedStates();
        });
}

void ModelSurface::SetOpacity(double opacity)
{
    Paint([&](QPainter& p) { p.setOpacity(opacity); });
}

double ModelSurface::GetOpacity() const
{
    if (!Painter())
        return 0.0;
    return Painter()->isActive() ? Painter()->opacity() : 1.0;
}

TXPoint ModelSurface::SetWindowOrg(const TXPoint& origin)
{
    return SetWindowOrg(Truncate(origin.x), Truncate(origin.y));
}

TXPoint ModelSurface::SetWindowOrg(int x, int y)
{
    const TXPoint old = GetWindowOrg();
    Paint([&](QPainter& p) { p.translate(x, y); });
    return old;
}

TXPoint ModelSurface::GetWindowOrg() const
{
    TXPoint origin;
    Paint([&](QPainter& p) { origin = TXPoint(p.transform().dx(), p.transform().dy()); });
    return origin;
}

void ModelSurface::SetCompositionMode(TXGraphics::TXCompositionMode mode)
{
    if (mode >= 0 && mode <= 37)
        Paint([&](QPainter& p)
              { p.setCompositionMode(static_cast<QPainter::CompositionMode>(static_cast<int>(mode))); });
}

void ModelSurface::EnableAntialiasing(bool on)
{
    Paint([&](QPainter& p) { p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing, on); });
}

bool ModelSurface::MoveTo(double x, double y)
{
    if (!path)
        path = std::make_unique<QPainterPath>();
    path->moveTo(x, y);
    return true;
}

bool ModelSurface::LineTo(double x, double y)
{
    if (!path)
        path = std::make_unique<QPainterPath>();
    path->lineTo(x, y);
    return true;
}

bool ModelSurface::CurveTo(double c1x, double c1y, double c2x, double c2y, double x, double y)
{
    if (!path)
        path = std::make_unique<QPainterPath>();
    path->cubicTo(c1x, c1y, c2x, c2y, x, y);
    return true;
}

bool ModelSurface::QuadTo(double cx, double cy, double x, double y)
{
    if (!path)
        path = std::make_unique<QPainterPath>();
    path->quadTo(cx, cy, x, y);
    return true;
}

void ModelSurface::ClosePath()
{
    if (path)
        path->closeSubpath();
}

void ModelSurface::DrawPath()
{
    if (!path || !Painter())
        return;
    Paint([&](QPainter& p) { p.drawPath(*path); });
    *path = QPainterPath();
}
