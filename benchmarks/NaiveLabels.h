#pragma once

#include <string>
#include <vector>

#include <QFont>
#include <QPainter>
#include <QString>

#include <cairo.h>
#include <txgraphics/txgraphics.h>

/// How labels look.
struct LabelLook
{
    const char* family = "DejaVu Sans";
    int height = 12;
    int haloWidth = 1;
    TZObjects::TXColor haloColor{255, 255, 255, 255};
    TZObjects::TXColor fill{40, 40, 60, 255};
};

/// The plugin's font.
TZObjects::TXRefPtr<TZObjects::TXFont> MakeFont(const LabelLook& look);
/// The same font, made directly.
QFont DirectFont(const LabelLook& look);

/// What a programmer writes who draws labels directly and keeps nothing from one label to the next.
/// @{
void DrawHaloLabel(QPainter& painter, const QFont& font, const LabelLook& look, const QPointF& topLeft,
                   const QString& text);
/// @param x,y the left top of the label's bounds.
void DrawPlainLabel(QPainter& painter, const QFont& font, double x, double y, const QString& text);
/// Plain text is left out: it would be drawn as an outline.
void DrawRichLabel(QPainter& painter, double x, double y, const QString& html);
/// @return the width of the column, which says where the next one would start.
double DrawVerticalLabel(QPainter& painter, const QFont& font, const LabelLook& look, const QPointF& topLeft,
                         const QString& text);
/// @}

/// The same in direct cairo calls.
/// @{
/// Sets a context up as surfaces that draw labels with cairo do.
void PrepareCairo(cairo_t* context, const LabelLook& look);
void DrawCairoLabel(cairo_t* context, const LabelLook& look, bool halo, double x, double y, const std::string& utf8);
/// @param characters of the text, each in UTF-8.
void DrawCairoColumn(cairo_t* context, const LabelLook& look, double x, double y,
                     const std::vector<std::string>& characters);
/// @}
