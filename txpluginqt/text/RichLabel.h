#pragma once

#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <txpluginqt/text/RichTextDocument.h>

namespace txqt
{

/// A rich label, laid out.
class RichLabel
{
public:
    /// @param html lines are divided by line feeds.
    RichLabel(const QString& html, const QFont& font);

    const QSizeF& Size() const { return size; }

    /// Draws at the origin in the colour of the painter's pen, within @p clip where one is given.
    void Draw(QPainter& painter, const QRectF& clip = QRectF());

private:
    RichTextDocument document;
    QSizeF size;
};

/// The widest of a rich label's lines and the sum of their heights. Each line is measured alone: a rich one with
/// @p painterFont, which may be older than the settings of the selected font, and any other with @p font.
QSizeF RichLinesExtent(const QString& html, const QFont& font, const QFont& painterFont);

} // namespace txqt
