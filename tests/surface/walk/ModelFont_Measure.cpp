// What fonts of the model measure, by Qt.
#include <algorithm>

#include <QFontMetricsF>
#include <QTextDocument>

#include <tests/txpluginqt/text/Measures.h>
#include <tests/txpluginqt/text/NaiveTags.h>

#include "ModelResources.h"

using namespace TZObjects;

namespace
{

QString Converted(const TXString& text) { return ConvertedNaively(QString::fromStdWString(text.toStdWString())); }

} // namespace

bool ModelFont::GetTextExtent(const TXString& text, double& extentWidth, double& height, bool) const
{
    const QString label = Converted(text);
    const QFontMetricsF metrics(qfont);
    QSizeF size = metrics.boundingRect(label).size();
    size.setWidth(std::max(metrics.horizontalAdvance(label), size.width()));
    if (Qt::mightBeRichText(label))
        size = DocumentSize(label, qfont);
    extentWidth = size.width();
    height = size.height();
    return true;
}

bool ModelFont::GetTextExtent(const TXString& text, int& extentWidth, int& height, bool) const
{
    const QString label = Converted(text);
    const QFontMetrics metrics(qfont);
    extentWidth = metrics.horizontalAdvance(label);
    height = metrics.boundingRect(label).height();
    if (!Qt::mightBeRichText(label))
        return true;
    const QSizeF size = DocumentSize(label, qfont);
    extentWidth = static_cast<int>(size.width() + 0.5);
    height = static_cast<int>(size.height() + 0.5);
    return true;
}

bool ModelFont::GetMultiTextExtent(const TXString& text, double& extentWidth, double& height, bool) const
{
    extentWidth = height = 0.0;
    for (const QString& line : Converted(text).split('\n'))
    {
        const QSizeF size =
            Qt::mightBeRichText(line) ? DocumentSize(line, qfont) : QFontMetricsF(qfont).boundingRect(line).size();
        extentWidth = std::max(extentWidth, size.width());
        height += size.height();
    }
    return true;
}

bool ModelFont::GetMultiTextExtent(const TXString& text, int& extentWidth, int& height, bool) const
{
    extentWidth = height = 0;
    for (const QString& line : Converted(text).split('\n'))
    {
        QSize size = QFontMetrics(qfont).boundingRect(line).size();
        if (Qt::mightBeRichText(line))
        {
            const QSizeF exact = DocumentSize(line, qfont);
            size = QSize(static_cast<int>(exact.width()), static_cast<int>(exact.height()));
        }
        extentWidth = std::max(extentWidth, size.width());
        height += size.height();
    }
    return true;
}

void ModelFont::GetFontMetricsInfo(double& height, double& ascent, double& descent, bool) const
{
    const QFontMetricsF metrics(qfont);
    height = metrics.height();
    ascent = metrics.ascent();
    descent = metrics.descent();
}

void ModelFont::GetFontMetricsInfo(int& height, int& ascent, int& descent, bool) const
{
    const QFontMetrics metrics(qfont);
    height = metrics.height();
    ascent = metrics.ascent();
    descent = metrics.descent();
}

double ModelFont::GetMaxCharWidthOfText(const TXString& text, bool) const
{
    double widest = 0.0;
    for (const QChar character : QString::fromStdWString(text.toStdWString()))
        widest = std::max(widest, QFontMetricsF(qfont).horizontalAdvance(character));
    return widest;
}
