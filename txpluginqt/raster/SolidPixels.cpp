#include <txpluginqt/raster/SolidPixels.h>

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace txqt
{

SolidPixels::SolidPixels(const RasterTarget& target, const QSpanData& data, const QRect& area) : area(area)
{
    QRasterBuffer& buffer = *data.rasterBuffer;
    pixels = reinterpret_cast<quint32*>(buffer.buffer());
    stride = buffer.stride<quint32>();
    color = data.solidColor.toArgb32();
    isOpaque = data.solidColor.isOpaque() && target.State().composition_mode == QPainter::CompositionMode_SourceOver;
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
    return SolidPixels(target, data, area);
}

void SolidPixels::AddRun(quint32* pixel, int length, int coverage) const
{
    const quint32 source = coverage == kFull ? color : BYTE_MUL(color, static_cast<uint>(coverage));
    const uint rest = isOpaque ? static_cast<uint>(kFull - coverage) : static_cast<uint>(qAlpha(~source));
    if (rest == 0)
    {
        std::fill_n(pixel, length, source);
        return;
    }
    int i = 0;
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    const __m128i half = _mm_set1_epi16(0x80);
    const __m128i sources = _mm_set1_epi32(static_cast<int>(source));
    const __m128i rests = _mm_set1_epi16(static_cast<short>(rest));
    // A product of bytes divided by 255, as Qt rounds it.
    const auto faded = [&](__m128i bytes)
    {
        const __m128i product = _mm_mullo_epi16(bytes, rests);
        return _mm_srli_epi16(_mm_add_epi16(_mm_add_epi16(product, _mm_srli_epi16(product, 8)), half), 8);
    };
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
