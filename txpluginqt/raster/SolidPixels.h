#pragma once

#include <optional>

#include <QRect>

#include <private/qdrawhelper_p.h>

#include <txpluginqt/raster/RasterTarget.h>

namespace txqt
{

/// Blends one colour straight into pixels of 32 bits, as Qt's functions do for spans: premultiplied ARGB and RGB,
/// source over destination. Nothing depends on where spans begin then, so none are gathered.
class SolidPixels
{
public:
    /// Empty where a brush needs Qt's functions.
    static std::optional<SolidPixels> For(const RasterTarget& target, const QSpanData& data);

    /// The pixels that may be touched: those of the device within a clip that is a rectangle.
    const QRect& Area() const { return area; }

    void Add(int x, int y, int length, int coverage)
    {
        quint32* const pixel = pixels + y * stride + x;
        const quint32 source = BYTE_MUL(color, static_cast<uint>(coverage));
        const auto rest = static_cast<uint>(qAlpha(~source));
        if (length > kShort)
            AddRun(pixel, length, source, rest);
        else
            for (int i = 0; i < length; ++i)
                pixel[i] = source + BYTE_MUL(pixel[i], rest);
    }
    void Flush() {}

private:
    static constexpr int kShort = 8;

    SolidPixels(const QSpanData& data, const QRect& area);
    static void AddRun(quint32* pixel, int length, quint32 source, uint rest);

    QRect area;
    quint32* pixels;
    std::ptrdiff_t stride; ///< Pixels in a row.
    quint32 color;         ///< Premultiplied.
};

} // namespace txqt
