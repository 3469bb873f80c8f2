// What a host does that knows the backend's own objects.

#include "Operations.h"
#include <tests/support/RandomSource.h>

using namespace TZObjects;

namespace
{

/// A join with mitres, and how far they may reach; a negative limit is none that Qt ever sets by itself.
std::tuple<Qt::PenJoinStyle, double> SomeMiter(Random& r)
{
    const Qt::PenJoinStyle join = r.OneOf({Qt::MiterJoin, Qt::MiterJoin, Qt::SvgMiterJoin});
    return {join, r.Chance(50) ? r.Real(-6.0, 0.0) : r.Real(0.0, 8.0)};
}

void SetMiter(QPen& pen, Qt::PenJoinStyle join, double limit)
{
    pen.setJoinStyle(join);
    pen.setMiterLimit(limit);
}

} // namespace

std::vector<Operation> BackendOperations()
{
    return {
        Row("Save of the painter", 2, Nothing, [](auto& side) { side.SaveOnPainter(); }),
        Row(
            "rotate and scale the painter", 4,
            [](Random& r) {
                return std::tuple{r.Real(-20.0, 20.0), r.Real(0.85, 1.2), r.Real(0.85, 1.2)};
            },
            [](auto& side, double angle, double scaleX, double scaleY)
            {
                QPainter* const painter = side.ActivePainter();
                if (!painter)
                    return;
                painter->rotate(angle);
                painter->scale(scaleX, scaleY);
            }),
        Row(
            "a brush origin", 1,
            [](Random& r) {
                return std::tuple{r.Real(-9.0, 9.0), r.Real(-9.0, 9.0)};
            },
            [](auto& side, double x, double y)
            {
                if (QPainter* const painter = side.ActivePainter())
                    painter->setBrushOrigin(QPointF(x, y));
            }),
        Row("mitres of the painter's pen", 3, SomeMiter,
            [](auto& side, Qt::PenJoinStyle join, double limit)
            {
                QPainter* const painter = side.ActivePainter();
                if (!painter)
                    return;
                QPen pen = painter->pen();
                SetMiter(pen, join, limit);
                painter->setPen(pen);
            }),
        Row("mitres of a pen", 4, Joined([](Random& r) { return std::tuple{r.Int(0, kPens - 1)}; }, SomeMiter),
            [](auto& side, int pen, Qt::PenJoinStyle join, double limit) { SetMiter(*side.QtPen(pen), join, limit); }),
        Row(
            "a turned brush", 2,
            [](Random& r) {
                return std::tuple{r.Int(0, kBrushes - 1), r.Real(-90.0, 90.0), r.Real(0.4, 2.0)};
            },
            [](auto& side, int brush, double angle, double scale)
            { side.QtBrush(brush)->setTransform(QTransform().rotate(angle).scale(scale, scale)); }),
        Row(
            "raw pixels", 5,
            [](Random& r) {
                return std::tuple{r.Int(0, kImages - 1), r.Int(0, 1 << 30), r.Chance(50)};
            },
            [](auto& side, int image, int seed, bool opaqueOnes)
            {
                const QImage* const pixels = side.QtImage(image);
                if (!side.hasRawPixels || !pixels || pixels->format() != QImage::Format_ARGB32_Premultiplied)
                    return;
                auto* const bits = static_cast<QRgb*>(side.Image(image)->GetBits());
                RandomSource noise(static_cast<unsigned>(seed));
                // Any colour beside any alpha.
                for (int i = 0; i < pixels->width() * pixels->height(); ++i)
                    bits[i] = noise.Next() | (opaqueOnes && i % 3 == 0 ? 0xff000000u : 0u);
            }),
    };
}
