#pragma once

#include <memory>
#include <vector>

#include <QBrush>
#include <QFont>
#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QString>

#include <txpluginqt/graphics/text/InkOutline.h>
#include <txpluginqt/support/LabelCache.h>

/// A piece of a label, at the left end of its baseline.
struct PlacedText
{
    QPointF origin;
    QString text;
};

/// The outlines of a label's letters as Qt makes them, kept for the next label that is the same.
class QtLabelOutlines
{
public:
    /// @param pieces the parts of @p text, each at its place.
    QtLabelOutlines(const QFont& font, const QString& text, const std::vector<PlacedText>& pieces,
                    Qt::FillRule fillRule);

    void Fill(QPainter& painter, const QBrush& brush) const { letters->Fill(painter, brush); }
    /// Strokes along the outlines; what the stroke covers is kept as well.
    void Stroke(QPainter& painter, const QPen& pen) const;

private:
    QFont font;
    QString text;
    LabelCache::Details places;
    bool isLasting = true; ///< False when the next outlines will be others.
    std::shared_ptr<const InkOutline> letters;
};
