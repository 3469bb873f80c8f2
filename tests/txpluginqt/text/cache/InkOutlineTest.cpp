// Outlines that are filled in parts, and cached strokes of them, against QPainter's own operations.
#include <functional>

#include <QGuiApplication>
#include <QPainter>
#include <QPicture>

#include <gtest/gtest.h>
#include <tests/support/Drawn.h>
#include <tests/support/ImageCompare.h>
#include <tests/support/Twins.h>
#include <txpluginqt/text/InkOutline.h>

#include <tests/txpluginqt/raster/RandomPaths.h>

using namespace txqt;

namespace
{

constexpr int kWidth = 90;
constexpr int kHeight = 70;

using Change = std::function<void(QPainter&)>;
using Draw = std::function<void(QPainter&)>;

QImage Drawn(QImage::Format format, const Change& change, const Draw& draw)
{
    return ::Drawn(QSize(kWidth, kHeight), format,
                   [&](QPainter& p)
                   {
                       change(p);
                       draw(p);
                   });
}

class InkOutlineTest : public ::testing::Test
{
protected:
    /// Success when both draw the same. Notes whether anything was drawn at all.
    ::testing::AssertionResult Same(const Draw& actual, const Draw& expected, const Change& change,
                                    QImage::Format format = QImage::Format_ARGB32_Premultiplied)
    {
        const QImage directly = Drawn(format, change, expected);
        inked += directly != Drawn(format, change, [](QPainter&) {});
        return SamePixels(Drawn(format, change, actual), directly);
    }

    ::testing::AssertionResult FillsAsPainted(const QPainterPath& path, const QBrush& brush, const Change& change,
                                              QImage::Format format = QImage::Format_ARGB32_Premultiplied)
    {
        const InkOutline outline(path);
        return Same([&](QPainter& p) { outline.Fill(p, brush); }, [&](QPainter& p) { p.fillPath(path, brush); }, change,
                    format);
    }

    ::testing::AssertionResult StrokesAsPainted(const QPainterPath& path, const QPen& pen, const Change& change)
    {
        const InkOutline outline(path);
        return Same([&](QPainter& p) { outline.Stroke(p, pen); }, [&](QPainter& p) { p.strokePath(path, pen); },
                    change);
    }

    /// What a cached stroke fills, where its pen is wider than a device pixel.
    ::testing::AssertionResult CachedStrokeIsAsPainted(const QPainterPath& path, const QPen& pen, const Change& change)
    {
        const InkOutline stroke = InkOutline(path).Stroked(pen);
        return Same([&](QPainter& p) { stroke.Fill(p, pen.brush()); }, [&](QPainter& p) { p.strokePath(path, pen); },
                    change);
    }

