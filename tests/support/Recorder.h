#pragma once

#include <iosfwd>
#include <vector>

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

/// A call that reached a paint engine, and what it was made with.
struct RecordedCall
{
    bool isText = false;
    int mode = 0; ///< of the polygon
    std::vector<QPointF> points;
    std::vector<int> kinds; ///< of a path's elements
    QString text;
    QFont font;
    QPen pen;
    QBrush brush;
    QTransform transform;
    QPainter::RenderHints hints;

    friend bool operator==(const RecordedCall& left, const RecordedCall& right);
};

std::ostream& operator<<(std::ostream& out, const RecordedCall& call);

/// A device that records what a picture does not show: transforms that differ by less than a pixel, modes and hints,
/// and in how many calls a picture was made.
class Recorder : public QPaintDevice
{
public:
    QPaintEngine* paintEngine() const override { return &engine; }
    const std::vector<RecordedCall>& Calls() const { return engine.calls; }

protected:
    int metric(PaintDeviceMetric wanted) const override;

private:
    class Engine final : public QPaintEngine
    {
    public:
        Engine() : QPaintEngine(AllFeatures) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        Type type() const override { return User; }
        void updateState(const QPaintEngineState&) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawPath(const QPainterPath& path) override;
        using QPaintEngine::drawPolygon;
        void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override;
        void drawTextItem(const QPointF& position, const QTextItem& item) override;

        std::vector<RecordedCall> calls;

    private:
        RecordedCall& NewCall();
    };

    mutable Engine engine;
};
