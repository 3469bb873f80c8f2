#include <txpluginqt/text/LabelOutlines.h>

#include <cmath>
#include <limits>
#include <utility>

#include <QPainterPath>

#include <txpluginqt/raster/Drawing.h>
#include <txpluginqt/raster/FontState.h>
#include <txpluginqt/support/Numbers.h>

namespace txqt
{
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

OutlineDetail DetailOf(const QFont& font, const std::vector<PlacedText>& pieces, Qt::FillRule fillRule)
{
    // Rules lie where they are asked for, not at parts of a pixel.
    const bool hasRules = font.underline() || font.overline() || font.strikeOut();
    const auto placeOf = [&](double coordinate) { return hasRules ? BitsOf(coordinate) : PlaceOf(coordinate); };
    OutlineDetail detail{fillRule, GlyphShift(font), {}, std::nullopt};
    detail.pieces.reserve(pieces.size());
    for (const PlacedText& piece : pieces)
        detail.pieces.push_back({piece.text.size(), placeOf(piece.origin.x()), placeOf(piece.origin.y())});
    return detail;
}

} // namespace

bool OutlineDetail::operator==(const OutlineDetail& other) const
{
    return fillRule == other.fillRule && glyphShift == other.glyphShift && strokeWidth == other.strokeWidth &&
           pieces == other.pieces;
}

std::size_t OutlineDetail::Hash() const
{
    std::size_t hash = fillRule;
    CombineHash(hash, static_cast<std::size_t>(glyphShift));
    CombineHash(hash, strokeWidth ? static_cast<std::size_t>(BitsOf(*strokeWidth)) : 0);
    for (const Piece& piece : pieces)
    {
        CombineHash(hash, static_cast<std::size_t>(piece.x));
        CombineHash(hash, static_cast<std::size_t>(piece.y));
    }
    return hash;
}

LabelOutlines::LabelOutlines(const QFont& font, const QString& text, const std::vector<PlacedText>& pieces,
                             Qt::FillRule fillRule)
    : font(font), text(text), detail(DetailOf(font, pieces, fillRule))
{
    const auto make = [&]
    {
        QPainterPath path;
        path.setFillRule(fillRule);
        LoadFacesOfSmallCapitals(font, text);
        for (const PlacedText& piece : pieces)
            path.addText(piece.origin, font, piece.text);
        // Qt may have loaded glyphs meanwhile.
        isLasting = GlyphShift(font) == detail.glyphShift;
        return InkOutline(path);
    };
    letters = LabelCache::OfThread().Get<InkOutline>(font, text, detail, make, [&] { return isLasting; });
}

void LabelOutlines::Stroke(QPainter& painter, const QPen& pen) const
{
    LabelCache& cache = LabelCache::OfThread();
    if (!isLasting || !IsFilledStroke(painter, pen) || !cache.IsOn())
    {
        letters->Stroke(painter, pen);
        return;
    }
    OutlineDetail strokeDetail = detail;
    strokeDetail.strokeWidth = pen.widthF();
    cache.Get<InkOutline>(font, text, std::move(strokeDetail), [&] { return letters->Stroked(pen); })
        ->Fill(painter, pen.brush());
}

} // namespace txqt
