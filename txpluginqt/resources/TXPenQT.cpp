#include <txpluginqt/resources/TXPenQT.h>

#include <algorithm>
#include <cmath>

#include <QPen>
#include <QVector>

#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/EnumTable.h>
#include <txpluginqt/support/Failures.h>

using namespace txqt;

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

constexpr double kTooWideForQt = 1 << 15;

} // namespace

TXPenQT::TXPenQT() = default;

TXPenQT::~TXPenQT() { TXPenQT::Delete(); }

QPen* TXPenQT::Pen() const { return static_cast<QPen*>(internalObject); }

template <class Change>
void TXPenQT::ChangePen(Change change)
{
    if (!IfPresent(Pen(), change))
        shortOfMemory = true;
}

bool TXPenQT::Create(PenStyle style, double width, TXColor color, PenCapStyle cap, PenJoinStyle join)
{
    if (Pen())
        Delete();
    internalObject = NewOrNull<QPen>();
    shortOfMemory = false;
    SetWidth(width);
    SetPenStyle(style);
    SetColor(color);
    SetPenCapStyle(cap);
    SetPenJoinStyle(join);
    // Rather no pen than half of one.
    if (shortOfMemory)
        Delete();
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
    ChangePen([&](QPen& pen) { pen.setStyle(ToBackend(kStyles, style, Qt::NoPen)); });
}

TXPen::PenCapStyle TXPenQT::GetPenCapStyle() const
{
    return Pen() ? ToHost(kCaps, Pen()->capStyle(), RoundCap) : RoundCap;
}

void TXPenQT::SetPenCapStyle(PenCapStyle cap)
{
    ChangePen([&](QPen& pen) { pen.setCapStyle(ToBackend(kCaps, cap, Qt::RoundCap)); });
}

TXPen::PenJoinStyle TXPenQT::GetPenJoinStyle() const
{
    return Pen() ? ToHost(kJoins, Pen()->joinStyle(), RoundJoin) : RoundJoin;
}

void TXPenQT::SetPenJoinStyle(PenJoinStyle join)
{
    ChangePen([&](QPen& pen) { pen.setJoinStyle(ToBackend(kJoins, join, Qt::RoundJoin)); });
}

double TXPenQT::GetWidth() const { return Pen() ? Pen()->widthF() : 0.0; }

void TXPenQT::SetWidth(double width)
{
    // Qt keeps the width that it has, and prints a warning.
    if (width >= kTooWideForQt)
        return;
    // Asked this way round, so that a NaN stays what it is.
    ChangePen([&](QPen& pen) { pen.setWidthF(1.0 > width ? 1.0 : width); });
}

TXColor TXPenQT::GetColor() const { return Pen() ? ToTXColor(Pen()->color()) : TXColor(); }

void TXPenQT::SetColor(const TXColor& color)
{
    ChangePen([&](QPen& pen) { pen.setColor(ToQColor(color)); });
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
    ChangePen(
        [&](QPen& pen)
        {
            // What Qt does with an odd pattern, without the warning that it prints.
            if (steps.size() % 2 == 1)
                steps.push_back(1.0);
            pen.setDashPattern(QVector<qreal>(steps.begin(), steps.end()));
        });
}

} // namespace TZObjects
