#include "Settle.h"

#include <algorithm>
#include <set>
#include <tuple>

#include <QFont>
#include <QFontMetricsF>
#include <QPainterPath>

namespace
{

bool IsLatin(QChar character)
{
    constexpr ushort lastLatin = 0x24f;
    return character == QLatin1Char('\n') || (character >= QLatin1Char(' ') && character.unicode() <= lastLatin);
}

/// True where a coloured glyph may come up: beyond the basic plane, or among the technical symbols.
bool MayBeColoured(QChar character)
{
    return character.isSurrogate() || (character >= QChar(0x2300) && character <= QChar(0x23ff));
}

/// False for a font of this face and a text that were here before. To settle a text takes long.
bool IsNew(const QFont& font, const QString& text)
{
    static std::set<std::tuple<QString, int, QString>> known;
    return known.emplace(font.key(), font.styleStrategy(), text).second;
}

void SettleAsItIs(const QFont& font, const QString& text, bool isColoured)
{
    if (IsNew(font, text))
    {
        const QFontMetricsF metrics(font);
        metrics.horizontalAdvance(text);
        for (const QString& line : text.split(QLatin1Char('\n')))
            metrics.horizontalAdvance(line);
        // As in a column.
        for (const QChar character : text)
            metrics.horizontalAdvance(QString(character));
    }
    // Each time, as coloured glyphs are what they were before once the same face was used in another size.
    if (isColoured)
        QPainterPath().addText(0.0, 0.0, font, text);
}

} // namespace

bool Settle(const QFont& font, const QString& text)
{
    const bool isColouredFace = font.family() == QLatin1String(kColouredFamily);
    if (!isColouredFace && std::all_of(text.begin(), text.end(), IsLatin))
        return false;
    const bool isColoured = isColouredFace || std::any_of(text.begin(), text.end(), MayBeColoured);
    SettleAsItIs(font, text, isColoured);
    if (!text.contains(QLatin1Char('<')))
        return true;
    // Its tags choose among these.
    for (const int weight : {QFont::Normal, QFont::Bold})
        for (const bool italic : {false, true})
        {
            QFont tagged = font;
            tagged.setWeight(weight);
            tagged.setItalic(italic);
            SettleAsItIs(tagged, text, isColoured);
        }
    return true;
}
