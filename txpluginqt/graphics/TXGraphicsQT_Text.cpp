// The label operations: each chooses its text path and says what the label is there.
#include <txpluginqt/graphics/TXGraphicsQT.h>

#include <txpluginqt/text/CairoLabel.h>
#include <txpluginqt/text/QtFonts.h>
#include <txpluginqt/text/QtLabel.h>

using namespace txqt;

/// The choice of text path, written once. The overload without an angle stays outside it: it re-enters a public one.
template <class WithCr, class WithQt>
bool TXGraphicsQT::OnTextPath(WithCr withCr, WithQt withQt)
{
    if (!cairoEnabled)
        return withQt();
    const TZObjects::TXScopedLock guard(*cairoLock);
    return withCr();
}

bool TXGraphicsQT::DrawStringWithQt(const QtLabel& label)
{
    if (!font || !font->GetInternalObject() || !QtTextIsAvailable() || !IsDrawable(label))
        return false;
    bool isDrawable = true;
    const bool isPainted = Paint([&](QPainter& p) { isDrawable = DrawQtLabel(p, *font, label); });
    return isPainted && isDrawable;
}

bool TXGraphicsQT::DrawStringWithCr(const CairoLabel& label, const CairoTextStyle& style, TXTextHorizAlign hAlign)
{
    cairo_t* const context = ReadyCairoContext();
    return context && ResultOr(false, [&] { return DrawCairoLines(context, font.get(), label, style, hAlign); });
}

bool TXGraphicsQT::DrawVerticalStringWithCr(const CairoLabel& label, const CairoTextStyle& style,
                                            TXTextVertAlign vAlign)
{
    cairo_t* const context = ReadyCairoContext();
    return context && ResultOr(false, [&] { return DrawCairoColumns(context, font.get(), label, style, vAlign); });
}

bool TXGraphicsQT::DrawString(double ox, double oy, double left, double right, double top, double, TXTextVertAlign,
                              TXTextHorizAlign hAlign, const TXString& text, double angle, const double& scale)
{
    return OnTextPath(
        [&]
        {
            return DrawStringWithCr({TurnedAbout(ox, oy, left, top, angle, scale), text, angle, 0.0, scale},
                                    OrdinaryCairoStyle(font.get(), pen.get()), hAlign);
        },
        [&]
        {
            QtLabel label{QtLabelForm::StringInBox, text, {ox, oy}, hAlign, angle, scale};
            label.corner = {left, top};
            label.right = right;
            return DrawStringWithQt(label);
        });
}

bool TXGraphicsQT::DrawString(double x, double y, TXTextVertAlign, TXTextHorizAlign hAlign, const TXString& text,
                              double angle, double lineSpacing, const double& scale)
{
    return OnTextPath(
        [&]
        {
            return DrawStringWithCr({TXPoint(x, y), text, angle, lineSpacing, scale},
                                    OrdinaryCairoStyle(font.get(), pen.get()), hAlign);
        },
        [&]
        {
            QtLabel label{QtLabelForm::StringAt, text, {x, y}, hAlign, angle, scale};
            label.spacing = lineSpacing;
            return DrawStringWithQt(label);
        });
}

bool TXGraphicsQT::DrawString(double x, double y, double dx, double dy, TXTextVertAlign, TXTextHorizAlign hAlign,
                              const TXString& text, double angle, const double& scale)
{
    return OnTextPath(
        [&]
        {
            return DrawStringWithCr({TXPoint(x + dx, y + dy), text, angle, 0.0, scale},
                                    OrdinaryCairoStyle(font.get(), pen.get()), hAlign);
        },
        [&]
        {
            QtLabel label{QtLabelForm::StringMoved, text, {x, y}, hAlign, angle, scale};
            label.offset = {dx, dy};
            return DrawStringWithQt(label);
        });
}

bool TXGraphicsQT::DrawString(double x, double y, double dx, double dy, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                              const TXString& text, const double& scale)
{
    if (!font)
        return false;
    const double angle = font->GetFontAngle();
    return DrawString(x, y, dx, dy, vAlign, hAlign, text, angle, scale);
}

bool TXGraphicsQT::DrawOutlineString(double ox, double oy, double left, double top, TXTextVertAlign,
                                     TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill, double angle,
                                     double lineSpacing, const double& scale)
{
    return OnTextPath(
        [&]
        {
            return DrawStringWithCr({TurnedAbout(ox, oy, left, top, angle, scale), text, angle, lineSpacing, scale},
                                    OutlineCairoStyle(font.get(), fill), hAlign);
        },
        [&]
        {
            QtLabel label{QtLabelForm::OutlineAbout, text, {ox, oy}, hAlign, angle, scale};
            label.corner = {left, top};
            label.spacing = lineSpacing;
            label.fill = fill;
            return DrawStringWithQt(label);
        });
}

bool TXGraphicsQT::DrawOutlineString(double x, double y, TXTextVertAlign, TXTextHorizAlign hAlign, const TXString& text,
                                     const TXColor& fill, double angle, double lineSpacing, const double& scale)
{
    return OnTextPath(
        [&]
        {
            return DrawStringWithCr({TXPoint(x, y), text, angle, lineSpacing, scale},
                                    OutlineCairoStyle(font.get(), fill), hAlign);
        },
        [&]
        {
            QtLabel label{QtLabelForm::OutlineAt, text, {x, y}, hAlign, angle, scale};
            label.spacing = lineSpacing;
            label.fill = fill;
            return DrawStringWithQt(label);
        });
}

bool TXGraphicsQT::DrawVerticalString(double ox, double oy, double left, double top, TXTextVertAlign vAlign,
                                      TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill, double angle,
                                      double columnSpacing, double charSpacing, bool halo, const double& scale)
{
    return OnTextPath(
        [&]
        {
            return DrawVerticalStringWithCr(
                {TurnedAbout(ox, oy, left, top, angle, scale), text, angle, columnSpacing, scale},
                ColumnsCairoStyle(font.get(), fill, halo), vAlign);
        },
        [&]
        {
            QtLabel label{QtLabelForm::ColumnsAbout, text, {ox, oy}, hAlign, angle, scale};
            label.corner = {left, top};
            label.spacing = columnSpacing;
            label.charSpacing = charSpacing;
            label.fill = fill;
            label.halo = halo;
            return DrawStringWithQt(label);
        });
}

bool TXGraphicsQT::DrawVerticalString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                                      const TXString& text, const TXColor& fill, double angle, double columnSpacing,
                                      double charSpacing, bool halo, const double& scale)
{
    return OnTextPath(
        [&]
        {
            return DrawVerticalStringWithCr({TXPoint(x, y), text, angle, columnSpacing, scale},
                                            ColumnsCairoStyle(font.get(), fill, halo), vAlign);
        },
        [&]
        {
            QtLabel label{QtLabelForm::ColumnsAt, text, {x, y}, hAlign, angle, scale};
            label.spacing = columnSpacing;
            label.charSpacing = charSpacing;
            label.fill = fill;
            label.halo = halo;
            return DrawStringWithQt(label);
        });
}
