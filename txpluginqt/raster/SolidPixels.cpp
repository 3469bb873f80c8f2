#include <txpluginqt/raster/SolidPixels.h>

#include <algorithm>

#include <txpluginqt/raster/Bytes255.h>

namespace txqt
{

SolidPixels::SolidPixels(const QSpanData& data, const QRect& area) : area(area)
{
    QRasterBuffer& buffer = *data.rasterBuffer;
    pixels = reinterpret_cast<quint32*>(buffer.buffer());
    stride = buffer.stride<quint32>();
    color = data.solidColor.toArgb32();
}

std::optional<SolidPixels> SolidPixels::For(const RasterTarget& target, const QSpanData& data)
{
    if (data.type != QSpanData::Solid || target.State().composition_mode != QPainter::CompositionMode_SourceOver)
        return std::nullopt;
    const QImage::Format format = data.rasterBuffer->format;
    if (format != QImage::Format_ARGB32_Premultiplied && format != QImage::Format_RGB32)
        return std::nullopt;
    QRect area = target.Device();
    if (const QClipData* const clip = target.Engine().clipData())
    {
        if (!clip->hasRectClip)
            return std::nullopt;
        area &= clip->clipRect;
    }
    return SolidPixels(data, area);
}

void SolidPixels::AddRun(quint32* pixel, int length, quint32 source, uint rest)
{
    if (rest == 0)
    {
        std::fill_n(pixel, length, source);
        return;
    }
    int i = 0;
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    const __m128i sources = _mm_set1_epi32(static_cast<int>(source));
    const __m128i rests = _mm_set1_epi16(static_cast<short>(rest));
    const auto faded = [&](__m128i bytes) { return DividedBy255(_mm_mullo_epi16(bytes, rests)); };
    for (; i + 4 <= length; i += 4)
    {
        auto* const four = reinterpret_cast<__m128i*>(pixel + i);
        const __m128i below = _mm_loadu_si128(four);
        const __m128i rest4 =
            _mm_packus_epi16(faded(_mm_unpacklo_epi8(below, zero)), faded(_mm_unpackhi_epi8(below, zero)));
        _mm_storeu_si128(four, _mm_add_epi32(sources, rest4));
    }
#endif
    for (; i < length; ++i)
        pixel[i] = source + BYTE_MUL(pixel[i], rest);
}

} // namespace txqt
