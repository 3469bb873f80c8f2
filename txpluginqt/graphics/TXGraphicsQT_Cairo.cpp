// The switch between the two text paths.
#include <txpluginqt/graphics/TXGraphicsQT.h>

void TXGraphicsQT::EnableCairoDrawing(bool on)
{
    if (on == cairoEnabled)
        return;
    cairoEnabled = on;
    cairo.Destroy();
    if (!on)
        return;
    cairo.Create(image.get());
    cairo.ApplyFontOptions();
    cairo.SelectFont(font.get());
}

bool TXGraphicsQT::CairoDrawingEnabled() const { return cairoEnabled; }
