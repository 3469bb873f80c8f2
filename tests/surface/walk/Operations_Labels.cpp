// Markers and labels.
#include <tests/txpluginqt/text/LabelTexts.h>
#include <tests/txpluginqt/text/RandomLabels.h>

#include "Operations.h"
#include "Settle.h"

using namespace TZObjects;

namespace
{

int Count(const std::vector<TXPoint>& points) { return static_cast<int>(points.size()); }

double SomeAngle(Random& r)
{
    return r.Chance(50) ? r.OneOf({0.0, 1e-9, 0.5, 1.0, -30.0, 90.0, 359.5}) : r.Real(-400.0, 400.0);
}

/// What `VectorMarker` takes beside scales and places.
std::tuple<double, std::vector<TXPoint>, bool> SomeSymbol(Random& r)
{
    std::vector<TXPoint> points;
    for (int i = r.Int(0, 7); i > 0; --i)
        points.push_back(TXPoint{r.Real(-20.0, 20.0), r.Real(-20.0, 20.0)});
    return {SomeAngle(r), points, r.Chance(50)};
}

std::tuple<double, double> SomeScales(Random& r) { return {r.Real(-2.0, 2.0), r.Real(-2.0, 2.0)}; }

std::tuple<TXPoint> SomePlace(Random& r)
{
    const double x = r.Real(0.0, 96.0);
    return {TXPoint(x, r.Real(0.0, 72.0))};
}

/// A label like those of the tests of labels, moved to where the smaller surface is.
std::tuple<Label> SomeLabel(Random& r)
{
    Label label = RandomLabels(static_cast<unsigned>(r.Int(0, 1 << 30))).NextLabel();
    label.text = SomeText(r);
    const double dx = label.x * -0.4;
    const double dy = label.y * -0.3;
    for (double* const x : {&label.x, &label.left, &label.right})
        *x += dx;
    for (double* const y : {&label.y, &label.top, &label.bottom})
        *y += dy;
    return {label};
}

/// What `FontMarker` takes beside the place.
auto SomeCharacter(Random& r)
{
    const auto family = r.Chance(8) ? L"Noto Color Emoji"
                                    : r.OneOf<const wchar_t*>({L"DejaVu Sans", L"DejaVu Sans", L"DejaVu Serif",
                                                               L"WenQuanYi Micro Hei", L"No Such Face", L""});
    return std::tuple{r.Real(-2.0, 30.0), r.Real(-2.0, 30.0), SomeAngle(r), TXString(family),
                      r.OneOf<short>({'A', 'g', '@', ' ', 0x2605, 0x231a, 0x4e2d, short(0xf045), short(0xd83d)})};
}

bool SettleLabel(World& world, int surface, const Label& label)
{
    const ModelSurface& model = world.Model(surface);
    if (model.CairoDrawingEnabled())
        return true;
    if (model.Font())
        Settle(model.Font()->qfont, label.Text());
    if (model.Painter() && model.Painter()->isActive())
        Settle(model.Painter()->font(), label.Text());
    return true;
}

/// In the font that the marker sets.
bool SettleCharacter(World& world, int surface, const TXPoint&, double width, double height, double,
                     const TXString& fontName, short character)
{
    if (!world.Model(surface).Font())
        return true;
    ModelFont font = *world.Model(surface).Font();
    font.SetSymbol(width, height, fontName);
    Settle(font.qfont, QString(QChar(static_cast<ushort>(character))));
    return true;
}

} // namespace

std::vector<Operation> MarkerOperations()
{
    return {
        SurfaceRow(
            "VectorMarker(point)", 2, Joined(SomePlace, SomeScales, SomeSymbol),
            [](auto& s, const TXPoint& anchor, double scaleX, double scaleY, double angle, const auto& p, bool closed)
            { return s.VectorMarker(anchor, scaleX, scaleY, angle, p.data(), Count(p), closed); }),
        SurfaceRow(
            "VectorMarker", 4, Joined(SomePlace, SomeScales, SomeSymbol),
            [](auto& s, const TXPoint& at, double scaleX, double scaleY, double angle, const auto& p, bool closed)
            { return s.VectorMarker(at.x, at.y, scaleX, scaleY, angle, p.data(), Count(p), closed); }),
        SurfaceRow("VectorMarker(offset)", 4, Joined(SomePlace, SomeScales, SomePlace, SomeSymbol),
                   [](auto& s, const TXPoint& offset, double scaleX, double scaleY, const TXPoint& at, double angle,
                      const auto& p, bool closed) {
                       return s.VectorMarker(offset.x, offset.y, scaleX, scaleY, at.x, at.y, angle, p.data(), Count(p),
                                             closed);
                   }),
        SurfaceRow(
            "FontMarker(point)", 2, Joined(SomePlace, SomeCharacter),
            [](auto& s, auto... a) { return s.FontMarker(a...); }, SettleCharacter),
        SurfaceRow(
            "FontMarker", 6, Joined(SomePlace, SomeCharacter),
            [](auto& s, const TXPoint& at, auto... a) { return s.FontMarker(at.x, at.y, a...); }, SettleCharacter),
    };
}

std::wstring SomeText(Random& r)
{
    if (r.Chance(12))
        return r.OneOf<const wchar_t*>({L"a\U0001F30Db", L"\U0001F600", L"x\n\U0001F30D\U0001F600", L"10 \u231a",
                                        L"<BOL>\U0001F30D</BOL> y", L"<ITA>z\U0001F600</ITA>"});
    const std::vector<std::wstring>& texts = LabelTexts();
    return texts[static_cast<std::size_t>(r.Int(0, static_cast<int>(texts.size()) - 1))];
}

std::vector<Operation> LabelOperations()
{
    std::vector<Operation> rows;
    for (const Entry entry : kAllEntries)
        rows.push_back(SurfaceRow(
            NameOf(entry), 7, SomeLabel, [=](auto& s, const Label& label) { return Draw(s, entry, label); },
            SettleLabel));
    return rows;
}
