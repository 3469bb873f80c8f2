// What the rasteriser does at the limits of its numbers, of Qt's and of a thread's life, against QPainter.
#include <cmath>
#include <functional>
#include <thread>
#include <vector>

#include <QPainter>
#include <QPainterPath>

#include <gtest/gtest.h>
#include <tests/support/Drawn.h>
#include <tests/support/ImageCompare.h>
#include <tests/support/RandomSource.h>
#include <txpluginqt/raster/Drawing.h>
#include <txpluginqt/raster/Eligibility.h>
#include <txpluginqt/raster/OutlineFill.h>

using namespace txqt;

namespace
{

using Change = std::function<void(QPainter&)>;

/// Draws by QPainter and by the rasteriser, each on the same background.
::testing::AssertionResult DrawnAlike(const QSize& size, const Change& change, const Change& directly,
                                      const Change& rasterized)
{
    constexpr QImage::Format format = QImage::Format_ARGB32_Premultiplied;
    const auto drawn = [&](const Change& draw)
    {
        return Drawn(size, format,
                     [&](QPainter& painter)
                     {
                         change(painter);
                         draw(painter);
                     });
    };
    return SamePixels(drawn(rasterized), drawn(directly));
}

::testing::AssertionResult PathDrawnAlike(const QSize& size, const QPainterPath& path, const Change& change)
{
    return DrawnAlike(
        size, change, [&](QPainter& painter) { painter.drawPath(path); },
        [&](QPainter& painter) { DrawPath(painter, path); });
}

::testing::AssertionResult PolygonDrawnAlike(const QSize& size, const std::vector<QPointF>& points, Qt::FillRule rule,
                                             const Change& change)
{
    const auto count = static_cast<int>(points.size());
    return DrawnAlike(
        size, change, [&](QPainter& painter) { painter.drawPolygon(points.data(), count, rule); },
        [&](QPainter& painter) { DrawPolygon(painter, points.data(), count, rule); });
}

void Fill(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(200, 30, 60, 130));
}

void AddBoxes(QPainterPath& path, int count, double left, double right)
{
    for (int i = 0; i < count; ++i)
        path.addPolygon(QPolygonF({QPointF(left, 2.0), QPointF(left, 9.0), QPointF(right, 9.0), QPointF(right, 2.0)}));
}

TEST(RasterLimitsTest, SidesMayLieOnThoseOfPixels)
{
    // A house whose walls, ground and tip lie on sides of pixels, inside the picture or on its border.
    for (const double left : {-2.0, 0.0, 3.0, 4.5})
        for (const double top : {-1.0, 0.0, 2.0, 3.5})
            for (const double width : {1.0, 4.0, 8.0})
                for (const Qt::FillRule rule : {Qt::WindingFill, Qt::OddEvenFill})
                {
                    const double right = left + width;
                    const std::vector<QPointF> house = {{left, top + 3.0},
                                                        {(left + right) / 2, top},
                                                        {right, top + 3.0},
                                                        {right, top + 9.0},
                                                        {left, top + 9.0}};
                    std::vector<QPointF> mirrored(house.rbegin(), house.rend());
                    for (const std::vector<QPointF>& points : {house, mirrored})
                        EXPECT_TRUE(PolygonDrawnAlike(QSize(12, 12), points, rule, Fill))
                            << left << ", " << top << ", " << width;
                }
}

TEST(RasterLimitsTest, AreasBeyond32BitsThatCancelOutAreExact)
{
    QPainterPath small;
    small.addEllipse(QRectF(1.3, 1.2, 9.0, 8.5));
    EXPECT_TRUE(PathDrawnAlike(QSize(12, 12), small, Fill));
    const std::size_t cells = LastFillWork().cells;
    // The crossings of the pixels at 5 leave little, though their sums are beyond what 32 bits hold.
    constexpr double kNearlyRight = 5.0 + 63.0 / 64.0;
    for (const Qt::FillRule rule : {Qt::WindingFill, Qt::OddEvenFill})
        for (const int more : {-50, -3, 0, 7, 25, 40})
        {
            QPainterPath path;
            path.setFillRule(rule);
            AddBoxes(path, 300 * 64 + more, kNearlyRight, 9.0);
            AddBoxes(path, 300, 9.0, 5.0);
            EXPECT_TRUE(PathDrawnAlike(QSize(12, 12), path, Fill)) << rule << ' ' << more;
            // Nothing of it is left behind, and the next shape is not added up twice.
            EXPECT_TRUE(PathDrawnAlike(QSize(12, 12), small, Fill)) << rule << ' ' << more;
            EXPECT_EQ(LastFillWork().cells, cells);
        }
}

TEST(RasterLimitsTest, PolygonsThatQtSplitsAreDrawnAsItDoes)
{
    for (const int count : {65535, 65536, 70001})
        for (const Qt::FillRule rule : {Qt::OddEvenFill, Qt::WindingFill})
        {
            RandomSource random(static_cast<unsigned>(count));
            std::vector<QPointF> points;
            for (int i = 0; i < count; ++i)
                points.emplace_back(random.Real(1.0, 29.0), random.Real(1.0, 19.0));
            EXPECT_TRUE(PolygonDrawnAlike(QSize(30, 20), points, rule, Fill)) << count << ' ' << rule;
        }
}

