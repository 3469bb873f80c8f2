#pragma once

#include <QFont>
#include <QSizeF>
#include <QString>

#include <txgraphics/txgraphics.h>

/// What every measuring operation of a font answers for a text. Outputs start at -7, which no measure is.
struct Measures
{
    Measures(const TZObjects::TXFont& font, const TZObjects::TXString& text, bool useQt);

    bool lineAnswers = false;
    bool lineAnswersInt = false;
    bool blockAnswers = false;
    bool blockAnswersInt = false;
    double lineWidth = -7.0;
    double lineHeight = -7.0;
    double blockWidth = -7.0;
    double blockHeight = -7.0;
    double height = -7.0;
    double ascent = -7.0;
    double descent = -7.0;
    int lineWidthInt = -7;
    int lineHeightInt = -7;
    int blockWidthInt = -7;
    int blockHeightInt = -7;
    int heightInt = -7;
    int ascentInt = -7;
    int descentInt = -7;
    double charWidth = -7.0;
};

/// True when all are the same, of any type of number.
bool operator==(const Measures& left, const Measures& right);
std::ostream& operator<<(std::ostream& out, const Measures& measures);

/// The size of rich text as fonts measure it: the font is set after the text.
QSizeF DocumentSize(const QString& html, const QFont& font);
