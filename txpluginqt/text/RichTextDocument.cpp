#include <txpluginqt/text/RichTextDocument.h>

#include <QFont>
#include <QImage>
#include <QTextLayout>
#include <QUrl>
#include <QVariant>

namespace txqt
{

RichTextDocument::RichTextDocument(const QString& html, const QFont& font)
{
    setDefaultFont(font);
    setHtml(html);
}

QVariant RichTextDocument::loadResource(int type, const QUrl&)
{
    if (type != QTextDocument::ImageResource)
        return QByteArray();
    // For an image without pixels Qt would open the named file after all.
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(Qt::transparent);
    return pixel;
}

bool MayBeRichText(const QString& text) { return text.contains(QLatin1Char('<')) || text.contains(QLatin1Char('&')); }

// Qt gives the same answer, but takes longer.
bool IsRichText(const QString& text) { return MayBeRichText(text) && Qt::mightBeRichText(text); }

} // namespace txqt
