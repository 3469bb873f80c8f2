#pragma once

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QTransform>

#include <private/qvectorpath_p.h>

#include <txpluginqt/raster/RasterTarget.h>

namespace txqt
{

/// Draws antialiased lines of at most one pixel in one colour, straight into pixels of 32 bits, with the arithmetic of
/// Qt's stroker for such lines.
class Hairline
{
public:
    /// True when the painter's current pen draws such lines on this target. The pen must have been prepared for it.
    static bool Applies(const RasterTarget& target);

    explicit Hairline(const RasterTarget& target);
    void Draw(const QVectorPath& path);

private:
    enum Caps
    {
        NoCaps = 0,
        CapBegin = 1,
        CapEnd = 2
    };

    /// Where a line is in 1/64 of a pixel along its longer side, and in 1/65536 across it.
    struct Course;

    void DrawSubpath(const QPointF* points, const QPainterPath::ElementType* kinds, int count, bool closes);
    void DrawCurve(QPointF* curve, int level, int caps);
    void DrawLine(QPointF from, QPointF to, int caps);
    bool ClipLine(QPointF& from, QPointF& to) const;
    template <bool IsSteep, bool IsInside>
    void DrawPixels(const Course& course);

    QTransform transform;
    QRect clip;        ///< Pixels elsewhere are left alone.
    double left = 0.0; ///< Lines are cut at the edges of the device, a little outside.
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    quint32* pixels = nullptr;
    std::ptrdiff_t stride = 0; ///< Pixels in a row.
    quint32 color = 0;         ///< Premultiplied.
    int coverageScale = 256;   ///< In 1/256.
    bool drawsCaps = false;
};

} // namespace txqt
