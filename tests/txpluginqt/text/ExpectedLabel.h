#pragma once

#include <vector>

#include <QPainter>
#include <QPainterPath>
#include <QStringList>
#include <QTextDocument>

#include "Label.h"

/// Paints the label directly, as the entry has to: with the painter's pen and font, in its state.
void DrawDirectly(QPainter& painter, Entry entry, const Label& label);

/// The parts of that painting, for tests that paint a single point of it in their own way.

/// True when the label is laid out as HTML where the entry allows it.
bool IsRich(const Label& label);
/// The label without formatting when it is rich, else as it stands.
QString WithoutFormatting(const Label& label);

/// The lines of a plain label, measured.
struct PlainBlock
{
    PlainBlock(const QString& text, const QFont& font);

    /// @param topLeft the block's top left corner.
    QPainterPath Path(const QPointF& topLeft, double step, int align, Qt::FillRule rule) const;

    QFont font;
    QStringList lines;
    std::vector<double> widths;
    double width = 0.0;
    double height = 0.0; ///< of the tallest line
    double ascent = 0.0;
};

/// The columns of a vertical label, measured.
struct ColumnBlock
{
    ColumnBlock(const QString& text, const QFont& font, double columnSpacing, double charSpacing);

    QPainterPath Path(const QPointF& topLeft, int align) const;

    QFont font;
    QStringList columns;
    std::vector<double> widths;
    std::vector<double> heights;
    std::vector<double> gaps;
    double columnSpacing = 0.0;
    double ascent = 0.0;
    double step = 0.0;
    double width = 0.0;
    double height = 0.0;
};

/// Moves the painter to the anchor, slants it when @p slanted, and turns and scales it, with `rotate` called always.
void Place(QPainter& painter, const QPointF& anchor, bool slanted, double angle, double scale);
/// Fills in the colour of the painter's pen.
void FillInPenColor(QPainter& painter, const QPainterPath& path);
/// Strokes in the font's halo colour, made opaque.
void StrokeHalo(QPainter& painter, const QPainterPath& path, const FontChoice& font);
void FillInColor(QPainter& painter, const QPainterPath& path, const TZObjects::TXColor& color);
/// Draws the document at the origin in @p color. An invalid @p clip is none.
void DrawDocument(QPainter& painter, QTextDocument& document, const QColor& color, const QRectF& clip = QRectF());
/// Sets the document to the rich label.
void SetHtml(QTextDocument& document, const QString& html, const QFont& font);
