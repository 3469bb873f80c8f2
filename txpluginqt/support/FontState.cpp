#include <txpluginqt/support/GlyphShift.h>

#include <QFont>

#include <ft2build.h>
#include FT_FREETYPE_H

// Only below QFont is it known which faces a font has, and which of them are loaded.
#include <private/qfont_p.h>
#include <private/qfontengine_p.h>

namespace
{

void Combine(quint64& state, quint64 more)
{
    state ^= more + Q_UINT64_C(0x9e3779b97f4a7c15) + (state << 6) + (state >> 2);
}

/// @param place tells faces apart.
void AddShift(quint64& state, const QFontEngine* engine, quint64 place)
{
    if (!engine || engine->type() != QFontEngine::Freetype)
        return;
    FT_Matrix matrix;
    FT_Vector shift;
    FT_Get_Transform(static_cast<FT_Face>(engine->handle()), &matrix, &shift);
    if (shift.x == 0 && shift.y == 0)
        return;
    // Qt takes the shift back where it finds another matrix than the face is to have.
    for (const FT_Long number : {shift.x, shift.y, matrix.xx, matrix.xy, matrix.yx, matrix.yy})
        Combine(state, static_cast<quint64>(number));
    Combine(state, place);
}

} // namespace

qint64 GlyphShift(const QFont& font)
{
    const QFontPrivate* const data = QFontPrivate::get(font);
    // As any use of the font does, so that it shares what others have loaded.
    data->engineForScript(QChar::Script_Common);
    quint64 state = 0;
    for (int script = 0; script < QChar::ScriptCount; ++script)
    {
        const QFontEngine* const engine = data->engineData->engines[script];
        if (!engine)
            continue;
        if (engine->type() != QFontEngine::Multi)
        {
            AddShift(state, engine, static_cast<quint64>(script) << 8);
            continue;
        }
        const auto& faces = *static_cast<const QFontEngineMulti*>(engine);
        for (int face = 0; face <= faces.fallbackFamilyCount(); ++face)
            AddShift(state, faces.engine(face), static_cast<quint64>(script) << 8 | static_cast<quint64>(face));
    }
    return static_cast<qint64>(state);
}
