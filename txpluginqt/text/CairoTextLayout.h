#pragma once

#include <vector>

#include <QString>

#include <cairo.h>

#include <txpluginqt/text/GlyphRun.h>

namespace txqt
{

/// A straight rule under or through a text, from x to x + length at height y.
struct CairoRule
{
    double x;
    double y;
    double length;
};

/// What is painted in one go: outlines that get one halo and one fill, and the rules that belong to them.
struct CairoTextPart
{
    std::vector<GlyphRun> runs;
    CairoRule strikeOut{};
    CairoRule underline{};
};

/// A line or a column: parts that are painted one after another, each in the state that the one before has left.
struct CairoTextPiece
{
    /// Where the piece's own origin lies in the label.
    double x = 0.0;
    double y = 0.0;
    std::vector<CairoTextPart> parts;
};

/// A label laid out by cairo, as plain data in the label's own coordinates: origin at the anchor, not rotated.
struct CairoTextLayout
{
    std::vector<CairoTextPiece> pieces;
    /// How thick the rules are.
    double ruleWidth = 0.0;
};

/// What a layout needs to know beside the text. Spacings are given before scaling.
struct CairoTextMetrics
{
    cairo_scaled_font_t* font;
    cairo_font_extents_t extents;
    double lineSpacing;
    double charSpacing;
    double scale;
};

/// Lines from top to bottom, the first one's top left at the origin.
/// @param hAlign how lines lie against the widest: 1 and 3 let left or right edges meet, any other value centres them.
/// A
///        single line has nothing to be aligned against.
CairoTextLayout LayOutCairoLines(const QString& text, const CairoTextMetrics& metrics, int hAlign);

/// Columns from left to right, characters from top to bottom.
/// @param vAlign 1 and 3 centre shorter columns against the tallest, any other value lets their tops meet.
/// @param italic whether columns stand wider apart.
CairoTextLayout LayOutCairoColumns(const QString& text, const CairoTextMetrics& metrics, int vAlign, bool italic);

} // namespace txqt
