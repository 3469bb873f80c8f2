// Labels of the model through cairo.
#include <tests/txpluginqt/text/cairo/CairoLabels.h>

#include "ModelSurface.h"

using namespace TZObjects;

bool ModelSurface::DrawLabelWithCairo(Entry entry, const Label& label)
{
    const bool isVertical = entry == Entry::VerticalAbout || entry == Entry::VerticalAt;
    if (!cairo || (isVertical && !font))
        return false;

    FontChoice choice;
    if (font)
    {
        choice.height = font->qfont.pixelSize();
        choice.letterSpacing = font->qfont.letterSpacing();
        choice.italic = font->IsItalic() ? TXFont::ItalicFace : TXFont::ItalicNone;
        choice.underline = font->qfont.underline();
        choice.strikeOut = font->qfont.strikeOut();
        choice.halo = font->halo;
        choice.haloColor = font->haloColor;
        choice.haloWidth = font->haloWidth;
    }
    ExpectedLabel(entry, label, font ? &choice : nullptr, pen ? pen->GetColor() : TXColor::BLACK_).Draw(cairo.get());
    return true;
}
