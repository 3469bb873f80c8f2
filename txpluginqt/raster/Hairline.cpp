#include <txpluginqt/raster/Hairline.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <private/qdrawhelper_p.h>
#include <private/qpainter_p.h>
#include <private/qrgba64_p.h>

#include <txpluginqt/raster/Bytes255.h>

namespace txqt
{
namespace
{

constexpr int kSteps = 64; ///< Of a pixel along a line.
constexpr int kHalf = 32;
constexpr int kDeepest = 6;
constexpr int kOpaque = 256;

int Fixed(double coordinate) { return static_cast<int>(coordinate * 64.0); }

/// A quotient in 1/65536.
int Slope(int rise, int run) { return static_cast<int>(qint64(rise) * 65536 / run); }

int Swapped(int caps) { return ((caps & 1) << 1) | ((caps & 2) >> 1); }

/// Blends a colour over a pixel, with a coverage up to 255.
inline void BlendOne(quint32* pixel, quint32 color, int coverage)
{
    const quint32 source = BYTE_MUL(color, static_cast<uint>(coverage));
    *pixel = source + BYTE_MUL(*pixel, static_cast<uint>(qAlpha(~source)));
}

/// The same for two pixels at once.
inline void BlendTwo(quint32* first, quint32* second, quint32 color, int coverage1, int coverage2)
{
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    const __m128i wide = _mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(color)), zero);
    const __m128i coverage = _mm_unpacklo_epi64(_mm_set1_epi16(static_cast<short>(coverage1)),
                                                _mm_set1_epi16(static_cast<short>(coverage2)));
    const __m128i source = DividedBy255(_mm_mullo_epi16(wide, coverage));
    const __m128i alpha = _mm_shufflehi_epi16(_mm_shufflelo_epi16(source, 0xff), 0xff);
    const __m128i below = _mm_unpacklo_epi8(
        _mm_unpacklo_epi32(_mm_cvtsi32_si128(static_cast<int>(*first)), _mm_cvtsi32_si128(static_cast<int>(*second))),
        zero);
    const __m128i rest = DividedBy255(_mm_mullo_epi16(below, _mm_sub_epi16(_mm_set1_epi16(0xff), alpha)));
    const __m128i result = _mm_packus_epi16(_mm_add_epi16(source, rest), zero);
    *first = static_cast<quint32>(_mm_cvtsi128_si32(result));
    *second = static_cast<quint32>(_mm_cvtsi128_si32(_mm_srli_si128(result, 4)));
#else
    BlendOne(first, color, coverage1);
    BlendOne(second, color, coverage2);
#endif
}

const QClipData* RectClip(const QRasterPaintEngineState& state)
{
    const QClipData* const clip = state.clip;
    return clip && clip->enabled && clip->hasRectClip && !clip->clipRect.isEmpty() ? clip : nullptr;
}

} // namespace

struct Hairline::Course
{
    int begin;  ///< Along the line, in 1/64.
    int end;    ///< Not before the begin.
    int across; ///< At the middle of the first pixel, in 1/65536, half a pixel less.
    int slope;  ///< What is added across for each pixel along.
};

bool Hairline::Applies(const RasterTarget& target)
{
    const QRasterPaintEngineState& state = target.State();
    const QSpanData& data = state.penData;
    if (!state.flags.fast_pen || !(state.renderHints & QPainter::Antialiasing) || data.type != QSpanData::Solid ||
        !state.lastPen.dashPattern().isEmpty() || state.composition_mode != QPainter::CompositionMode_SourceOver)
        return false;
    const QImage::Format format = data.rasterBuffer->format;
    if (format != QImage::Format_ARGB32_Premultiplied && format != QImage::Format_RGB32)
        return false;
    const QClipData* const clip = target.Engine().clipData();
    return !clip || clip->hasRectClip;
}

Hairline::Hairline(const RasterTarget& target) : transform(target.State().matrix), clip(target.Device())
{
    const QRasterPaintEngineState& state = target.State();
    const QClipData* const rect = RectClip(state);
    if (rect)
        clip &= rect->clipRect;
    const QRect device = target.UnclippedDevice();
    left = device.left() - 1;
    top = device.top() - 1;
    right = device.right() + 2;
    bottom = device.bottom() + 2;

    const double width = state.lastPen.widthF();
    const bool isCosmetic = qt_pen_is_cosmetic(state.lastPen, state.renderHints);
    const double part = width == 0.0 ? 1.0 : width * (isCosmetic ? 1.0 : state.txscale);
    const int opacity = qBound(0, static_cast<int>(kOpaque * part), kOpaque);
    // Thinner lines are fainter. With a rectangle to clip to, Qt fades the colour once; without one, the coverage of
    // each pixel.
    const QRgba64 solid = state.penData.solidColor;
    color = (rect ? multiplyAlpha256(solid, static_cast<uint>(opacity)) : solid).toArgb32();
    coverageScale = rect ? kOpaque : opacity;
    QRasterBuffer& buffer = *state.penData.rasterBuffer;
    pixels = reinterpret_cast<quint32*>(buffer.buffer());
    stride = buffer.stride<quint32>();
    drawsCaps = state.lastPen.capStyle() != Qt::FlatCap;
}

