#pragma once

#include <cairo.h>

#include <txbase/TXPoint.h>
#include <txbase/TXString.h>
#include <txgraphics/TXFont.h>
#include <txgraphics/TXPen.h>
#include <txpluginqt/text/CairoTextPainter.h>

namespace txqt
{

/// A label for cairo.
struct CairoLabel
{
    TZObjects::TXPoint anchor; ///< The label's top left, which it is turned about. No number for a refused label.
    const TZObjects::TXString& text;
    double angle;   ///< In degrees, clockwise.
    double spacing; ///< Extra space between lines or columns.
    double scale;
};

/// Where the top left of a label lies that is turned about (@p ox, @p oy) and scaled from there. No number when one of
/// the coordinates is refused, even where they cancel out.
TZObjects::TXPoint TurnedAbout(double ox, double oy, double left, double top, double angle, double scale);

/// How ordinary text is painted: in the pen's colour, with the halo and rules that the font asks for. Both may be null.
CairoTextStyle OrdinaryCairoStyle(const TZObjects::TXFont* font, const TZObjects::TXPen* pen);
/// How outlined text is painted: in its own colour, always with a halo.
CairoTextStyle OutlineCairoStyle(const TZObjects::TXFont* font, const TZObjects::TXColor& fill);
/// How columns are painted: in their own colour, with a halo when both @p halo and the font ask for it.
CairoTextStyle ColumnsCairoStyle(const TZObjects::TXFont* font, const TZObjects::TXColor& fill, bool halo);

/// Draw a label with a context that has no error. The context's state is afterwards what it was, but for the size of
/// its font and its path, which is empty.
/// @param font the selected one; null for none, which columns need. @return false, nothing drawn, for a number that
/// cannot be drawn.
/// @{
bool DrawCairoLines(cairo_t* context, const TZObjects::TXFont* font, const CairoLabel& label,
                    const CairoTextStyle& style, int hAlign);
bool DrawCairoColumns(cairo_t* context, const TZObjects::TXFont* font, const CairoLabel& label,
                      const CairoTextStyle& style, int vAlign);
/// @}

} // namespace txqt
