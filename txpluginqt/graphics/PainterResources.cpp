#include <txpluginqt/graphics/PainterResources.h>

#include <cmath>

#include <QBrush>
#include <QFont>
#include <QGradient>
#include <QPen>

#include <txpluginqt/support/Numbers.h>

using namespace TZObjects;

namespace txqt
{
namespace
{

bool IsDrawablePoint(const QPointF& point) { return IsDrawable(point.x(), point.y()); }

} // namespace

void ApplyPen(QPainter& painter, const TXPen& pen)
{
    const auto* const qpen = static_cast<const QPen*>(pen.GetInternalObject());
    if (!qpen)
        return;
    if (qpen->style() == Qt::NoPen)
        // Not the pen itself: the painter's pen is plain black then, and so is text drawn with it.
        painter.setPen(Qt::NoPen);
    else if (std::isnan(qpen->widthF()))
    {
        QPen drawable = *qpen;
        drawable.setWidthF(1.0);
        painter.setPen(drawable);
    }
    else
        painter.setPen(*qpen);
}

void ApplyBrush(QPainter& painter, TXBrush& brush)
{
    if (const auto* const qbrush = static_cast<const QBrush*>(brush.GetInternalObject()))
        painter.setBrush(*qbrush);
}

void ApplyQFont(QPainter& painter, const TXFont& font)
{
    if (const auto* const qfont = static_cast<const QFont*>(font.GetInternalObject()))
        painter.setFont(*qfont);
}

bool IsDrawable(const QGradient& gradient)
{
    switch (gradient.type())
    {
    case QGradient::LinearGradient:
    {
        const auto& linear = static_cast<const QLinearGradient&>(gradient);
        return IsDrawablePoint(linear.start()) && IsDrawablePoint(linear.finalStop());
    }
    case QGradient::RadialGradient:
    {
        const auto& radial = static_cast<const QRadialGradient&>(gradient);
        return IsDrawablePoint(radial.center()) && IsDrawablePoint(radial.focalPoint()) && IsDrawable(radial.radius());
    }
    case QGradient::ConicalGradient:
        return IsDrawablePoint(static_cast<const QConicalGradient&>(gradient).center());
    default:
        return false;
    }
}

} // namespace txqt
