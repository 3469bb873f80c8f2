// The public label operations: each chooses its text path, and nothing else.
#include <txpluginqt/graphics/TXGraphicsQT.h>

/// The choice of text path, written once. The overload without an angle stays outside it: it re-enters a public one.
template <class WithCr, class WithQt>
bool TXGraphicsQT::OnTextPath(WithCr withCr, WithQt withQt)
{
    if (!cairoEnabled)
        return withQt();
    const TZObjects::TXScopedLock guard(*cairoLock);
    return withCr();
}

bool TXGraphicsQT::DrawString(double ox, double oy, double left, double right, double top, double bottom,
                              TXTextVertAlign vAlign, TXTextHorizAlign hAlign, const TXString& text, double angle,
                              const double& scale)
{
    return OnTextPath(
        [&] { return DrawStringWithCr(ox, oy, left, right, top, bottom, vAlign, hAlign, text, angle, scale); },
        [&] { return DrawStringWithQt(ox, oy, left, right, top, bottom, vAlign, hAlign, text, angle, scale); });
}

bool TXGraphicsQT::DrawString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign, const TXString& text,
                              double angle, double lineSpacing, const double& scale)
{
    return OnTextPath([&] { return DrawStringWithCr(x, y, vAlign, hAlign, text, angle, lineSpacing, scale); },
                      [&] { return DrawStringWithQt(x, y, vAlign, hAlign, text, angle, lineSpacing, scale); });
}

bool TXGraphicsQT::DrawString(double x, double y, double dx, double dy, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                              const TXString& text, double angle, const double& scale)
{
    return OnTextPath([&] { return DrawStringWithCr(x, y, dx, dy, vAlign, hAlign, text, angle, scale); },
                      [&] { return DrawStringWithQt(x, y, dx, dy, vAlign, hAlign, text, angle, scale); });
}

bool TXGraphicsQT::DrawString(double x, double y, double dx, double dy, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                              const TXString& text, const double& scale)
{
    if (!font)
        return false;
    const double angle = font->GetFontAngle();
    return DrawString(x, y, dx, dy, vAlign, hAlign, text, angle, scale);
}

bool TXGraphicsQT::DrawOutlineString(double ox, double oy, double left, double top, TXTextVertAlign vAlign,
                                     TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill, double angle,
                                     double lineSpacing, const double& scale)
{
    return OnTextPath(
        [&]
        { return DrawOutlineStringWithCr(ox, oy, left, top, vAlign, hAlign, text, fill, angle, lineSpacing, scale); },
        [&]
        { return DrawOutlineStringWithQt(ox, oy, left, top, vAlign, hAlign, text, fill, angle, lineSpacing, scale); });
}

bool TXGraphicsQT::DrawOutlineString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                                     const TXString& text, const TXColor& fill, double angle, double lineSpacing,
                                     const double& scale)
{
    return OnTextPath(
        [&] { return DrawOutlineStringWithCr(x, y, vAlign, hAlign, text, fill, angle, lineSpacing, scale); },
        [&] { return DrawOutlineStringWithQt(x, y, vAlign, hAlign, text, fill, angle, lineSpacing, scale); });
}

bool TXGraphicsQT::DrawVerticalString(double ox, double oy, double left, double top, TXTextVertAlign vAlign,
                                      TXTextHorizAlign hAlign, const TXString& text, const TXColor& fill, double angle,
                                      double columnSpacing, double charSpacing, bool halo, const double& scale)
{
    return OnTextPath(
        [&]
        {
            return DrawVerticalStringWithCr(ox, oy, left, top, vAlign, hAlign, text, fill, angle, columnSpacing,
                                            charSpacing, halo, scale);
        },
        [&]
        {
            return DrawVerticalStringWithQt(ox, oy, left, top, vAlign, hAlign, text, fill, angle, columnSpacing,
                                            charSpacing, halo, scale);
        });
}

bool TXGraphicsQT::DrawVerticalString(double x, double y, TXTextVertAlign vAlign, TXTextHorizAlign hAlign,
                                      const TXString& text, const TXColor& fill, double angle, double columnSpacing,
                                      double charSpacing, bool halo, const double& scale)
{
    return OnTextPath(
        [&] {
            return DrawVerticalStringWithCr(x, y, vAlign, hAlign, text, fill, angle, columnSpacing, charSpacing, halo,
                                            scale);
        },
        [&] {
            return DrawVerticalStringWithQt(x, y, vAlign, hAlign, text, fill, angle, columnSpacing, charSpacing, halo,
                                            scale);
        });
}
