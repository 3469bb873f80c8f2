// Markers, images and clipping, which this backend does not offer yet: false, and nothing drawn.
#include <txpluginqt/graphics/TXGraphicsQT.h>

bool TXGraphicsQT::VectorMarker(const double&, const double&, const double&, const double&, const double&,
                                const double&, const double&, const TXPoint*, int, bool)
{
    return false;
}
bool TXGraphicsQT::VectorMarker(double, double, double, double, double, const TXPoint*, int, bool) { return false; }
bool TXGraphicsQT::FontMarker(double, double, double, double, double, TXString, short) { return false; }
bool TXGraphicsQT::DrawImage(TXImage*, double) { return false; }
bool TXGraphicsQT::DrawImage(const TXRect&, TXImage*, const TXRect&, double) { return false; }
bool TXGraphicsQT::DrawImage4BitmapRotate(const TXRect&, TXImage*, const TXRect&, double, double) { return false; }
void TXGraphicsQT::SetClipRegion(const TXPoint*, const int*, int, const stGradientParams&) {}
void TXGraphicsQT::SetClipRegion(const TXPoint*, const int*, int, bool, TXColor) {}
void TXGraphicsQT::RestoreClipRegion() {}
