#include <txpluginqt/text/CairoLabel.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include <txpluginqt/cairo/CairoFont.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/Fonts.h>
#include <txpluginqt/text/CairoTextLayout.h>

using namespace TZObjects;

namespace txqt
{
namespace
{

constexpr double kSmallestSize = 0.1;
constexpr int kHeightWithoutFont = 10;
constexpr double kHaloWidthWithoutFont = 0.1;
constexpr double kOutlineHaloWidthWithoutFont = 1.5;

/// The red, green and blue of @p color, with the alpha of @p start.
TXColor ColorOver(TXColor start, const TXColor& color)
{
    start.setColor(color.getRGB(false), false);
    return start;
}

template <class LayOut>
bool DrawCairoLabel(cairo_t* context, const TXFont* font, const CairoLabel& label, const CairoTextStyle& style,
                    LayOut layOut)
{
    if (!IsDrawable(label.anchor.x, label.anchor.y, label.angle, label.spacing) ||
        !IsDrawable(label.scale * kLargestFontSize))
        return false;
    const double size = (font ? font->GetFontHeight() : kHeightWithoutFont) * label.scale;
    SetCairoFontSize(context, std::max(size, kSmallestSize));
    CairoTextMetrics metrics{};
    metrics.font = ScaledFontOf(context);
    metrics.extents = FontExtentsOf(context);
    metrics.lineSpacing = label.spacing;
    metrics.charSpacing = font ? font->GetWordSpacing() : 0.0;
    metrics.scale = label.scale;
    PaintCairoText(context, layOut(ToQString(label.text), metrics), style, label.anchor.x, label.anchor.y,
                   label.angle * kPi / 180);
    return true;
}

} // namespace

TXPoint TurnedAbout(double ox, double oy, double left, double top, double angle, double scale)
{
    constexpr double refused = std::numeric_limits<double>::quiet_NaN();
    if (!IsDrawable(ox, oy, left, top))
        return TXPoint(refused, refused);
    const double radians = angle * kPi / 180;
    const double dx = (left - ox) * scale;
    const double dy = (top - oy) * scale;
    return TXPoint(ox + dx * std::cos(radians) - dy * std::sin(radians),
                   oy + dx * std::sin(radians) + dy * std::cos(radians));
}

CairoTextStyle OrdinaryCairoStyle(const TXFont* font, const TXPen* pen)
{
    CairoTextStyle style;
    style.color = pen ? pen->GetColor() : TXColor::BLACK_;
    style.halo = font && font->GetFontHalo();
    style.haloColor = font ? ColorOver(TXColor::WHITE_, font->GetFontHaloColor()) : TXColor::WHITE_;
    style.haloWidth = font ? font->GetFontHaloWidth() : kHaloWidthWithoutFont;
    style.underline = font && font->GetFontUnderline();
    style.strikeOut = font && font->GetFontStrikeOut();
    return style;
}

CairoTextStyle OutlineCairoStyle(const TXFont* font, const TXColor& fill)
{
    CairoTextStyle style = OrdinaryCairoStyle(font, nullptr);
    style.color = fill;
    style.halo = true;
    style.haloColor = font ? ColorOver(TXColor::RED_, font->GetFontHaloColor()) : TXColor::RED_;
    style.haloWidth = font ? font->GetFontHaloWidth() : kOutlineHaloWidthWithoutFont;
    return style;
}

CairoTextStyle ColumnsCairoStyle(const TXFont* font, const TXColor& fill, bool halo)
{
    CairoTextStyle style = OrdinaryCairoStyle(font, nullptr);
    style.color = fill;
    style.halo = style.halo && halo;
    return style;
}

bool DrawCairoLines(cairo_t* context, const TXFont* font, const CairoLabel& label, const CairoTextStyle& style,
                    int hAlign)
{
    return DrawCairoLabel(context, font, label, style,
                          [&](const QString& text, const CairoTextMetrics& metrics)
                          { return LayOutCairoLines(text, metrics, hAlign); });
}

bool DrawCairoColumns(cairo_t* context, const TXFont* font, const CairoLabel& label, const CairoTextStyle& style,
                      int vAlign)
{
    // The spacing of the characters is the font's.
    return font && DrawCairoLabel(context, font, label, style,
                                  [&](const QString& text, const CairoTextMetrics& metrics)
                                  { return LayOutCairoColumns(text, metrics, vAlign, font->GetFontItalic()); });
}

} // namespace txqt
