#pragma once

#include <QTextDocument>

namespace txqt
{

/// The document of a rich label. Labels come from data that strangers made, so it never opens a file or an address that
/// a label names: every image is a single transparent pixel, and every style sheet is empty.
class RichTextDocument final : public QTextDocument
{
public:
    /// Lays @p html out with @p font where it names none.
    RichTextDocument(const QString& html, const QFont& font);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
};

/// True for a text that has one of the characters without which it cannot be rich. Nearly every label has none.
bool MayBeRichText(const QString& text);

/// True when Qt would take the text for HTML. It looks at the first tag of the first line only.
bool IsRichText(const QString& text);

} // namespace txqt