    int inked = 0;
};

const Change kUnchanged = [](QPainter&) {};

QPainterPath Boxes(const std::vector<QRectF>& boxes)
{
    QPainterPath path;
    for (const QRectF& box : boxes)
        path.addRect(box);
    return path;
}

TEST_F(InkOutlineTest, FillsRandomPathsAsPainted)
{
    constexpr int kCases = 3000;
    for (int i = 0; i < kCases; ++i)
    {
        RandomPaths random(7000u + static_cast<unsigned>(i));
        const QPainterPath path = random.NextPath();
        const QBrush brush = random.NextBrush();
        const QTransform transform = random.NextTransform();
        const Change state = random.NextState();
        const Change change = [&](QPainter& p)
        {
            state(p);
            p.setTransform(transform);
        };
        constexpr QImage::Format formats[] = {QImage::Format_ARGB32_Premultiplied, QImage::Format_ARGB32,
                                              QImage::Format_RGB32, QImage::Format_RGB16};
        // Edges of gradients are not always the same on pixels that are not premultiplied, whoever paints them.
        if (brush.gradient() && formats[i % 4] != QImage::Format_ARGB32_Premultiplied)
            continue;
        ASSERT_TRUE(FillsAsPainted(path, brush, change, formats[i % 4])) << "case " << i;
    }
    EXPECT_GE(inked, kCases / 2);
}

TEST_F(InkOutlineTest, FillsInEveryCompositionModeAsPainted)
{
    for (int mode = QPainter::CompositionMode_SourceOver; mode <= QPainter::RasterOp_NotDestination; ++mode)
        for (const QColor& color : {QColor(200, 30, 60), QColor(200, 30, 60, 90)})
            for (const double opacity : {1.0, 0.4})
            {
                RandomPaths random(static_cast<unsigned>(mode));
                const QPainterPath path = random.NextPath();
                const Change change = [&](QPainter& p)
                {
                    p.setCompositionMode(static_cast<QPainter::CompositionMode>(mode));
                    p.setOpacity(opacity);
                };
                ASSERT_TRUE(FillsAsPainted(path, color, change)) << "mode " << mode;
            }
}

TEST_F(InkOutlineTest, FillsPartsThatTouchAtEdgesOfPixelsAsPainted)
{
    // Gaps of nothing, of less than the rasteriser can tell, and of more, at every place in a pixel.
    for (const double gap : {0.0, 1e-9, 1.0 / 256, 1.0 / 128, 1.0 / 64, 1.0 / 33, 1.0 / 32, 1.0 / 16, 0.5, 0.99, 1.0})
        for (int place = 0; place <= 128; ++place)
        {
            const double edge = 20.0 + place / 64.0 - 1.0 / 128.0;
            const QPainterPath path =
                Boxes({{5.0, 5.0, edge - 5.0, 9.3}, {edge + gap, 8.0, 9.7, 9.3}, {5.0, 17.3 + gap, 11.0, 4.1}});
            ASSERT_TRUE(FillsAsPainted(path, QColor(200, 30, 60, 90), kUnchanged)) << gap << ' ' << place;
            const QPainterPath mirrored =
                Boxes({{edge + gap, 8.0, 9.7, 9.3}, {5.0, 5.0, edge - 5.0, 9.3}, {5.0, edge + gap, 11.0, 4.1}});
            ASSERT_TRUE(FillsAsPainted(mirrored, QColor(200, 30, 60, 90), kUnchanged)) << gap << ' ' << place;
        }
}

TEST_F(InkOutlineTest, FillsPartsNarrowerThanHalfAPixelAsPainted)
{
    for (const double width : {0.01, 0.1, 0.3, 0.45, 0.5, 0.55, 0.7})
        for (int place = 0; place < 16; ++place)
        {
            const double x = 10.0 + place / 16.0;
            const QPainterPath columns = Boxes({{x, 5.0, width, 30.0}, {x + 8.0, 5.0, width, 30.0}, {50, 5, 20, 30}});
            EXPECT_TRUE(FillsAsPainted(columns, Qt::red, kUnchanged)) << width << ' ' << place;
            const QPainterPath dashes = Boxes({{10.0, x, 6.0, width}, {30.0, x + 4.0, 6.0, width}, {50, 5, 20, 30}});
            ASSERT_TRUE(FillsAsPainted(dashes, Qt::red, kUnchanged)) << width << ' ' << place;
        }
}

TEST_F(InkOutlineTest, FillsPartsThatReachOverAnEdgeOfTheImageByLessThanAPixelAsPainted)
{
    for (int place = -24; place <= 24; ++place)
    {
        const double by = place / 16.0;
        // Over the left, the right, the upper and the lower edge.
        const QPainterPath sides =
            Boxes({{-20.0, 5.0, 20.0 + by, 30.0}, {30.0, 5.0, 9.0, 9.0}, {kWidth - by, 5.0, 20.0, 30.0}});
        EXPECT_TRUE(FillsAsPainted(sides, Qt::red, kUnchanged)) << by;
        const QPainterPath ends =
            Boxes({{5.0, -20.0, 20.0, 20.0 + by}, {35.0, 5.0, 9.0, 9.0}, {60.0, kHeight - by, 20.0, 20.0}});
        ASSERT_TRUE(FillsAsPainted(ends, Qt::red, kUnchanged)) << by;
    }
}

TEST_F(InkOutlineTest, FillsPartsThatReachOverAnEdgeOfTheClipByLessThanAPixelAsPainted)
{
    for (const bool rectangular : {true, false})
        for (int place = -24; place <= 24; ++place)
        {
            const double by = place / 16.0;
            const Change clip = [&](QPainter& p)
            {
                if (rectangular)
                    p.setClipRect(QRect(20, 20, 40, 30));
                else
                    p.setClipRegion(QRegion(20, 20, 40, 30).subtracted(QRegion(36, 20, 3, 4)));
            };
            const QPainterPath sides = Boxes({{10.0, 25.0, 10.0 + by, 12.0},
                                              {22.0 - by, 25.0, 9.0, 9.0},
                                              {40.0, 25.0, 20.0 + by, 12.0},
                                              {63.0 - by, 25.0, 5.0, 12.0}});
            EXPECT_TRUE(FillsAsPainted(sides, QColor(255, 0, 0, 120), clip)) << by;
            const QPainterPath ends = Boxes({{22.0, 10.0, 6.0, 10.0 + by},
                                             {30.0, 20.0 - by, 6.0, 9.0},
                                             {38.0, 38.0, 6.0, 12.0 + by},
                                             {46.0, 50.0 - by, 6.0, 5.0}});
            ASSERT_TRUE(FillsAsPainted(ends, QColor(255, 0, 0, 120), clip)) << by;
        }
}

TEST_F(InkOutlineTest, FillsContoursInAnyOrderAsPainted)
{
    // From the right to the left, outside in, inside out, and back to where a part was before.
    const QRectF left(5.0, 5.0, 15.3, 20.0);
    const QRectF middle(30.2, 5.0, 15.3, 20.0);
    const QRectF right(55.0, 5.0, 15.3, 20.0);
    const QRectF around(2.0, 2.0, 80.0, 40.0);
    const QRectF within(33.0, 8.0, 5.0, 5.0);
    std::vector<QRectF> boxes{left, middle, right, around, within};
    const auto before = [](const QRectF& a, const QRectF& b)
    { return std::make_pair(a.x(), a.y()) < std::make_pair(b.x(), b.y()); };
    std::sort(boxes.begin(), boxes.end(), before);
    do
        for (const Qt::FillRule rule : {Qt::OddEvenFill, Qt::WindingFill})
            for (const std::size_t number : {std::size_t(3), std::size_t(4), boxes.size()})
            {
                QPainterPath path = Boxes({boxes.begin(), boxes.begin() + static_cast<std::ptrdiff_t>(number)});
                path.setFillRule(rule);
                ASSERT_TRUE(FillsAsPainted(path, QColor(10, 200, 60, 120), kUnchanged));
            }
    while (std::next_permutation(boxes.begin(), boxes.end(), before));
}

TEST_F(InkOutlineTest, FillsManyAndHugeAndDegeneratePathsAsPainted)
{
    QPainterPath many;
    for (int i = 0; i < 700; ++i)
        many.addRect(i % 35 * 2.5, i / 35 * 3.3, 1.7, 2.1);
    ASSERT_TRUE(FillsAsPainted(many, QColor(10, 200, 60, 120), kUnchanged));
    for (const int count : {2, 255, 256, 257})
    {
        QPainterPath row;
        for (int i = 0; i < count; ++i)
            row.addRect(i * 0.3, 5.0 + i % 7 * 4.0, 0.2, 3.0);
        ASSERT_TRUE(FillsAsPainted(row, QColor(10, 200, 60, 120), kUnchanged)) << count;
    }
    for (const double far : {1000.0, 15999.0, 16001.0, 32000.0, 40000.0, 1e6, 1e9})
        for (const QPointF& towards : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1), QPointF(-1, -1)})
        {
            QPainterPath path;
            path.addEllipse(20, 20, 10, 10);
            path.addEllipse(towards * far, 300, 300);
            path.addEllipse(40, 20, 10, 10);
            ASSERT_TRUE(FillsAsPainted(path, Qt::blue, kUnchanged)) << far;
        }
    QPainterPath degenerate;
    ASSERT_TRUE(FillsAsPainted(degenerate, Qt::red, kUnchanged));
    degenerate.moveTo(5, 5);
    ASSERT_TRUE(FillsAsPainted(degenerate, Qt::red, kUnchanged));
    degenerate.lineTo(40, 5);
    degenerate.moveTo(50, 50);
    degenerate.moveTo(60, 50);
    degenerate.lineTo(60, 50);
    degenerate.moveTo(70, 30);
    degenerate.cubicTo(70, 30, 80, 60, 85, 30);
    degenerate.moveTo(1, 1);
    ASSERT_TRUE(FillsAsPainted(degenerate, Qt::red, kUnchanged));
}

