#include <tests/support/ImageCompare.h>

#include "RecordingTest.h"
#include "Rings.h"

using namespace TZObjects;

namespace
{

/// The paint engine of a picture knows whole paths only, so that the rings have to be drawn as one.
class PolyPolygonPictureTest : public RecordingTest
{
protected:
    /// Success when both pictures replay to the same pixels. Ends both recordings.
    ::testing::AssertionResult SameReplay()
    {
        End();
        return SamePixels(Replay(recorded), Replay(direct));
    }

    static QImage Replay(QPicture& picture)
    {
        QImage image(160, 120, QImage::Format_ARGB32_Premultiplied);
        image.fill(QColor(200, 220, 240));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        EXPECT_TRUE(picture.play(&painter));
        return image;
    }

    /// The shape as closed polygons in one path.
    static QPainterPath ShapeOf(const Rings& rings)
    {
        QPainterPath path;
        int first = 0;
        for (const int count : rings.counts)
        {
            QPolygonF polygon;
            for (int i = 0; i < count; ++i)
                polygon.append(ToQt(rings.points[static_cast<std::size_t>(first + i)]));
            if (count > 0)
                path.addPolygon(polygon);
            first += std::max(count, 0);
        }
        return path;
    }
};

const Rings kFrame = {{{20, 20}, {120, 20}, {120, 100}, {20, 100}, {20, 20}}, {{50, 40}, {90, 40}, {90, 80}, {50, 80}}};

TEST_F(PolyPolygonPictureTest, IsOneShapeOfAllRings)
{
    Random random(8);
    for (int i = 0; i < 300; ++i)
    {
        const Rings rings = SomeRings(random);
        const QPen pen = random.Pen();
        const QBrush brush = random.Brush();
        for (QPainter* const painter : {&recording, &directly})
        {
            painter->setPen(pen);
            painter->setBrush(brush);
        }
        EXPECT_TRUE(rings.Draw(*surface));
        directly.drawPath(ShapeOf(rings));
    }
    EXPECT_TRUE(SameReplay());
    EXPECT_EQ(QByteArray(recorded.data(), static_cast<int>(recorded.size())),
              QByteArray(direct.data(), static_cast<int>(direct.size())));
}

TEST_F(PolyPolygonPictureTest, EachShapeReplaysAlike)
{
    for (unsigned i = 0; i < 60; ++i)
    {
        Random random(900 + i);
        const Rings rings = SomeRings(random);
        QPicture picture;
        QPainter painter(&picture);
        surface->Attach(&painter);
        painter.setBrush(random.Brush());
        painter.setPen(random.Pen());
        EXPECT_TRUE(rings.Draw(*surface));
        const QBrush brush = painter.brush();
        const QPen pen = painter.pen();
        surface->Detach();
        painter.end();

        QPicture expected;
        painter.begin(&expected);
        painter.setBrush(brush);
        painter.setPen(pen);
        painter.drawPath(ShapeOf(rings));
        painter.end();
        ASSERT_TRUE(SamePixels(Replay(picture), Replay(expected))) << i;
    }
}

TEST_F(PolyPolygonPictureTest, InnerRingIsAHoleAndAnOpenRingIsOutlinedAsGiven)
{
    EXPECT_TRUE(kFrame.Draw(*surface));
    directly.drawPath(ShapeOf(kFrame));
    ASSERT_TRUE(SameReplay());
    const QImage image = Replay(recorded);
    EXPECT_EQ(image.pixel(70, 60), image.pixel(0, 0));
    EXPECT_EQ(image.pixel(50, 60), image.pixel(0, 0)) << "the inner ring was closed, though it was not given so";
    EXPECT_NE(image.pixel(20, 60), image.pixel(30, 60));
    EXPECT_NE(image.pixel(30, 60), image.pixel(0, 0));
}

TEST_F(PolyPolygonPictureTest, GradientFillsTheShapeAndStays)
{
    for (unsigned i = 0; i < 300; ++i)
    {
        Random random(2000 + i);
        const Rings rings = SomeRings(random);
        const TXGraphics::stGradientParams gradient = SomeGradient(random);
        const QPainterPath shape = ShapeOf(rings);
        EXPECT_TRUE(rings.Draw(*surface, gradient));
        directly.setPen(Qt::NoPen);
        directly.setBrush(GradientBrush(shape.boundingRect(), gradient));
        directly.drawPath(shape);
        ASSERT_EQ(recording.pen(), directly.pen()) << i;
        ASSERT_EQ(recording.brush(), directly.brush()) << i;
    }
    EXPECT_TRUE(SameReplay());
    EXPECT_EQ(QByteArray(recorded.data(), static_cast<int>(recorded.size())),
              QByteArray(direct.data(), static_cast<int>(direct.size())));
}

TEST_F(PolyPolygonPictureTest, SkipsRingsWithoutPoints)
{
    Rings gaps = kFrame;
    gaps.counts = {0, 5, -4, 0, 4};
    EXPECT_TRUE(gaps.Draw(*surface));
    directly.drawPath(ShapeOf(kFrame));
    EXPECT_TRUE(SameReplay());
}

TEST_F(PolyPolygonPictureTest, IsRefusedWithoutRings)
{
    const TXGraphics::stGradientParams gradient;
    EXPECT_FALSE(surface->PolyPolygon(nullptr, kFrame.counts.data(), 2));
    EXPECT_FALSE(surface->PolyPolygon(kFrame.points.data(), nullptr, 2));
    EXPECT_FALSE(surface->PolyPolygon(kFrame.points.data(), kFrame.counts.data(), 0));
    EXPECT_FALSE(surface->PolyPolygon(nullptr, kFrame.counts.data(), 2, gradient));
    EXPECT_FALSE(surface->PolyPolygon(kFrame.points.data(), nullptr, 2, gradient));
    EXPECT_FALSE(surface->PolyPolygon(kFrame.points.data(), kFrame.counts.data(), -3, gradient));
    EXPECT_EQ(recording.pen(), directly.pen());
    EXPECT_EQ(recording.brush(), directly.brush());
    EXPECT_TRUE(SameReplay());
}

} // namespace
