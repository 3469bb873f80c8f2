// Selection, attributes and the painter's state.
#include <QFile>
#include <QTemporaryDir>

#include "Operations.h"

using namespace TZObjects;

namespace
{

std::tuple<int> SomePen(Random& random) { return {random.Int(-1, kPens - 1)}; }
std::tuple<int> SomeBrush(Random& random) { return {random.Int(-1, kBrushes - 1)}; }
std::tuple<int> SomeFont(Random& random) { return {random.Int(-1, kFonts - 1)}; }
std::tuple<int> SomeGradientNumber(Random& random) { return {random.Int(-1, kGradients - 1)}; }

std::tuple<double> SomeOpacity(Random& random)
{
    return {random.Chance(60) ? 1.0 : random.Chance(80) ? random.Real(0.2, 1.0) : random.OneOf({0.0, -0.5, 7.0})};
}

std::tuple<int> SomeMode(Random& random)
{
    if (random.Chance(50))
        return {TXGraphics::CompositionMode_SourceOver};
    if (random.Chance(25))
        return {random.Int(TXGraphics::RasterOp_SourceOrDestination, TXGraphics::RasterOp_NotDestination)};
    return {random.Chance(10) ? random.OneOf({-1, 38, 1000}) : random.Int(0, TXGraphics::CompositionMode_Exclusion)};
}

std::tuple<int, int> SomeShift(Random& random) { return {random.Int(-12, 12), random.Int(-12, 12)}; }

std::tuple<TXPoint> SomePointShift(Random& random)
{
    const double x = random.Real(-9.0, 9.0);
    return {TXPoint(x, random.Real(-9.0, 9.0))};
}

/// Saves to a file. @return the answer, and what is in the file.
template <class Surface>
std::pair<bool, std::string> SavedFile(Surface& surface, const std::string& name)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(QString::fromStdString(name)));
    const bool saved = surface.Save(TXString(file.fileName().toStdWString()));
    std::string bytes;
    if (file.open(QIODevice::ReadOnly))
        bytes = file.readAll().toStdString();
    file.remove();
    return {saved, bytes};
}

std::tuple<std::string> SomeFileName(Random& random)
{
    return {random.OneOf<const char*>({"a.png", "a.bmp", "a.bmp", "a.nothing", "no folder/a.bmp"})};
}

} // namespace

std::vector<Operation> StateOperations()
{
    return {
        SurfaceRow(
            "SelectPen(style)", 3, [](Random& r) { return std::tuple{r.Int(0, 5)}; },
            [](auto& s, int style) { s.SelectPen(static_cast<TXPen::PenStyle>(style)); }),
        Row("SelectPen", 10, SomePen,
            [](auto& side, int pen) { return side.NumberOf(side.Surface().SelectPen(side.Pen(pen))); }),
        Row("SelectBrush", 10, SomeBrush,
            [](auto& side, int brush) { return side.NumberOf(side.Surface().SelectBrush(side.Brush(brush))); }),
        Row("SelectFont", 8, SomeFont,
            [](auto& side, int font) { return side.NumberOf(side.Surface().SelectFont(side.Font(font))); }),
        Row("SelectGradient", 5, SomeGradientNumber,
            [](auto& side, int gradient) { side.Surface().SelectGradient(side.Gradient(gradient)); }),
        SurfaceRow("SelectRgn", 1, Nothing, [](auto& s) { return s.SelectRgn(nullptr) == nullptr; }),
        Row("GetPen", 3, Nothing, [](auto& side) { return side.NumberOf(side.Surface().GetPen()); }),
        Row("GetBrush", 3, Nothing, [](auto& side) { return side.NumberOf(side.Surface().GetBrush()); }),
        Row("GetFont", 3, Nothing, [](auto& side) { return side.NumberOf(side.Surface().GetFont()); }),
        Row("GetImage", 2, Nothing, [](auto& side) { return side.NumberOf(side.Surface().GetImage()); }),
        SurfaceRow(
            "SetTextHorizAlign", 1, [](Random& r) { return std::tuple{r.Int(-1, 4)}; },
            [](auto& s, int align)
            {
                s.SetTextHorizAlign(align);
                return std::pair{s.GetTextHorizAlign(), s.GetTextVertAlign()};
            }),
        SurfaceRow(
            "SetTextVertAlign", 1, [](Random& r) { return std::tuple{r.Int(-1, 4)}; },
            [](auto& s, int align)
            {
                s.SetTextVertAlign(align);
                return std::pair{s.GetTextHorizAlign(), s.GetTextVertAlign()};
            }),
        SurfaceRow(
            "SetBackGoundColor", 1, [](Random& r) { return std::tuple{r.Color()}; },
            [](auto& s, const TXColor& color)
            {
                const unsigned int before = s.GetBackGoundColor().GetColor();
                s.SetBackGoundColor(color);
                return before;
            }),
        SurfaceRow("Save(file)", 2, SomeFileName, [](auto& s, const std::string& name) { return SavedFile(s, name); }),
        SurfaceRow("Save", 8, Nothing, [](auto& s) { s.Save(); }),
        SurfaceRow("Restore", 9, Nothing, [](auto& s) { s.Restore(); }),
        SurfaceRow("SetOpacity", 8, SomeOpacity, [](auto& s, double opacity) { s.SetOpacity(opacity); }),
        SurfaceRow("GetOpacity", 2, Nothing, [](auto& s) { return s.GetOpacity(); }),
        SurfaceRow("SetWindowOrg", 4, SomeShift,
                   [](auto& s, int x, int y)
                   {
                       const TXPoint before = s.SetWindowOrg(x, y);
                       return std::pair{before.x, before.y};
                   }),
        SurfaceRow("SetWindowOrg(point)", 2, SomePointShift,
                   [](auto& s, const TXPoint& origin)
                   {
                       const TXPoint before = s.SetWindowOrg(origin);
                       return std::pair{before.x, before.y};
                   }),
        SurfaceRow("GetWindowOrg", 2, Nothing,
                   [](auto& s) {
                       return std::pair{s.GetWindowOrg().x, s.GetWindowOrg().y};
                   }),
        SurfaceRow(
            "DPtoLP and LPtoDP", 1, [](Random& r) { return std::tuple{r.Points(1, 3)}; },
            [](auto& s, std::vector<TXPoint> points)
            {
                s.DPtoLP(points.data(), static_cast<int>(points.size()));
                s.LPtoDP(points.data(), static_cast<int>(points.size()));
                return ToQt(points);
            }),
        SurfaceRow("SetCompositionMode", 8, SomeMode,
                   [](auto& s, int mode) { s.SetCompositionMode(static_cast<TXGraphics::TXCompositionMode>(mode)); }),
        SurfaceRow(
            "EnableAntialiasing", 5, [](Random& r) { return std::tuple{r.Chance(60)}; },
            [](auto& s, bool on) { s.EnableAntialiasing(on); }),
    };
}
