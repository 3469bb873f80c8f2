#include <txpluginqt/resources/TXPenQT.h>

#include <algorithm>
#include <cmath>

#include <QPen>
#include <QVector>

#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/EnumTable.h>
#include <txpluginqt/support/Guards.h>

namespace TZObjects
{
namespace
{

constexpr EnumRow<TXPen::PenStyle, Qt::PenStyle> kStyles[] = {
    {TXPen::NullPen, Qt::NoPen},
    {TXPen::SolidLine, Qt::SolidLine},
    {TXPen::DashLine, Qt::DashLine},
    {TXPen::DotLine, Qt::DotLine},
    {TXPen::DashDotLine, Qt::DashDotLine},
    {TXPen::DashDotDotLine, Qt::DashDotDotLine},
    {TXPen::CustomDashLine, Qt::CustomDashLine},
};

constexpr EnumRow<TXPen::PenCapStyle, Qt::PenCapStyle> kCaps[] = {
    {TXPen::RoundCap, Qt::RoundCap},
    {TXPen::SquareCap, Qt::SquareCap},
    {TXPen::FlatCap, Qt::FlatCap},
};

constexpr EnumRow<TXPen::PenJoinStyle, Qt::PenJoinStyle> kJoins[] = {
    {TXPen::BevelJoin, Qt::BevelJoin},
    {TXPen::RoundJoin, Qt::RoundJoin},
    {TXPen::MiterJoin, Qt::MiterJoin},
};

} // namespace

TXPenQT::TXPenQT() = default;

TXPenQT::~TXPenQT() { TXPenQT::Delete(); }

QPen* TXPenQT::Pen() const { return static_cast<QPen*>(internalObject); }

bool TXPenQT::Create(PenStyle style, double width, TXColor color, PenCapStyle cap, PenJoinStyle join)
{
    if (Pen())
        Delete();
    internalObject = NewOrNull<QPen>();
    SetWidth(width);
    SetPenStyle(style);
    SetColor(color);
    SetPenCapStyle(cap);
    SetPenJoinStyle(join);
    return true;
}

bool TXPenQT::Delete()
{
    delete Pen();
    internalObject = nullptr;
    return true;
}

TXPen::PenStyle TXPenQT::GetPenStyle() const { return Pen() ? ToHost(kStyles, Pen()->style(), NullPen) : NullPen; }

void TXPenQT::SetPenStyle(PenStyle style)
{
    IfPresent(Pen(), [&](QPen& pen) { pen.setStyle(ToBackend(kStyles, style, Qt::NoPen)); });
}

TXPen::PenCapStyle TXPenQT::GetPenCapStyle() const
{
    return Pen() ? ToHost(kCaps, Pen()->capStyle(), RoundCap) : RoundCap;
}

void TXPenQT::SetPenCapStyle(PenCapStyle cap)
{
    IfPresent(Pen(), [&](QPen& pen) { pen.setCapStyle(ToBackend(kCaps, cap, Qt::RoundCap)); });
}

TXPen::PenJoinStyle TXPenQT::GetPenJoinStyle() const
{
    return Pen() ? ToHost(kJoins, Pen()->joinStyle(), RoundJoin) : RoundJoin;
}

void TXPenQT::SetPenJoinStyle(PenJoinStyle join)
{
    IfPresent(Pen(), [&](QPen& pen) { pen.setJoinStyle(ToBackend(kJoins, join, Qt::RoundJoin)); });
}

double TXPenQT::GetWidth() const { return Pen() ? Pen()->widthF() : 0.0; }

void TXPenQT::SetWidth(double width)
{
    // Asked this way round, so that a NaN stays what it is.
    IfPresent(Pen(), [&](QPen& pen) { pen.setWidthF(1.0 > width ? 1.0 : width); });
}

TXColor TXPenQT::GetColor() const { return Pen() ? ToTXColor(Pen()->color()) : TXColor(); }

void TXPenQT::SetColor(const TXColor& color)
{
    IfPresent(Pen(), [&](QPen& pen) { pen.setColor(ToQColor(color)); });
}

std::vector<double> TXPenQT::GetSteps() const
{
    if (!Pen())
        return {};
    return ResultOr(std::vector<double>(),
                    [&]
                    {
                        const QVector<qreal> pattern = Pen()->dashPattern();
                        return std::vector<double>(pattern.begin(), pattern.end());
                    });
}

void TXPenQT::SetSteps(std::vector<double> steps)
{
    // Qt's dasher never ends on a pattern with a number that is not finite.
    const bool finite = std::all_of(steps.begin(), steps.end(), [](double step) { return std::isfinite(step); });
    if (!finite)
        return;
    IfPresent(Pen(),
              [&](QPen& pen)
              {
                  // What Qt does with an odd pattern, without the warning that it prints.
                  if (steps.size() % 2 == 1)
                      steps.push_back(1.0);
                  pen.setDashPattern(QVector<qreal>(steps.begin(), steps.end()));
              });
}

} // namespace TZObjects
