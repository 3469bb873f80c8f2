#include <txpluginqt/graphics/text/QtLabelOutlines.h>

#include <cmath>
#include <limits>
#include <utility>

#include <QPainterPath>

#include <txpluginqt/graphics/InkReach.h>
#include <txpluginqt/support/FontState.h>
#include <txpluginqt/support/Numbers.h>

namespace
{

/// What Qt makes of a coordinate of a text: it truncates to 1/64 of a pixel, before and after it has added whole such
/// parts. Coordinates between the same two parts are therefore one place.
qint64 PlaceOf(double coordinate)
{
    constexpr double farthest = 1e6;
    constexpr double nearBorder = 1e-6;
    // Their representations are as small as the numbers of places.
    if (std::abs(coordinate) < std::numeric_limits<double>::min())
        coordinate = 0.0;
    const double parts = coordinate * 64.0;
    const double below = std::floor(parts);
    const bool onBorder = parts == below;
    const bool isSafe = std::abs(coordinate) < farthest &&
                        (onBorder || (parts - below > nearBorder && below + 1.0 - parts > nearBorder));
    if (!isSafe)
        return BitsOf(coordinate);
    return static_cast<qint64>(below) * 2 + (onBorder ? 0 : 1);
}

} // namespace

QtLabelOutlines::QtLabelOutlines(const QFont& font, const QString& text, const std::vector<PlacedText>& pieces,
                                 Qt::FillRule fillRule)
    : font(font), text(text)
{
    // Rules lie where they are asked for, not at parts of a pixel.
    const bool hasRules = font.underline() || font.overline() || font.strikeOut();
    places.reserve(pieces.size() * 3 + 2);
    places.push_back(fillRule);
    const qint64 shift = GlyphShift(font);
    places.push_back(shift);
    for (const PlacedText& piece : pieces)
    {
        // Where the text is divided: lines and columns may share their places.
        places.push_back(piece.text.size());
        for (const double coordinate : {piece.origin.x(), piece.origin.y()})
            places.push_back(hasRules ? BitsOf(coordinate) : PlaceOf(coordinate));
    }
    const auto make = [&]
    {
        QPainterPath path;
        path.setFillRule(fillRule);
        LoadFacesOfSmallCapitals(font, text);
        for (const PlacedText& piece : pieces)
            path.addText(piece.origin, font, piece.text);
        // Qt may have loaded glyphs meanwhile.
        isLasting = GlyphShift(font) == shift;
        return InkOutline(path);
    };
    letters = LabelCache::OfThread().Get<InkOutline>(font, text, places, make, [&] { return isLasting; });
}

void QtLabelOutlines::Stroke(QPainter& painter, const QPen& pen) const
{
    LabelCache& cache = LabelCache::OfThread();
    if (!isLasting || !IsFilledStroke(painter, pen) || !cache.IsOn())
    {
        letters->Stroke(painter, pen);
        return;
    }
    LabelCache::Details details;
    details.reserve(places.size() + 1);
    details = places;
    details.push_back(BitsOf(pen.widthF()));
    cache.Get<InkOutline>(font, text, std::move(details), [&] { return letters->Stroked(pen); })
        ->Fill(painter, pen.brush());
}
