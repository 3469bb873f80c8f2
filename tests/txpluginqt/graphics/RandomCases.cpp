#include "RandomCases.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include <tests/support/ImageCompare.h>

using namespace TZObjects;

namespace
{

constexpr int kWidth = 96;
constexpr int kHeight = 72;

QPainter::CompositionMode SomeMode(Random& random)
{
    constexpr QPainter::CompositionMode modes[] = {
        QPainter::CompositionMode_Source,   QPainter::CompositionMode_DestinationOver,
        QPainter::CompositionMode_Xor,      QPainter::CompositionMode_DestinationOut,
        QPainter::CompositionMode_Plus,     QPainter::CompositionMode_SourceAtop,
        QPainter::CompositionMode_Multiply, QPainter::CompositionMode_Difference,
        QPainter::CompositionMode_Darken,   QPainter::RasterOp_SourceXorDestination,
        QPainter::RasterOp_NotDestination,  QPainter::CompositionMode_Clear};
    return random.OneOf(modes);
}

QTransform SomeTransform(Random& random)
{
    QTransform transform;
    if (random.Chance(40))
        return transform;
    transform.translate(random.Real(-15.0, 30.0), random.Real(-15.0, 30.0));
    if (random.Chance(50))
        transform.rotate(random.Real(-180.0, 180.0));
    if (random.Chance(50))
        transform.scale(random.Real(0.3, 2.0), random.Real(-2.0, 2.0));
    if (random.Chance(20))
        transform.shear(random.Real(-0.5, 0.5), 0.0);
    return transform;
}

void SetSomeClip(Random& random, Twins& twins)
{
    QPainterPath clip;
    if (random.Chance(50))
        clip.addRect(random.Int(0, 30), random.Int(0, 30), random.Int(20, 60), random.Int(20, 60));
    else
        clip.addEllipse(random.Real(0.0, 30.0), random.Real(0.0, 30.0), random.Real(20.0, 60.0),
                        random.Real(20.0, 60.0));
    twins.Both([&](QPainter& painter) { painter.setClipPath(clip); });
}

/// Keeps the background, which is slow to paint, for all cases of one format.
class Background
{
public:
    explicit Background(TXImage::Format format)
        : image(kWidth, kHeight, static_cast<QImage::Format>(static_cast<int>(format)))
    {
        PaintBackground(image);
    }

    const QImage& Image() const { return image; }

    // Both images are being painted on, so that only their bytes may be replaced.
    void PutBack(QImage& target) const
    {
        std::memcpy(target.bits(), image.constBits(), static_cast<std::size_t>(image.sizeInBytes()));
    }

private:
    QImage image;
};

} // namespace

double Random::Coordinate()
{
    const int kind = Int(1, 100);
    if (kind <= 70)
        return Real(-20.0, 110.0);
    if (kind <= 82)
        return Int(-20, 110) + 0.5;
    if (kind <= 90)
        return Int(-20, 110);
    if (kind <= 96)
        return Real(-1.0, 1.0);
    return Real(-1.0, 1.0) * std::pow(10.0, Int(3, 6));
}

double Random::Length()
{
    const int kind = Int(1, 100);
    if (kind <= 85)
        return Real(1.0, 80.0);
    if (kind <= 90)
        return Real(-40.0, 0.0);
    if (kind <= 95)
        return Real(-1.5, 1.5);
    return Real(0.0, 1.0) * std::pow(10.0, Int(2, 5));
}

TXPoint Random::Point()
{
    const double x = Coordinate();
    return {x, Coordinate()};
}

std::vector<TXPoint> Random::Points(int fewest, int most)
{
    std::vector<TXPoint> points(static_cast<std::size_t>(Int(fewest, most)));
    std::generate(points.begin(), points.end(), [this] { return Point(); });
    return points;
}

TXColor Random::Color()
{
    const int red = Int(0, 255);
    const int green = Int(0, 255);
    const int blue = Int(0, 255);
    return {red, green, blue, Chance(50) ? 255 : Int(0, 255)};
}

