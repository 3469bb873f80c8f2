// Labels of the model through cairo.
#include <cmath>

#include <tests/txpluginqt/text/cairo/CairoLabels.h>

#include "ModelSurface.h"

using namespace TZObjects;

namespace
{

constexpr double kPi = 3.141592653589793;

/// The red, green and blue of a colour; the alpha is that of another one, which is opaque here always.
TXColor Opaque(const TXColor& color) { return {color.getR(), color.getG(), color.getB(), 255}; }

/// Where the label's top left comes to lie that is given by its corner and turned about, and scaled from, (x, y).
QPointF TurnedAbout(const Label& label)
{
    const double radians = label.angle * kPi / 180;
    const double dx = label.scale * (label.left - label.x);
    const double dy = label.scale * (label.top - label.y);
    return {label.x + dx * std::cos(radians) - dy * std::sin(radians),
            label.y + dx * std::sin(radians) + dy * std::cos(radians)};
}

QPointF TopLeft(Entry entry, const Label& label)
{
    if (entry == Entry::StringInBox || entry == Entry::OutlineAbout || entry == Entry::VerticalAbout)
        return TurnedAbout(label);
    if (entry == Entry::StringMoved)
        return {label.x + label.dx, label.y + label.dy};
    return {label.x, label.y};
}

} // namespace

bool ModelSurface::DrawLabelWithCairo(Entry entry, const Label& label)
{
    const bool vertical = entry == Entry::VerticalAbout || entry == Entry::VerticalAt;
    const bool outline = entry == Entry::OutlineAbout || entry == Entry::OutlineAt;
    if (!cairo || (vertical && !font))
        return false;

    ExpectedLabel expected;
    expected.text = label.Text();
    expected.x = TopLeft(entry, label).x();
    expected.y = TopLeft(entry, label).y();
    expected.angle = label.angle;
    expected.scale = label.scale;
    expected.align = vertical ? label.vAlign : label.hAlign;
    if (vertical)
        expected.lineSpacing = label.columnSpacing;
    else if (outline || entry == Entry::StringAt)
        expected.lineSpacing = label.lineSpacing;
    expected.color = pen ? pen->GetColor() : TXColor::BLACK_;
    if (vertical || outline)
        expected.color = label.fill;
    expected.halo = outline;
    expected.haloColor = outline ? TXColor::RED_ : TXColor::WHITE_;
    expected.haloWidth = outline ? 1.5 : 0.1;
    if (font)
    {
        expected.fontHeight = font->qfont.pixelSize();
        expected.charSpacing = font->qfont.letterSpacing();
        expected.italic = font->IsItalic();
        expected.underline = font->qfont.underline();
        expected.strikeOut = font->qfont.strikeOut();
        expected.halo = outline || (font->halo && (!vertical || label.halo));
        expected.haloColor = Opaque(font->haloColor);
        expected.haloWidth = font->haloWidth;
    }
    if (vertical)
        expected.DrawColumns(cairo.get());
    else
        expected.DrawLines(cairo.get());
    return true;
}
