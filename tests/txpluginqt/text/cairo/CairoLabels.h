#pragma once

#include <QString>

#include <cairo.h>
#include <tests/txpluginqt/text/Label.h>
#include <txbase/TXColor.h>

/// A run of glyphs, and the extents of its ink.
class Glyphs
{
public:
    /// The glyphs of @p text, the first one's origin at (@p x, @p y).
    Glyphs(cairo_scaled_font_t* font, const QString& text, double x, double y);
    ~Glyphs();
    Glyphs(const Glyphs&) = delete;
    Glyphs& operator=(const Glyphs&) = delete;

    bool Converted() const { return status == CAIRO_STATUS_SUCCESS; }
    /// Nothing to draw: not converted, or a text without a character.
    bool IsNull() const { return !array; }
    const cairo_text_extents_t& Extents() const { return extents; }
    void AddTo(cairo_t* context) const;

private:
    cairo_glyph_t* array = nullptr;
    int count = 0;
    cairo_status_t status;
    cairo_text_extents_t extents{};
};

/// A colour as cairo's source, each channel divided by 255.
void SetSource(cairo_t* context, const TZObjects::TXColor& color);
/// Sets the font's size. @return its extents.
cairo_font_extents_t UseSize(cairo_t* context, double size);
/// Adds the outlines of a text to the path, the first origin at (@p x, @p y). @return the extents of its ink.
cairo_text_extents_t AddText(cairo_t* context, const QString& text, double x, double y);
/// Fills the path.
void FillPath(cairo_t* context, const TZObjects::TXColor& color);
/// Strokes the path and keeps it.
void StrokeHalo(cairo_t* context, const TZObjects::TXColor& color, double width);
/// Adds a horizontal rule to the path.
void AddRule(cairo_t* context, double x, double y, double length);
/// Strokes the rules that are the path, with round ends.
void StrokeRules(cairo_t* context, const TZObjects::TXColor& color, double width);

/// A label in direct cairo calls: what the surface is expected to draw.
struct ExpectedLabel
{
    QString text;
    double x = 0.0;
    double y = 0.0;
    double angle = 0.0; // degrees
    double scale = 1.0;
    int fontHeight = 10;
    int align = 1; // of lines against the widest, or of columns against the tallest
    double lineSpacing = 0.0;
    double charSpacing = 0.0;
    bool italic = false; // matters for the gaps between columns only
    TZObjects::TXColor color;
    bool halo = false;
    TZObjects::TXColor haloColor;
    double haloWidth = 0.0;
    bool underline = false;
    bool strikeOut = false;

    bool inColumns = false; // of stacked characters

    /// The label of an entry.
    /// @param font the selected one; null for none. @param pen the colour of the selected pen.
    ExpectedLabel(Entry entry, const Label& label, const FontChoice* font, const TZObjects::TXColor& pen);

    /// Draws the label with the face that is selected in the context.
    void Draw(cairo_t* context) const;

private:
    void DrawLines(cairo_t* context) const;
    void DrawColumns(cairo_t* context) const;
};