void Hairline::Draw(const QVectorPath& path)
{
    if (path.isEmpty() || clip.isEmpty())
        return;
    const auto* const points = reinterpret_cast<const QPointF*>(path.points());
    const QPainterPath::ElementType* const kinds = path.elements();
    const int count = path.elementCount();
    if (!kinds)
    {
        DrawSubpath(points, nullptr, count, path.hasImplicitClose());
        return;
    }
    for (int first = 0; first < count;)
    {
        int next = first + 1;
        while (next < count && kinds[next] != QPainterPath::MoveToElement)
            ++next;
        DrawSubpath(points + first, kinds + first, next - first, false);
        first = next;
    }
}

void Hairline::DrawSubpath(const QPointF* points, const QPainterPath::ElementType* kinds, int count, bool closes)
{
    const QPointF& last = points[count - 1];
    const bool isOpen = !closes && (points[0].x() != last.x() || points[0].y() != last.y());
    const int endCaps = isOpen && drawsCaps ? CapEnd : NoCaps;
    int caps = isOpen && drawsCaps ? CapBegin : NoCaps;
    const QPointF start = transform.map(points[0]);
    QPointF from = start;
    for (int i = 1; i < count;)
    {
        const bool isCurve = kinds && kinds[i] == QPainterPath::CurveToElement;
        const int length = isCurve ? 3 : 1;
        if (i + length == count)
            caps |= endCaps;
        const QPointF to = transform.map(points[i + length - 1]);
        if (isCurve)
        {
            QPointF curve[3 * kDeepest + 4];
            curve[3] = from;
            curve[2] = transform.map(points[i]);
            curve[1] = transform.map(points[i + 1]);
            curve[0] = to;
            DrawCurve(curve, kDeepest, caps);
        }
        else
            DrawLine(from, to, caps);
        from = to;
        caps = NoCaps;
        i += length;
    }
    if (closes)
        DrawLine(from, start, NoCaps);
}

void Hairline::DrawCurve(QPointF* curve, int level, int caps)
{
    const QPointF chord = curve[3] - curve[0];
    const double flat = 0.25 * (std::abs(chord.x()) + std::abs(chord.y()));
    const auto distance = [&](const QPointF& control)
    { return std::abs(chord.x() * (curve[0].y() - control.y()) - chord.y() * (curve[0].x() - control.x())); };
    if (level == 0 || !(distance(curve[2]) >= flat || distance(curve[1]) >= flat))
    {
        DrawLine(curve[3], curve[0], caps);
        return;
    }
    // Halves of the curve, the later one in front.
    const QPointF between1 = (curve[0] + curve[1]) * 0.5;
    const QPointF middle = (curve[1] + curve[2]) * 0.5;
    const QPointF between2 = (curve[3] + curve[2]) * 0.5;
    curve[6] = curve[3];
    curve[5] = between2;
    curve[1] = between1;
    curve[2] = (between1 + middle) * 0.5;
    curve[4] = (between2 + middle) * 0.5;
    curve[3] = (curve[2] + curve[4]) * 0.5;
    DrawCurve(curve + 3, level - 1, caps & CapBegin);
    DrawCurve(curve, level - 1, caps & CapEnd);
}

bool Hairline::ClipLine(QPointF& from, QPointF& to) const
{
    if (!std::isfinite(from.x()) || !std::isfinite(from.y()) || !std::isfinite(to.x()) || !std::isfinite(to.y()))
        return false;
    double x1 = from.x();
    double y1 = from.y();
    double x2 = to.x();
    double y2 = to.y();
    // First across, then along; the order shows in the last bits.
    const auto cut = [](double& a1, double& b1, double& a2, double& b2, double low, double high)
    {
        if (a1 < low)
        {
            if (a2 <= low)
                return false;
            b1 += (b2 - b1) / (a2 - a1) * (low - a1);
            a1 = low;
        }
        else if (a1 > high)
        {
            if (a2 >= high)
                return false;
            b1 += (b2 - b1) / (a2 - a1) * (high - a1);
            a1 = high;
        }
        if (a2 < low)
        {
            b2 += (b2 - b1) / (a2 - a1) * (low - a2);
            a2 = low;
        }
        else if (a2 > high)
        {
            b2 += (b2 - b1) / (a2 - a1) * (high - a2);
            a2 = high;
        }
        return true;
    };
    if (!cut(x1, y1, x2, y2, left, right) || !cut(y1, x1, y2, x2, top, bottom))
        return false;
    from = QPointF(x1, y1);
    to = QPointF(x2, y2);
    return true;
}

