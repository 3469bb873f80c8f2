// Qt and cairo on the same pixels: each call's output lands on what was there before it.
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

#include "ShortLabel.h"
#include <tests/support/PainterState.h>

using namespace TZObjects;

namespace
{

/// Counts whatever a painter asks it to do.
class CountingEngine : public QPaintEngine
{
public:
    CountingEngine() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override { ++drawn; }
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override { ++drawn; }
    void drawPath(const QPainterPath&) override { ++drawn; }
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override { ++drawn; }
    void drawTextItem(const QPointF&, const QTextItem&) override { ++drawn; }
    void drawRects(const QRectF*, int) override { ++drawn; }
    void drawLines(const QLineF*, int) override { ++drawn; }
    Type type() const override { return User; }

    int drawn = 0;
};

class CountingDevice : public QPaintDevice
{
public:
    QPaintEngine* paintEngine() const override { return &engine; }
    int Drawn() const { return engine.drawn; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric)
        {
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        default:
            return 200;
        }
    }

private:
    mutable CountingEngine engine;
};

class Order : public QuietTest
{
};

TEST_F(Order, OfQtAndCairoIsTheOrderOfTheCalls)
{
    for (const auto format : {TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied})
    {
        Look look;
        look.halo = true;
        look.haloWidth = 6;
        look.pen = TXColor(20, 60, 140, 160);
        CairoTwins twins(look, format);
        QPainter direct(&twins.Expected());
        const auto both = [&](auto paint)
        {
            paint(twins.SurfacePainter());
            paint(direct);
        };
        ShortLabel call;
        call.text = L"Order\nof calls";
        for (int i = 0; i < 6; ++i)
        {
            both([&](QPainter& p) { p.fillRect(QRect(20 + 9 * i, 25, 70, 60), QColor(230, 90, 40 * i, 170)); });
            call.x = 25 + i * 10;
            call.angle = i * 11;
            EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, call));
            DrawDirectly(twins.Direct(), Entry::StringAt, call, look);
            both([&](QPainter& p) { p.fillRect(QRect(10, 30 + 8 * i, 150, 5), QColor(40 * i, 200, 60, 190)); });
            EXPECT_TRUE(::Draw(twins.Surface(), Entry::VerticalAt, call));
            DrawDirectly(twins.Direct(), Entry::VerticalAt, call, look);
            EXPECT_TRUE(twins.SameAndInked()) << "round " << i << ", format " << format;
        }
    }
}

TEST_F(Order, SurfaceShapesAndLabelsMeetOnTheSamePixels)
{
    CairoTwins twins;
    QPainter direct(&twins.Expected());
    direct.setRenderHints(twins.SurfacePainter().renderHints());
    direct.setPen(twins.SurfacePainter().pen());
    ShortLabel call;

    EXPECT_TRUE(twins.Surface().Line(10, 60, 150, 40));
    direct.drawLine(QPointF(10, 60), QPointF(150, 40));
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, call));
    DrawDirectly(twins.Direct(), Entry::StringAt, call, Look());
    EXPECT_TRUE(twins.Surface().Line(10, 30, 150, 55));
    direct.drawLine(QPointF(10, 30), QPointF(150, 55));
    EXPECT_TRUE(twins.SameAndInked());

    EXPECT_TRUE(twins.Surface().ClearWithColor(TXColor(10, 20, 30, 255)));
    twins.Expected().fill(QColor(10, 20, 30, 255));
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, call));
    DrawDirectly(twins.Direct(), Entry::StringAt, call, Look());
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(Order, PainterIsNotUsedAndNotChanged)
{
    CairoTwins twins;
    CountingDevice device;
    QPainter outside(&device);
    outside.setPen(QPen(Qt::red, 7));
    outside.setOpacity(0.5);
    outside.translate(3, 4);
    twins.Surface().Attach(&outside);
    const PainterState before(outside);
    ShortLabel call;
    call.text = L"<BOL>Two</BOL>\nlines";
    call.halo = true;
    for (const Entry entry : kAllEntries)
    {
        twins.Wipe();
        EXPECT_TRUE(::Draw(twins.Surface(), entry, call)) << entry;
        DrawDirectly(twins.Direct(), entry, call, Look());
        EXPECT_TRUE(twins.SameAndInked()) << entry;
    }
    EXPECT_EQ(device.Drawn(), 0);
    EXPECT_TRUE(SameState(PainterState(outside), before));

    // With cairo off the same painter draws the same label.
    twins.Surface().EnableCairoDrawing(false);
    EXPECT_TRUE(::Draw(twins.Surface(), Entry::StringAt, call));
    EXPECT_GT(device.Drawn(), 0);
    twins.Surface().Detach();
}

} // namespace