QPen Random::Pen()
{
    if (Chance(15))
        return QPen(Qt::NoPen);
    constexpr Qt::PenCapStyle caps[] = {Qt::FlatCap, Qt::SquareCap, Qt::RoundCap};
    constexpr Qt::PenJoinStyle joins[] = {Qt::MiterJoin, Qt::BevelJoin, Qt::RoundJoin};
    QPen pen(ToQt(Color()), Chance(40) ? 1.0 : Real(0.2, 8.0));
    pen.setCapStyle(OneOf(caps));
    pen.setJoinStyle(OneOf(joins));
    if (Chance(30))
        pen.setStyle(static_cast<Qt::PenStyle>(Int(2, 5)));
    else if (Chance(10))
        pen.setDashPattern({Real(0.5, 4.0), Real(0.5, 4.0), Real(0.5, 4.0), Real(0.5, 4.0)});
    return pen;
}

QBrush Random::Brush()
{
    const int kind = Int(1, 100);
    if (kind <= 15)
        return Qt::NoBrush;
    if (kind <= 70)
        return ToQt(Color());
    if (kind <= 85)
        return {ToQt(Color()), static_cast<Qt::BrushStyle>(Int(Qt::HorPattern, Qt::CrossPattern))};
    QLinearGradient gradient(ToQt(Point()), ToQt(Point()));
    gradient.setColorAt(0.0, ToQt(Color()));
    gradient.setColorAt(1.0, ToQt(Color()));
    return gradient;
}

void Random::ChangeState(Twins& twins)
{
    const QTransform transform = SomeTransform(*this);
    if (Chance(30))
        SetSomeClip(*this, twins);
    const QPen pen = Pen();
    const QBrush brush = Brush();
    const bool antialiased = Chance(60);
    const double opacity = Chance(70) ? 1.0 : Real(0.0, 1.0);
    const QPainter::CompositionMode mode = Chance(70) ? QPainter::CompositionMode_SourceOver : SomeMode(*this);
    twins.Both(
        [&](QPainter& painter)
        {
            painter.setTransform(transform);
            painter.setPen(pen);
            painter.setBrush(brush);
            painter.setRenderHint(QPainter::Antialiasing, antialiased);
            painter.setOpacity(opacity);
            painter.setCompositionMode(mode);
            if (brush.gradient())
                AvoidUncertainEdges(painter);
        });
}

void AvoidUncertainEdges(QPainter& painter)
{
    if (static_cast<const QImage*>(painter.device())->format() == QImage::Format_ARGB32)
        painter.setRenderHint(QPainter::Antialiasing, false);
}

void ForRandomCases(unsigned seed, int cases, const std::function<void(Random&, Twins&)>& draw)
{
    int drawn = 0;
    for (const TXImage::Format format : {TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied})
    {
        const Background background(format);
        Twins twins(kWidth, kHeight, format);
        for (int i = 0; i < cases / 2; ++i)
        {
            SCOPED_TRACE(::testing::Message() << "format " << format << ", case " << i);
            background.PutBack(twins.Actual());
            background.PutBack(twins.Expected());
            Random random(seed * 100003u + static_cast<unsigned>(i) * 2u + static_cast<unsigned>(format));
            twins.Both([](QPainter& painter) { painter.save(); });
            random.ChangeState(twins);
            draw(random, twins);
            ASSERT_TRUE(twins.SameWithState());
            twins.Both([](QPainter& painter) { painter.restore(); });
            drawn += twins.Expected() != background.Image();
            if (::testing::Test::HasFailure())
                return;
        }
    }
    EXPECT_GE(drawn, cases / 5) << "too few cases drew anything to say much";
}

QPolygonF ToQt(const std::vector<TXPoint>& points)
{
    QPolygonF polygon;
    for (const TXPoint& point : points)
        polygon.append(ToQt(point));
    return polygon;
}

QPointF ToQt(const TXPoint& point) { return {point.x, point.y}; }

QColor ToQt(const TXColor& color) { return {color.getR(), color.getG(), color.getB(), color.getA()}; }
