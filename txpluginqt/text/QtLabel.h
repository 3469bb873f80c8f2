#pragma once

#include <QPainter>
#include <QPointF>

#include <txbase/TXColor.h>
#include <txbase/TXString.h>
#include <txgraphics/TXFont.h>

namespace txqt
{

/// The forms in which the interface draws labels. They differ in small ways, on purpose.
enum class QtLabelForm
{
    StringInBox,  ///< Lines, turned about a point, with a box beside it.
    StringMoved,  ///< Lines, turned about their middle, moved by an offset.
    StringAt,     ///< Lines with extra space between them, turned about their middle.
    OutlineAbout, ///< Lines with a halo, turned about a point.
    OutlineAt,    ///< Lines with a halo, turned about their middle.
    ColumnsAbout, ///< Columns, turned about a point.
    ColumnsAt,    ///< Columns, turned about their middle.
};

/// A label for Qt. Each form uses the fields that it has.
struct QtLabel
{
    QtLabelForm form;
    const TZObjects::TXString& text;
    QPointF at;   ///< The point that the label is turned about, or its top left.
    int align;    ///< 1 and 3 let left or right edges meet, or tops and ends of columns; others centre.
    double angle; ///< In degrees, clockwise.
    double scale;
    QPointF corner{};          ///< The label's top left, for forms that are turned about a point.
    double right = 0.0;        ///< The box's right edge, for rich text that is aligned there.
    QPointF offset{};          ///< How far a moved label is moved.
    double spacing = 0.0;      ///< Extra space between lines or columns.
    double charSpacing = 0.0;  ///< Extra space between the characters of a column.
    TZObjects::TXColor fill{}; ///< The colour of forms that have one of their own; others take the painter's pen's.
    bool halo = false;         ///< Whether columns have a halo.
};

/// False for a number that Qt cannot draw, whatever the text is.
bool IsDrawable(const QtLabel& label);

/// Draws the label, antialiased, and puts the painter's state back.
/// @param font one with a `QFont`. @return false, nothing drawn, for a number that Qt cannot draw and this text uses.
bool DrawQtLabel(QPainter& painter, TZObjects::TXFont& font, const QtLabel& label);

} // namespace txqt