TEST_F(InkOutlineTest, FillsWhatIsNearWhenOtherPartsAreTooFarAsPainted)
{
    // Qt makes lines of all curves of an outline that it has to clip.
    for (unsigned i = 0; i < 120; ++i)
        for (const QPointF& far : {QPointF(33000, 10), QPointF(-70000, 10), QPointF(10, 33000), QPointF(10, -70000)})
            for (const bool first : {true, false})
            {
                RandomPaths random(i);
                QPainterPath near = random.NextLetters();
                near.addEllipse(QRectF(random.Real(0, 40), random.Real(20, 40), 40.3, 27.1));
                QPainterPath path;
                if (first)
                    path.addEllipse(far, 500, 400);
                path.addPath(near);
                if (!first)
                    path.addEllipse(far, 500, 400);
                ASSERT_TRUE(FillsAsPainted(path, QColor(10, 200, 60, 120), kUnchanged)) << i;
            }
}

TEST_F(InkOutlineTest, FillsOnDevicesThatHaveNoPixelsAsPainted)
{
    for (unsigned i = 0; i < 60; ++i)
    {
        RandomPaths random(i);
        const QPainterPath path = random.NextPath();
        const QBrush brush = random.NextBrush();
        const auto recorded = [&](const Draw& draw)
        {
            QPicture picture;
            QPainter painter(&picture);
            painter.setRenderHint(QPainter::Antialiasing);
            draw(painter);
            painter.end();
            return QByteArray(picture.data(), static_cast<int>(picture.size()));
        };
        const InkOutline outline(path);
        EXPECT_EQ(recorded([&](QPainter& p) { outline.Fill(p, brush); }),
                  recorded([&](QPainter& p) { p.fillPath(path, brush); }))
            << i;
        const QPen pen(brush, 3.0);
        EXPECT_EQ(recorded([&](QPainter& p) { outline.Stroke(p, pen); }),
                  recorded([&](QPainter& p) { p.strokePath(path, pen); }))
            << i;
    }
}

