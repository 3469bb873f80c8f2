#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QBrush>
#include <QFont>
#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QString>

#include <txpluginqt/text/InkOutline.h>
#include <txpluginqt/text/LabelCache.h>

namespace txqt
{

/// A piece of a label, at the left end of its baseline.
struct PlacedText
{
    QPointF origin;
    QString text;
};

/// What the outlines of a label depend on besides its font and text.
struct OutlineDetail
{
    struct Piece
    {
        int length; ///< Lines and columns may lie at the same places and divide the text differently.
        qint64 x;   ///< The origin, as far as Qt tells places apart.
        qint64 y;

        bool operator==(const Piece& other) const { return length == other.length && x == other.x && y == other.y; }
    };

    Qt::FillRule fillRule;
    qint64 glyphShift; ///< The state in which Qt has left the font's faces.
    std::vector<Piece> pieces;
    std::optional<double> strokeWidth; ///< Empty for the letters themselves.

    bool operator==(const OutlineDetail& other) const;
    std::size_t Hash() const;
    std::size_t Bytes() const { return pieces.capacity() * sizeof(Piece); }
};

/// The outlines of a label's letters as Qt makes them, cached for the next label that is the same.
class LabelOutlines
{
public:
    /// @param pieces the parts of @p text, each at its place.
    LabelOutlines(const QFont& font, const QString& text, const std::vector<PlacedText>& pieces, Qt::FillRule fillRule);

    void Fill(QPainter& painter, const QBrush& brush) const { letters->Fill(painter, brush); }
    /// Strokes along the outlines. The outline of the stroke is cached as well.
    void Stroke(QPainter& painter, const QPen& pen) const;

private:
    QFont font;
    QString text;
    OutlineDetail detail;
    bool isLasting = true; ///< False when the same outlines would differ the next time.
    std::shared_ptr<const InkOutline> letters;
};

} // namespace txqt
