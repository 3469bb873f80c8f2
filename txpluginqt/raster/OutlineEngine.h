#pragma once

#include <private/qpaintengineex_p.h>
#include <private/qvectorpath_p.h>

#include <txpluginqt/raster/FixedOutline.h>
#include <txpluginqt/raster/FlatOutline.h>
#include <txpluginqt/raster/RasterTarget.h>
#include <txpluginqt/raster/Stroker.h>
#include <txpluginqt/raster/ThreadEnd.h>

namespace txqt
{

/// A paint engine that stands in for Qt's raster engine where outlines are filled and stroked. It shares the painter's
/// state with the raster engine and gives the same pixels. What it cannot do goes to the raster engine.
///
/// Qt's own base class makes the outlines of ellipses and of dashes, and hands them to `fill`.
class OutlineEngine final : public QPaintEngineEx
{
public:
    /// The thread's engine, ready to draw in place of @p raster until the painter's state changes.
    static OutlineEngine& For(QRasterPaintEngine& raster);

    void fill(const QVectorPath& path, const QBrush& brush) override;
    void stroke(const QVectorPath& path, const QPen& pen) override;
    void drawPoints(const QPointF* points, int count) override;
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override;
    void transformChanged() override;

    // None of these is ever called: the painter's own engine holds the state, and only outlines are drawn here.
    bool begin(QPaintDevice*) override { return false; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void clip(const QVectorPath&, Qt::ClipOperation) override {}
    void clipEnabledChanged() override {}
    void penChanged() override {}
    void brushChanged() override {}
    void brushOriginChanged() override {}
    void opacityChanged() override {}
    void compositionModeChanged() override {}
    void renderHintsChanged() override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {}

private:
    /// Fills with Qt's blending functions. @return false when Qt would clip the outline first; nothing is drawn then.
    bool FillWith(QSpanData& data, const QVectorPath& path);
    bool FillPolygon(QSpanData& data, const QPointF* points, int count, Qt::FillRule rule);
    template <class Bounds>
    void FillCells(QSpanData& data, Qt::FillRule rule, Bounds bounds);
    bool SetOutline(const QVectorPath& path);
    void StrokeHairline(const QVectorPath& path, const QPen& pen);
    void StrokeOutline(const QVectorPath& path, const QPen& pen);
    void StrokeByQt(const QVectorPath& path, const QPen& pen);
    void ReleaseLarge();

    ThreadEndMark threadEnd;
    QRasterPaintEngine* raster = nullptr;
    QSpanData* strokeData = nullptr; ///< What the outline of a stroke is filled with, if not with its brush.
    FixedOutline outline;
    Stroker stroker;
    FlatOutline flat;
};

} // namespace txqt