TEST_F(InkOutlineTest, StrokesRandomPathsAsPainted)
{
    constexpr int kCases = 1500;
    for (int i = 0; i < kCases; ++i)
    {
        RandomPaths random(9000u + static_cast<unsigned>(i));
        const QPainterPath path = random.NextPath();
        const QPen pen(random.NextBrush(), random.Real(0.0, 12.0));
        const QTransform transform = random.NextTransform();
        const Change state = random.NextState();
        ASSERT_TRUE(StrokesAsPainted(path, pen,
                                     [&](QPainter& p)
                                     {
                                         state(p);
                                         p.setTransform(transform);
                                     }))
            << "case " << i;
    }
    EXPECT_GE(inked, kCases / 2);
}

TEST_F(InkOutlineTest, CachedStrokesOfLettersAreAsPainted)
{
    constexpr int kCases = 1200;
    for (int i = 0; i < kCases; ++i)
    {
        RandomPaths random(11000u + static_cast<unsigned>(i));
        const QPainterPath path = random.NextLetters();
        const QTransform transform = random.NextTransform();
        const double scale =
            std::min(std::hypot(transform.m11(), transform.m12()), std::hypot(transform.m21(), transform.m22()));
        const QPen pen(random.NextBrush(), std::max(1.0 * random.Int(1, 40), 2.0 / scale));
        const Change state = random.NextState();
        ASSERT_TRUE(CachedStrokeIsAsPainted(path, pen,
                                            [&](QPainter& p)
                                            {
                                                state(p);
                                                p.setRenderHint(QPainter::Antialiasing);
                                                p.setTransform(transform);
                                            }))
            << "case " << i;
    }
    EXPECT_GE(inked, kCases / 2);
}

TEST_F(InkOutlineTest, TellsHowMuchMemoryItTakes)
{
    QPainterPath path;
    for (int i = 0; i < 50; ++i)
        path.addEllipse(i * 20.0, 0.0, 10.0, 10.0);
    const std::size_t elements = static_cast<std::size_t>(path.elementCount());
    const std::size_t perElement = sizeof(QPointF) + sizeof(QPainterPath::ElementType);
    std::size_t flat = 0;
    for (const QPolygonF& polygon : path.toSubpathPolygons())
        flat += static_cast<std::size_t>(polygon.size());
    EXPECT_GE(InkOutline(path).Bytes(), elements * perElement + flat / 2 * perElement);
    EXPECT_LE(InkOutline(path).Bytes(), elements * perElement + flat * 4 * perElement);
    QPainterPath lines;
    for (int i = 0; i < 50; ++i)
        lines.addRect(i * 20.0, 0.0, 10.0, 10.0);
    const std::size_t corners = static_cast<std::size_t>(lines.elementCount());
    EXPECT_GE(InkOutline(lines).Bytes(), corners * perElement);
    EXPECT_LE(InkOutline(lines).Bytes(), corners * perElement + 1000);
}

} // namespace
