// Point symbols: drawn from points, or a character of a symbol font.
#include <txpluginqt/graphics/TXGraphicsQT.h>

#include <algorithm>
#include <cmath>

#include <QVarLengthArray>

#include <txpluginqt/cairo/CairoColor.h>
#include <txpluginqt/cairo/CairoFont.h>
#include <txpluginqt/cairo/CairoScopes.h>
#include <txpluginqt/graphics/PainterResources.h>
#include <txpluginqt/raster/Drawing.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/ScopeGuards.h>
#include <txpluginqt/text/GlyphRun.h>
#include <txpluginqt/text/QtFonts.h>

using namespace TZObjects;
using namespace txqt;

namespace
{

/// Smaller angles are none.
constexpr double kLeastAngle = 1e-8;
/// Usual symbols have fewer points, and then need no memory of their own.
constexpr int kUsualPoints = 64;

/// Lower symbols are drawn twice, which makes their thin strokes readable. The two text paths differ.
constexpr double kLeastHeightDrawnOnceWithQt = 10.0;
constexpr double kLeastHeightDrawnOnceWithCr = 15.0;
/// The least angle in degrees that the cairo path turns by.
constexpr double kLeastAngleWithCr = 1.0;

int SymbolPixels(double size) { return size >= 1.0 ? RoundHalfAway(size) : 1; }

} // namespace

template <class Place>
bool TXGraphicsQT::PaintMarker(double x, double y, double angle, const TXPoint* points, int count, bool closed,
                               Place place)
{
    if (!points || !painter || !IsDrawable(x, y, angle))
        return false;
    bool drawable = true;
    const bool painted = Paint(
        [&](QPainter& p)
        {
            QVarLengthArray<QPointF, kUsualPoints> symbol(std::max(count, 0));
            std::transform(points, points + symbol.size(), symbol.begin(), place);
            drawable = std::all_of(symbol.begin(), symbol.end(),
                                   [](const QPointF& point) { return IsDrawable(point.x(), point.y()); });
            if (!drawable)
                return;
            const TransformScope transform(p);
            p.translate(x, y);
            if (std::abs(angle) > kLeastAngle)
                p.rotate(angle);
            if (closed)
                DrawPolygon(p, symbol.data(), symbol.size(), Qt::OddEvenFill);
            else
                DrawPolyline(p, symbol.data(), symbol.size());
        });
    return painted && drawable;
}

bool TXGraphicsQT::VectorMarker(double x, double y, double scaleX, double scaleY, double angle, const TXPoint* points,
                                int count, bool closed)
{
    return PaintMarker(x, y, angle, points, count, closed,
                       [=](const TXPoint& point) { return QPointF(scaleX * point.x, scaleY * point.y); });
}

bool TXGraphicsQT::VectorMarker(const double& offsetX, const double& offsetY, const double& scaleX,
                                const double& scaleY, const double& x, const double& y, const double& angle,
                                const TXPoint* points, int count, bool closed)
{
    return PaintMarker(x, y, angle, points, count, closed,
                       [=, &scaleX, &scaleY](const TXPoint& point)
                       { return QPointF(point.x * scaleX + offsetX - x, point.y * scaleY + offsetY - y); });
}

struct TXGraphicsQT::FontSymbol
{
    TXPoint centre;
    double width;
    double height;
    double angle;
    const TXString& fontName;
    QChar character;
};

bool TXGraphicsQT::FontMarker(double x, double y, double width, double height, double angle, TXString fontName,
                              short character)
{
    if (!painter || !font || !font->GetInternalObject() || !IsDrawable(x, y, width, height, angle))
        return false;
    const FontSymbol symbol{{x, y}, width, height, angle, fontName, QChar(static_cast<ushort>(character))};
    if (!cairoEnabled)
        return PaintFontMarkerWithQt(symbol);
    const TXScopedLock guard(*cairoLock);
    Succeeds([&] { PaintFontMarkerWithCr(symbol); });
    return true;
}

bool TXGraphicsQT::PaintFontMarkerWithQt(const FontSymbol& symbol)
{
    if (!QtTextIsAvailable())
        return false;
    // The font stays as the symbol needs it, in the selection and in the painter.
    font->SetFontWidth(SymbolPixels(symbol.width));
    font->SetFontHeight(SymbolPixels(symbol.height));
    font->SetFontName(symbol.fontName);
    Succeeds([&] { static_cast<QFont*>(font->GetInternalObject())->setStyleStrategy(QFont::PreferAntialias); });
    return Paint(
        [&](QPainter& p)
        {
            ApplyQFont(p, *font);
            const PainterStateScope state(p);
            p.setRenderHint(QPainter::TextAntialiasing);
            p.translate(symbol.centre.x, symbol.centre.y);
            p.rotate(symbol.angle);
            p.translate(-symbol.width * 0.5, -symbol.height * 0.5);
            const QRect box = TruncatedRect(0.0, 0.0, symbol.width, symbol.height);
            const QString text(symbol.character);
            const int times = symbol.height < kLeastHeightDrawnOnceWithQt ? 2 : 1;
            for (int i = 0; i < times; ++i)
                p.drawText(box, Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextDontClip, text);
        });
}

void TXGraphicsQT::PaintFontMarkerWithCr(const FontSymbol& symbol)
{
    cairo_t* const context = ReadyCairoContext();
    if (font->GetFontName() != symbol.fontName)
    {
        font->SetFontName(symbol.fontName);
        if (context)
            SelectCairoFace(context, symbol.fontName.toUTF8(), *font);
    }
    if (!context)
        return;
    SetCairoFontSize(context, SymbolPixels(symbol.height));
    // Half of a pair of code units is no character.
    if (symbol.character.isSurrogate())
        return;
    const std::optional<GlyphRun> glyph =
        GlyphRun::FromText(ScaledFontOf(context), QString(symbol.character), 0.0, 0.0);
    if (!glyph)
        return;

    const CairoStateScope state(context);
    const cairo_text_extents_t& extents = glyph->Extents();
    cairo_translate(context, symbol.centre.x - extents.width * 0.5,
                    symbol.centre.y + std::abs(extents.y_bearing) - extents.height * 0.5);
    if (symbol.angle >= kLeastAngleWithCr)
        cairo_rotate(context, symbol.angle * kPi / 180);
    cairo_move_to(context, 0.0, 0.0);
    SetCairoSource(context, pen ? pen->GetColor() : TXColor::BLACK_);
    const int times = symbol.height < kLeastHeightDrawnOnceWithCr ? 2 : 1;
    for (int i = 0; i < times; ++i)
        glyph->Show(context);
}