void Hairline::DrawLine(QPointF from, QPointF to, int caps)
{
    const auto isInside = [&](const QPointF& p)
    { return p.x() >= left && p.x() <= right && p.y() >= top && p.y() <= bottom; };
    if (!(isInside(from) && isInside(to)) && !ClipLine(from, to))
        return;
    int x1 = Fixed(from.x());
    int y1 = Fixed(from.y());
    int x2 = Fixed(to.x());
    int y2 = Fixed(to.y());
    const bool isSteep = std::abs(x2 - x1) < std::abs(y2 - y1);
    if (isSteep)
    {
        std::swap(x1, y1);
        std::swap(x2, y2);
    }
    // From here on x is along the line.
    if (x1 == x2)
        return;
    const int slope = Slope(y2 - y1, x2 - x1);
    if (x1 > x2)
    {
        std::swap(x1, x2);
        std::swap(y1, y2);
        caps = Swapped(caps);
    }
    int across = (y1 - kHalf) * 1024;
    across -= (((x1 & (kSteps - 1)) - kHalf) * slope) >> 6;
    if (caps & CapBegin)
    {
        x1 -= kHalf;
        across -= slope >> 1;
    }
    if (caps & CapEnd)
        x2 += kHalf;
    const Course course{x1, x2, across, slope};

    const int first = x1 >> 6;
    const int last = x2 >> 6;
    const int ends[] = {across >> 16, static_cast<int>((across + qint64(last - first) * slope) >> 16)};
    const int low = std::min(ends[0], ends[1]);
    const int high = std::max(ends[0], ends[1]) + 1;
    if (isSteep)
    {
        const bool isWithin =
            first >= clip.top() && last <= clip.bottom() && low >= clip.left() && high <= clip.right();
        isWithin ? DrawPixels<true, true>(course) : DrawPixels<true, false>(course);
    }
    else
    {
        const bool isWithin =
            first >= clip.left() && last <= clip.right() && low >= clip.top() && high <= clip.bottom();
        isWithin ? DrawPixels<false, true>(course) : DrawPixels<false, false>(course);
    }
}

template <bool IsSteep, bool IsInside>
void Hairline::DrawPixels(const Course& course)
{
    const std::ptrdiff_t step = IsSteep ? stride : 1;
    const std::ptrdiff_t side = IsSteep ? 1 : stride;
    const int alongLow = IsSteep ? clip.top() : clip.left();
    const int alongHigh = IsSteep ? clip.bottom() : clip.right();
    const int acrossLow = IsSteep ? clip.left() : clip.top();
    const int acrossHigh = IsSteep ? clip.right() : clip.bottom();
    const auto draw = [&](int along, int across, int coverage1, int coverage2)
    {
        coverage1 = coverage1 * coverageScale >> 8;
        coverage2 = coverage2 * coverageScale >> 8;
        const int place = across >> 16;
        quint32* const pixel = pixels + along * step + place * side;
        if (IsInside)
        {
            BlendTwo(pixel, pixel + side, color, coverage1, coverage2);
            return;
        }
        if (along < alongLow || along > alongHigh)
            return;
        if (place >= acrossLow && place <= acrossHigh)
            BlendOne(pixel, color, coverage1);
        if (place + 1 >= acrossLow && place + 1 <= acrossHigh)
            BlendOne(pixel + side, color, coverage2);
    };
    const auto drawPart = [&](int along, int across, int part)
    {
        const int alpha = (across >> 8) & 0xff;
        draw(along, across, (255 - alpha) * part >> 6, alpha * part >> 6);
    };

    int along = course.begin >> 6;
    const int last = course.end >> 6;
    int across = course.across;
    const bool isOne = along == last;
    drawPart(along, across, isOne ? course.end - course.begin : kSteps - (course.begin & (kSteps - 1)));
    const int endPart = isOne ? 0 : course.end & (kSteps - 1);
    for (++along; along < last; ++along)
    {
        across += course.slope;
        const int alpha = (across >> 8) & 0xff;
        draw(along, across, 255 - alpha, alpha);
    }
    if (endPart > 0)
        drawPart(last, across + course.slope, endPart);
}

} // namespace txqt
