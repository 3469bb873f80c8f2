#include <txpluginqt/raster/FontState.h>

#include <QFont>
#include <QFontMetricsF>
#include <QHash>

#include <ft2build.h>
#include FT_FREETYPE_H

// Only below QFont is it known for which device a font is, which faces it has, and which of them are loaded.
#include <private/qfont_p.h>
#include <private/qfontengine_p.h>
#include <private/qtextengine_p.h>

namespace txqt
{
namespace
{

void Combine(quint64& state, quint64 more)
{
    state ^= more + Q_UINT64_C(0x9e3779b97f4a7c15) + (state << 6) + (state >> 2);
}

FT_Face FaceOf(const QFontEngine* engine)
{
    return engine && engine->type() == QFontEngine::Freetype ? static_cast<FT_Face>(engine->handle()) : nullptr;
}

/// @param place tells faces apart.
void AddShift(quint64& state, const QFontEngine* engine, quint64 place)
{
    FT_Face const face = FaceOf(engine);
    if (!face)
        return;
    FT_Matrix matrix;
    FT_Vector shift;
    FT_Get_Transform(face, &matrix, &shift);
    if (shift.x == 0 && shift.y == 0)
        return;
    // Qt takes the shift back where it finds another matrix than the face is to have.
    for (const FT_Long number : {shift.x, shift.y, matrix.xx, matrix.xy, matrix.yx, matrix.yy})
        Combine(state, static_cast<quint64>(number));
    Combine(state, place);
}

bool IsBitmapFace(const QFontEngine* engine)
{
    FT_Face const face = FaceOf(engine);
    return face && !FT_IS_SCALABLE(face);
}

/// The face that a glyph of an engine belongs to, which a combined engine writes into the glyph.
const QFontEngine* FaceOfGlyph(const QFontEngine* engine, glyph_t glyph)
{
    constexpr int faceBits = 24;
    return engine && engine->type() == QFontEngine::Multi
               ? static_cast<const QFontEngineMulti*>(engine)->engine(static_cast<int>(glyph >> faceBits))
               : engine;
}

/// Calls @p visit with each face that is loaded, and a number that tells faces apart.
template <class Visit>
void ForEachLoadedFace(const QFont& font, Visit visit)
{
    const QFontPrivate* const data = QFontPrivate::get(font);
    // As any use of the font does, so that it shares what others have loaded.
    data->engineForScript(QChar::Script_Common);
    for (int script = 0; script < QChar::ScriptCount; ++script)
    {
        const QFontEngine* const engine = data->engineData->engines[script];
        const auto place = static_cast<quint64>(script) << 8;
        if (!engine)
            continue;
        if (engine->type() != QFontEngine::Multi)
        {
            visit(engine, place);
            continue;
        }
        const auto& faces = *static_cast<const QFontEngineMulti*>(engine);
        for (int face = 0; face <= faces.fallbackFamilyCount(); ++face)
            if (const QFontEngine* const loaded = faces.engine(face))
                visit(loaded, place | static_cast<quint64>(face));
    }
}

void AddSubstitutes(quint64& hash, const QString& family)
{
    const QStringList substitutes = QFont::substitutes(family);
    if (substitutes.isEmpty())
        return;
    Combine(hash, qHash(family));
    for (const QString& substitute : substitutes)
        Combine(hash, qHash(substitute));
}

} // namespace

int DotsPerInch(const QFont& font) { return QFontPrivate::get(font)->dpi; }

quint64 SubstitutesHash(const QFont& font, bool ofAllFamilies)
{
    const QStringList substituted = QFont::substitutions();
    quint64 hash = 0;
    if (substituted.isEmpty())
        return hash;
    if (ofAllFamilies)
    {
        for (const QString& family : substituted)
            AddSubstitutes(hash, family);
        return hash;
    }
    for (const QString& family : font.families())
        AddSubstitutes(hash, family);
    for (const QString& family : font.family().split(QLatin1Char(',')))
        AddSubstitutes(hash, family.trimmed());
    return hash;
}

quint64 LoadedFaces(const QFont& font)
{
    quint64 loaded = 0;
    ForEachLoadedFace(font, [&](const QFontEngine*, quint64 place) { Combine(loaded, place); });
    return loaded;
}

qint64 GlyphShift(const QFont& font)
{
    quint64 state = 0;
    ForEachLoadedFace(font, [&](const QFontEngine* engine, quint64 place) { AddShift(state, engine, place); });
    return static_cast<qint64>(state);
}

bool UsesBitmapFace(const QFont& font, const QString& text)
{
    bool isLoaded = false;
    ForEachLoadedFace(font, [&](const QFontEngine* engine, quint64) { isLoaded = isLoaded || IsBitmapFace(engine); });
    // Laying the text out once more takes long, and few labels come near such a face.
    if (!isLoaded)
        return false;
    // Not by a layout's glyph runs, which leave out what is not printed but takes room.
    QStackTextEngine layout(text, font);
    layout.itemize();
    for (int i = 0; i < layout.layoutData->items.size(); ++i)
    {
        layout.shape(i);
        const QScriptItem& item = layout.layoutData->items[i];
        const QFontEngine* const engine = layout.fontEngine(item);
        if (item.analysis.flags >= QScriptAnalysis::TabOrObject)
            continue;
        const QGlyphLayout glyphs = layout.shapedGlyphs(&item);
        for (int k = 0; k < glyphs.numGlyphs; ++k)
            if (IsBitmapFace(FaceOfGlyph(engine, glyphs.glyphs[k])))
                return true;
    }
    return false;
}

void LoadFacesOfSmallCapitals(const QFont& font, const QString& text)
{
    if (font.capitalization() != QFont::SmallCaps)
        return;
    QFont fullSize(font);
    fullSize.setCapitalization(QFont::MixedCase);
    static_cast<void>(QFontMetricsF(fullSize).horizontalAdvance(text.toUpper()));
}

} // namespace txqt