TEST(RasterLimitsTest, PolygonsOfFewPointsAreDrawnAsQtDoes)
{
    const std::vector<QPointF> points = {{3.5, 4.5}, {14.0, 9.0}};
    const auto outlined = [](QPainter& painter)
    {
        painter.setPen(QPen(QColor(20, 60, 160, 120), 5.0, Qt::SolidLine, Qt::RoundCap));
        painter.setBrush(Qt::red);
    };
    for (const int count : {0, 1, 2})
    {
        EXPECT_TRUE(DrawnAlike(
            QSize(20, 20), outlined, [&](QPainter& painter) { painter.drawPolygon(points.data(), count); },
            [&](QPainter& painter) { DrawPolygon(painter, points.data(), count, Qt::OddEvenFill); }))
            << count;
        EXPECT_TRUE(DrawnAlike(
            QSize(20, 20), outlined, [&](QPainter& painter) { painter.drawPolyline(points.data(), count); },
            [&](QPainter& painter) { DrawPolyline(painter, points.data(), count); }))
            << count;
    }
}

TEST(RasterLimitsTest, ShapesBeyondWhatQtRasterizesAreClippedAsItDoes)
{
    // Which of the ends lies just within or just beyond a limit.
    struct Reach
    {
        double low;
        double high;
    };
    constexpr Reach reaches[] = {{0.0, 32766.0},      {0.0, 32767.0},      {0.0, 32767.25},     {0.0, 32768.0},
                                 {-32766.0, 0.0},     {-32767.0, 0.0},     {-32767.25, 0.0},    {-32768.0, 0.0},
                                 {-100.0, 32667.0},   {-100.0, 32667.5},   {-100.0, 32668.0},   {-16000.0, 16767.0},
                                 {-16000.0, 16767.5}, {-16000.0, 16768.0}, {-30000.0, 10000.0}, {40.0, 60000.0},
                                 {-70000.0, 20.0}};
    RandomSource random(3);
    for (const Reach& reach : reaches)
        for (int i = 0; i < 60; ++i)
        {
            const bool wide = i % 2 == 0;
            std::vector<QPointF> points;
            for (int k = 0; k < 6; ++k)
            {
                const double along = k == 0 ? reach.low : k == 3 ? reach.high : random.Real(0.0, 60.0);
                const double across = random.Real(-20.0, 80.0);
                points.push_back(wide ? QPointF(along, across) : QPointF(across, along));
            }
            EXPECT_TRUE(PolygonDrawnAlike(QSize(60, 60), points, Qt::OddEvenFill, Fill))
                << reach.low << " to " << reach.high << ", " << i;
        }
}

TEST(RasterLimitsTest, ShapesUpToWhatQtRasterizesAreRasterized)
{
    QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    Fill(painter);
    const auto edges = [&](double low, double high)
    {
        const QPointF none[] = {{-9.0, -9.0}, {-8.0, -7.0}, {-7.0, -9.0}};
        DrawPolygon(painter, none, 3, Qt::OddEvenFill);
        EXPECT_EQ(LastFillWork().edges, 0U);
        const QPointF points[] = {{low, 2.0}, {high, 3.0}, {low, 7.0}};
        DrawPolygon(painter, points, 3, Qt::OddEvenFill);
        return LastFillWork().edges;
    };
    EXPECT_EQ(edges(0.0, 32767.0), 3U);
    EXPECT_EQ(edges(0.0, 32767.1), 0U);
    EXPECT_EQ(edges(-32766.5, 0.5), 3U);
    EXPECT_EQ(edges(-32766.5, 0.6), 0U);
    EXPECT_EQ(edges(-10000.0, 22767.0), 3U);
    EXPECT_EQ(edges(-10000.0, 22767.1), 0U);
}

/// Draws from a destructor, when the objects of a thread go.
struct DrawsAtTheEnd
{
    ~DrawsAtTheEnd()
    {
        QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        Fill(painter);
        *why = WhyNotRasterized(painter);
        DrawEllipse(painter, QRect(2, 3, 12, 13));
    }

    Refusal* why;
};

enum class Creation
{
    BeforeTheEngine,
    BeforeTheCells,
    AfterAll
};

/// Why nothing is rasterised when an object draws that was made at some time in the life of a thread.
Refusal AtTheEndOfAThread(Creation creation)
{
    Refusal why = Refusal::None;
    const auto draw = [&]
    {
        QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        Fill(painter);
        const auto last = [&] { thread_local const DrawsAtTheEnd object{&why}; };
        if (creation == Creation::BeforeTheEngine)
            last();
        // Makes the engine, but no cells: the shape is not a number.
        const QPointF nowhere[] = {{1.0, 2.0}, {std::nan(""), 7.0}, {8.0, 5.0}};
        DrawPolygon(painter, nowhere, 3, Qt::OddEvenFill);
        if (creation == Creation::BeforeTheCells)
            last();
        DrawEllipse(painter, QRect(2, 3, 12, 13));
        if (creation == Creation::AfterAll)
            last();
    };
    std::thread(draw).join();
    return why;
}

TEST(RasterLimitsTest, OnceAThreadsObjectsGoQtDraws)
{
    EXPECT_EQ(AtTheEndOfAThread(Creation::BeforeTheEngine), Refusal::ThreadEnds);
    EXPECT_EQ(AtTheEndOfAThread(Creation::BeforeTheCells), Refusal::ThreadEnds);
    EXPECT_EQ(AtTheEndOfAThread(Creation::AfterAll), Refusal::None);
}

} // namespace
