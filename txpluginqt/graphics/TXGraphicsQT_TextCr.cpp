// Labels through cairo. The public operations hold the lock when they come here.
#include <txpluginqt/graphics/TXGraphicsQT.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include <txpluginqt/graphics/text/CairoTextLayout.h>
#include <txpluginqt/graphics/text/CairoTextPainter.h>
#include <txpluginqt/support/CairoFont.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/Fonts.h>

using namespace TZObjects;

namespace
{

constexpr double kSmallestSize = 0.1;
constexpr int kHeightWithoutFont = 10;

/// The red, green and blue of @p color, with the alpha of @p start.
TXColor ColorOver(TXColor start, const TXColor& color)
{
    start.setColor(color.getRGB(false), false);
    return start;
}

/// Where the top left of a label lies that is turned about (@p ox, @p oy) and scaled from there. No number when one of
/// the coordinates is refused, even where they cancel out.
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

} // namespace

struct TXGraphicsQT::CairoLabel
{
    TXPoint anchor;
    const TXString& text;
    double angle;
    double lineSpacing;
    double scale;
};

cairo_t* TXGraphicsQT::ReadyCairoContext()
{
    // One label that cairo could not draw must not take all later ones with it.
    if (cairoContext && cairo_status(cairoContext.get()) != CAIRO_STATUS_SUCCESS)
        RemakeCairoObjects();
    return cairoContext.get();
}

template <class LayOut>
bool TXGraphicsQT::PaintCairoLabel(const CairoLabel& label, const CairoTextStyle& style, LayOut layOut)
{
    cairo_t* const context = ReadyCairoContext();
    const bool drawable = IsDrawable(label.anchor.x, label.anchor.y, label.angle, label.lineSpacing) &&
                          IsDrawable(label.scale * kLargestFontSize);
    if (!context || !drawable)
        return false;
    return Succeeds(
        [&]
        {
            const double size = (font ? font->GetFontHeight() : kHeightWithoutFont) * label.scale;
            SetCairoFontSize(context, std::max(size, kSmallestSize));
            CairoTextMetrics metrics{};
            metrics.font = ScaledFontOf(context);
            metrics.extents = FontExtentsOf(context);
            metrics.lineSpacing = label.lineSpacing;
            metrics.charSpacing = font ? font->GetWordSpacing() : 0.0;
            metrics.scale = label.scale;
            PaintCairoText(context, layOut(ToQString(label.text), metrics), style, label.anchor.x, label.anchor.y,
                           label.angle * kPi / 180);
        });
}

bool TXGraphicsQT::PaintCairoLines(const CairoLabel& label, const CairoTextStyle& style, TXTextHorizAlign hAlign)
{
    return PaintCairoLabel(label, style,
                           [&](const QString& text, const CairoTextMetrics& metrics)
                           { return LayOutCairoLines(text, metrics, hAlign); });
}

CairoTextStyle TXGraphicsQT::OrdinaryCairoStyle() const
{
    CairoTextStyle style;
    style.color = pen ? pen->GetColor() : TXColor::BLACK_;
    style.halo = font && font->GetFontHalo();
    style.haloColor = font ? ColorOver(TXColor::WHITE_, font->GetFontHaloColor()) : TXColor::WHITE_;
    style.haloWidth = font ? font->GetFontHaloWidth() : 0.1;
    style.underline = font && font->GetFontUnderline();
    style.strikeOut = font && font->GetFontStrikeOut();
    return style;
}

CairoTextStyle TXGraphicsQT::OutlineCairoStyle(const TXColor& fill) const
{
    CairoTextStyle style = OrdinaryCairoStyle();
    style.color = fill;
    // Whatever the font's own switch says: outlined text is text with a halo.
    style.halo = true;
    style.haloColor = font ? ColorOver(TXColor::RED_, font->GetFontHaloColor()) : TXColor::RED_;
    style.haloWidth = font ? font->GetFontHaloWidth() : 1.5;
    return style;
}

bool TXGraphicsQT::DrawStringWithCr(double ox, double oy, double left, double, double top, double, TXTextVertAlign,
                                    TXTextHorizAlign hAlign, const TXString& text, double angle, const double& scale)
{
    const CairoLabel label{TurnedAbout(ox, oy, left, top, angle, scale), text, angle, 0.0, scale};
    return PaintCairoLines(label, OrdinaryCairoStyle(), hAlign);
}

bool TXGraphicsQT::DrawStringWithCr(double x, double y, TXTextVertAlign, TXTextHorizAlign hAlign, const TXString& text,
                                    double angle, double lineSpacing, const double& scale)
{
    return PaintCairoLines({TXPoint(x, y), text, angle, lineSpacing, scale}, OrdinaryCairoStyle(), hAlign);
}

bool TXGraphicsQT::DrawStringWithCr(double x, double y, double dx, double dy, TXTextVertAlign, TXTextHorizAlign hAlign,
                                    const TXString& text, double angle, const double& scale)
{
    return PaintCairoLines({TXPoint(x + dx, y + dy), text, angle, 0.0, scale}, OrdinaryCairoStyle(), hAlign);
}

bool TXGraphicsQT::DrawOutlineStringWithCr(double ox, double oy, double left, double top, TXTextVertAlign,
                                           TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill,
                                           double angle, double lineSpacing, const double& scale)
{
    const CairoLabel label{TurnedAbout(ox, oy, left, top, angle, scale), text, angle, lineSpacing, scale};
    return PaintCairoLines(label, OutlineCairoStyle(fill), hAlign);
}

bool TXGraphicsQT::DrawOutlineStringWithCr(double x, double y, TXTextVertAlign, TXTextHorizAlign hAlign,
                                           const TXString& text, const TXColor& fill, double angle, double lineSpacing,
                                           const double& scale)
{
    return PaintCairoLines({TXPoint(x, y), text, angle, lineSpacing, scale}, OutlineCairoStyle(fill), hAlign);
}

bool TXGraphicsQT::PaintCairoColumns(const CairoLabel& label, const TXColor& fill, TXTextVertAlign vAlign,
                                     bool wantsHalo)
{
    // The spacing of the characters is the font's.
    if (!font)
        return false;
    CairoTextStyle style = OrdinaryCairoStyle();
    style.color = fill;
    style.halo = wantsHalo && font->GetFontHalo();
    return PaintCairoLabel(label, style,
                           [&](const QString& text, const CairoTextMetrics& metrics)
                           { return LayOutCairoColumns(text, metrics, vAlign, font->GetFontItalic()); });
}

bool TXGraphicsQT::DrawVerticalStringWithCr(double ox, double oy, double left, double top, TXTextVertAlign vAlign,
                                            TXTextHorizAlign, const TXString& text, const TXColor& fill, double angle,
                                            double columnSpacing, double, bool halo, const double& scale)
{
    const CairoLabel label{TurnedAbout(ox, oy, left, top, angle, scale), text, angle, columnSpacing, scale};
    return PaintCairoColumns(label, fill, vAlign, halo);
}

bool TXGraphicsQT::DrawVerticalStringWithCr(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign,
                                            const TXString& text, const TXColor& fill, double angle,
                                            double columnSpacing, double, bool halo, const double& scale)
{
    return PaintCairoColumns({TXPoint(x, y), text, angle, columnSpacing, scale}, fill, vAlign, halo);
}
