// Labels through cairo, which draw nothing yet.
#include <txpluginqt/graphics/TXGraphicsQT.h>

bool TXGraphicsQT::DrawStringWithCr(double, double, double, double, double, double, TXTextVertAlign, TXTextHorizAlign,
                                    const TXString&, double, const double&)
{
    return false;
}

bool TXGraphicsQT::DrawStringWithCr(double, double, TXTextVertAlign, TXTextHorizAlign, const TXString&, double, double,
                                    const double&)
{
    return false;
}

bool TXGraphicsQT::DrawStringWithCr(double, double, double, double, TXTextVertAlign, TXTextHorizAlign, const TXString&,
                                    double, const double&)
{
    return false;
}

bool TXGraphicsQT::DrawOutlineStringWithCr(double, double, double, double, TXTextVertAlign, TXTextHorizAlign,
                                           const TXString&, const TXColor&, double, double, const double&)
{
    return false;
}

bool TXGraphicsQT::DrawOutlineStringWithCr(double, double, TXTextVertAlign, TXTextHorizAlign, const TXString&,
                                           const TXColor&, double, double, const double&)
{
    return false;
}

bool TXGraphicsQT::DrawVerticalStringWithCr(double, double, double, double, TXTextVertAlign, TXTextHorizAlign,
                                            const TXString&, const TXColor&, double, double, double, bool,
                                            const double&)
{
    return false;
}

bool TXGraphicsQT::DrawVerticalStringWithCr(double, double, TXTextVertAlign, TXTextHorizAlign, const TXString&,
                                            const TXColor&, double, double, double, bool, const double&)
{
    return false;
}
