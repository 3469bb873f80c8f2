#include <txpluginqt/text/CairoTextLayout.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <QStringList>

#include <txpluginqt/text/ColumnGap.h>

namespace txqt
{
namespace
{

constexpr double kRulePart = 20.0;

/// A column's characters, each a part of its own, so that a halo never covers a neighbour's fill.
struct Column
{
    std::vector<CairoTextPart> characters;
    double width = 0.0;
    double height = 0.0;
    double firstHeight = 0.0;
};

/// @param x where the column's glyphs lie.
Column LayOutColumn(const QString& text, const CairoTextMetrics& metrics, double x)
{
    const double step = metrics.extents.ascent + metrics.charSpacing * metrics.scale;
    Column column;
    double y = 0.0;
    for (int i = 0; i < text.size(); ++i)
    {
        std::optional<GlyphRun> run = GlyphRun::FromText(metrics.font, text.mid(i, 1), x, y);
        if (!run)
            continue;
        const double width = run->Extents().width;
        const double height = std::abs(run->Extents().y_bearing);
        if (column.characters.empty())
            column.firstHeight = height;
        CairoTextPart character;
        character.strikeOut = {x, y - height * 0.5, width};
        character.underline = {x, metrics.extents.descent / metrics.scale + y, width};
        character.runs.push_back(std::move(*run));
        column.characters.push_back(std::move(character));
        column.width = std::max(column.width, width);
        column.height += step;
        y += step;
    }
    return column;
}

} // namespace

CairoTextLayout LayOutCairoColumns(const QString& text, const CairoTextMetrics& metrics, int vAlign, bool italic)
{
    std::vector<Column> columns;
    double tallest = -std::numeric_limits<double>::infinity();
    double x = 0.0;
    for (const QString& line : text.split(QLatin1Char('\n')))
    {
        columns.push_back(LayOutColumn(line, metrics, x));
        tallest = std::max(tallest, columns.back().height);
        x += columns.back().width + metrics.lineSpacing * metrics.scale;
    }

    CairoTextLayout layout;
    layout.ruleWidth = metrics.extents.height / kRulePart;
    double gaps = 0.0;
    for (std::size_t i = 0; i < columns.size(); ++i)
    {
        Column& column = columns[i];
        const bool centred = vAlign == 1 || vAlign == 3;
        const double offset =
            (centred ? (tallest - column.height) * 0.5 : 0.0) + (metrics.extents.ascent + column.firstHeight) * 0.5;
        CairoTextPiece piece;
        piece.x = gaps;
        piece.y = offset;
        piece.parts = std::move(column.characters);
        layout.pieces.push_back(std::move(piece));
        gaps += metrics.extents.height * GapFactor(i == 0, italic);
    }
    return layout;
}

} // namespace txqt
