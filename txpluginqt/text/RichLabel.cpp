#include <txpluginqt/text/RichLabel.h>

#include <algorithm>
#include <limits>

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPalette>

#include <txpluginqt/support/Numbers.h>

namespace txqt
{

RichLabel::RichLabel(const QString& html, const QFont& font)
    : document(QString(html).replace(QLatin1Char('\n'), QLatin1String("<br>")), font), size(document.size())
{
}

void RichLabel::Draw(QPainter& painter, const QRectF& clip)
{
    QAbstractTextDocumentLayout::PaintContext context;
    context.cursorPosition = -1;
    context.clip = clip;
    context.palette.setBrush(QPalette::Text, QBrush(painter.pen().color()));
    document.documentLayout()->draw(&painter, context);
}

QSizeF RichLinesExtent(const QString& html, const QFont& font, const QFont& painterFont)
{
    const QFontMetricsF metrics(font);
    double width = -std::numeric_limits<double>::infinity();
    double height = 0.0;
    for (const QString& line : html.split(QLatin1Char('\n')))
    {
        QSizeF size = metrics.boundingRect(line).size();
        if (IsRichText(line))
        {
            const QSizeF rich = RichTextDocument(line, painterFont).size();
            size = QSizeF(Truncated(rich.width()), Truncated(rich.height()));
        }
        width = std::max(width, size.width());
        height += size.height();
    }
    return QSizeF(width, height);
}

} // namespace txqt
