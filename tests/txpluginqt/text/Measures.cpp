#include "Measures.h"

#include <ostream>
#include <tuple>

#include <QTextDocument>

using namespace TZObjects;

namespace
{

auto Tied(const Measures& m)
{
    return std::tie(m.lineAnswers, m.lineAnswersInt, m.blockAnswers, m.blockAnswersInt, m.lineWidth, m.lineHeight,
                    m.blockWidth, m.blockHeight, m.height, m.ascent, m.descent, m.lineWidthInt, m.lineHeightInt,
                    m.blockWidthInt, m.blockHeightInt, m.heightInt, m.ascentInt, m.descentInt, m.charWidth);
}

} // namespace

Measures::Measures(const TXFont& font, const TXString& text, bool useQt)
{
    lineAnswers = font.GetTextExtent(text, lineWidth, lineHeight, useQt);
    lineAnswersInt = font.GetTextExtent(text, lineWidthInt, lineHeightInt, useQt);
    blockAnswers = font.GetMultiTextExtent(text, blockWidth, blockHeight, useQt);
    blockAnswersInt = font.GetMultiTextExtent(text, blockWidthInt, blockHeightInt, useQt);
    font.GetFontMetricsInfo(height, ascent, descent, useQt);
    font.GetFontMetricsInfo(heightInt, ascentInt, descentInt, useQt);
    charWidth = font.GetMaxCharWidthOfText(text, useQt);
}

bool operator==(const Measures& left, const Measures& right) { return Tied(left) == Tied(right); }

std::ostream& operator<<(std::ostream& out, const Measures& m)
{
    return out << "line " << m.lineAnswers << m.lineAnswersInt << ' ' << m.lineWidth << " x " << m.lineHeight << " ("
               << m.lineWidthInt << " x " << m.lineHeightInt << "), block " << m.blockAnswers << m.blockAnswersInt
               << ' ' << m.blockWidth << " x " << m.blockHeight << " (" << m.blockWidthInt << " x " << m.blockHeightInt
               << "), font " << m.height << ' ' << m.ascent << ' ' << m.descent << " (" << m.heightInt << ' '
               << m.ascentInt << ' ' << m.descentInt << "), character " << m.charWidth;
}

QSizeF DocumentSize(const QString& html, const QFont& font)
{
    QTextDocument document;
    document.setHtml(html);
    document.setDefaultFont(font);
    return document.size();
}
