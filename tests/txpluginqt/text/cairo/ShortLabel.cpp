#include "ShortLabel.h"

using namespace TZObjects;

ShortLabel::ShortLabel()
{
    text = L"Hag";
    x = 40.0;
    y = 30.0;
    left = dx = 55.0;
    top = dy = 42.0;
    // Neither is used, so they are odd here.
    right = -1000.0;
    bottom = 1e6;
    halo = false;
    fill = TXColor(150, 30, 40, 255);
}

void DrawDirectly(cairo_t* context, Entry entry, const Label& label, const Look& look)
{
    ExpectedLabel(entry, label, &look, look.pen).Draw(context);
}
