#include <txpluginqt/raster/ScaledImage.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include <QPaintEngine>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace txqt
{
namespace
{

constexpr double kFixedOne = 65536.0;
constexpr int kFixedBits = 16;
/// Qt scales in another way what is larger, or enlarged more.
constexpr int kLargestSide = 32767;
constexpr double kGreatestScale = 512.0;
/// A pixel up to this has no alpha.
constexpr QRgb kLargestWithoutAlpha = 0x00ffffff;
/// So that a strip stays in the processor's nearest memory.
constexpr int kStripBytes = 1 << 15;

/// Which pixels of a row or column `QImage::scaled` takes, in Qt's fixed-point arithmetic, which differs for images
/// with alpha and without.
class Sampling
{
public:
    Sampling(int source, int target, bool hasAlpha) : source(source)
    {
        // Qt computes the scale first and the length from that, so that the length need not be whole.
        const double length = double(target) / source * source;
        if (hasAlpha)
        {
            const auto step = static_cast<int>(kFixedOne / (length / source));
            increment = static_cast<quint32>(step);
            position = static_cast<quint32>(static_cast<int>(std::ceil(0.5 * step)) - 1);
        }
        else
        {
            const double step = source / length;
            increment = static_cast<quint32>(static_cast<int>(kFixedOne * step));
            position = static_cast<quint32>(static_cast<int>(std::ceil(0.5 * step * kFixedOne)) - 1);
        }
    }

    /// The next source pixel; -1 beyond the last one, where Qt leaves the copy transparent.
    int Next()
    {
        const auto index = static_cast<int>(position >> kFixedBits);
        position += increment;
        return index < source ? index : -1;
    }

private:
    int source;
    quint32 increment;
    quint32 position;
};

/// A strip of the scaled copy. A thread uses the same memory for all.
struct StripBuffer
{
    std::vector<int> columns;
    std::vector<QRgb> pixels;
};

/// What a row of the copy takes from a row of the image.
struct RowSource
{
    const QRgb* pixels;
    int width;
    const int* columns; ///< Which pixels are taken; ascending.
};

/// Takes pixels from @p first to before @p last. @return whether any of them has colour without alpha.
bool FillRow(QRgb* row, const RowSource& source, int first, int last)
{
    bool lacksAlpha = false;
    for (int x = first; x < last; ++x)
    {
        const QRgb pixel = source.pixels[source.columns[x]];
        row[x] = pixel;
        lacksAlpha |= pixel - 1U < kLargestWithoutAlpha;
    }
    return lacksAlpha;
}

#if defined(__x86_64__)
/// The same, eight pixels at a time where they are taken from sixteen.
__attribute__((target("avx2"))) bool FillRowWithAvx2(QRgb* row, const RowSource& source, int first, int last)
{
    constexpr int half = 8;
    const __m256i colors = _mm256_set1_epi32(static_cast<int>(kLargestWithoutAlpha));
    const __m256i lastOfFirstHalf = _mm256_set1_epi32(half - 1);
    __m256i lacksAlpha = _mm256_setzero_si256();
    int x = first;
    for (; x + half <= last; x += half)
    {
        const int base = source.columns[x];
        if (base + 2 * half > source.width || source.columns[x + half - 1] - base >= 2 * half)
            break;
        const auto* const from = reinterpret_cast<const __m256i*>(source.pixels + base);
        const __m256i columns = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(source.columns + x));
        const __m256i places = _mm256_sub_epi32(columns, _mm256_set1_epi32(base));
        const __m256i pixels = _mm256_blendv_epi8(_mm256_permutevar8x32_epi32(_mm256_loadu_si256(from), places),
                                                  _mm256_permutevar8x32_epi32(_mm256_loadu_si256(from + 1), places),
                                                  _mm256_cmpgt_epi32(places, lastOfFirstHalf));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(row + x), pixels);
        // Equal where nothing but colour is there.
        const __m256i withoutAlpha = _mm256_cmpeq_epi32(_mm256_or_si256(pixels, colors), colors);
        lacksAlpha = _mm256_or_si256(lacksAlpha, _mm256_and_si256(withoutAlpha, pixels));
    }
    const bool rest = FillRow(row, source, x, last);
    return rest || !_mm256_testz_si256(lacksAlpha, lacksAlpha);
}
#endif

using FillRowFunction = bool (*)(QRgb* row, const RowSource& source, int first, int last);

FillRowFunction FastestFillRow()
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2"))
        return FillRowWithAvx2;
#endif
    return FillRow;
}

/// Qt scales four pixels at once where they lie at a multiple of 16 bytes, and leaves them out when none has alpha.
/// @param place of the row in the whole copy, in pixels.
void DropGroupsWithoutAlpha(QRgb* row, int count, long long place)
{
    constexpr int group = 4;
    for (int x = static_cast<int>((group - place % group) % group); x + group <= count; x += group)
        if (std::all_of(row + x, row + x + group, [](QRgb pixel) { return pixel <= kLargestWithoutAlpha; }))
            std::fill_n(row + x, group, 0U);
}

/// Makes the rows of the scaled copy, one after the other.
class ScaledRows
{
public:
    /// @param columns memory that this may use.
    ScaledRows(const QImage& image, const QSize& size, std::vector<int>& columns)
        : image(image), width(size.width()), hasAlpha(image.hasAlphaChannel()),
          rows(image.height(), size.height(), hasAlpha), columns(columns)
    {
        columns.resize(static_cast<std::size_t>(width));
        Sampling sampling(image.width(), width, hasAlpha);
        for (int& column : columns)
            column = sampling.Next();
        // Only the last one may lie beyond the image.
        if (columns.back() < 0)
            columns.pop_back();
    }

    /// @param previous the row made last, where it is still there.
    void Next(QRgb* row, const QRgb* previous)
    {
        static const FillRowFunction fillRow = FastestFillRow();
        const int from = rows.Next();
        const auto count = static_cast<int>(columns.size());
        if (from < 0)
            std::fill_n(row, width, 0U);
        else if (from == known && previous)
            std::copy_n(previous, width, row);
        else
        {
            const RowSource source{reinterpret_cast<const QRgb*>(image.constScanLine(from)), image.width(),
                                   columns.data()};
            const bool lacksAlpha = fillRow(row, source, 0, count) && hasAlpha;
            std::fill_n(row + count, width - count, 0U);
            if (lacksAlpha)
                DropGroupsWithoutAlpha(row, count, static_cast<long long>(made) * width);
            // What was left out depends on the row's place.
            known = lacksAlpha ? -1 : from;
        }
        ++made;
    }

private:
    const QImage& image;
    int width;
    bool hasAlpha;
    Sampling rows;
    std::vector<int>& columns;
    int known = -1;
    int made = 0;
};

void DrawInStrips(QPainter& painter, const QImage& image, const QRect& target)
{
    static thread_local StripBuffer buffer;
    const int width = target.width();
    ScaledRows rows(image, target.size(), buffer.columns);
    const int most = std::clamp(kStripBytes / (width * 4), 1, target.height());
    buffer.pixels.resize(static_cast<std::size_t>(most) * static_cast<std::size_t>(width));
    const auto* const bytes = reinterpret_cast<const uchar*>(buffer.pixels.data());
    const QImage strip(bytes, width, most, width * 4, image.format());
    for (int top = 0; top < target.height(); top += most)
    {
        const int height = std::min(most, target.height() - top);
        for (int y = 0; y < height; ++y)
        {
            QRgb* const row = buffer.pixels.data() + static_cast<std::ptrdiff_t>(y) * width;
            rows.Next(row, y > 0 ? row - width : nullptr);
        }
        const QPoint corner = target.topLeft() + QPoint(0, top);
        if (height == most)
            painter.drawImage(corner, strip);
        else
            painter.drawImage(corner, QImage(bytes, width, height, width * 4, image.format()));
    }
}

bool KeepsPixels(QImage::Format format)
{
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied;
}

/// `Sampling` repeats Qt's own arithmetic, which was checked for these versions.
bool QtScalesAsExpected()
{
    if (std::strncmp(qVersion(), "5.15.", 5) != 0)
        return false;
    QImage colors(29, 17, QImage::Format_ARGB32);
    for (int y = 0; y < colors.height(); ++y)
        for (int x = 0; x < colors.width(); ++x)
            colors.setPixel(x, y, static_cast<QRgb>(x * 37 + y * 101) * 2654435761U);
    const QImage image = colors.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (const QSize& size : {QSize(7, 5), QSize(49, 31), QSize(20, 3), QSize(33, 40)})
    {
        QImage inStrips(size, image.format());
        inStrips.fill(0x80402010U);
        QImage asCopy = inStrips.copy();
        QPainter painter(&inStrips);
        DrawInStrips(painter, image, QRect(QPoint(0, 0), size));
        QPainter(&asCopy).drawImage(0, 0, image.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation));
        if (inStrips != asCopy)
            return false;
    }
    return true;
}

} // namespace

bool CanDrawScaled(const QPainter& painter, const QImage& image, const QRect& target)
{
    const QPaintEngine* const engine = painter.paintEngine();
    if (!engine || engine->type() != QPaintEngine::Raster || target.isEmpty() || !KeepsPixels(image.format()) ||
        image.devicePixelRatio() != 1.0 || image.width() * image.height() <= 1)
        return false;
    // Elsewhere the edges of strips would show.
    const QTransform& transform = painter.deviceTransform();
    if (transform.type() > QTransform::TxTranslate || transform.dx() != std::trunc(transform.dx()) ||
        transform.dy() != std::trunc(transform.dy()))
        return false;
    const bool isUsual = std::max({image.width(), image.height(), target.width(), target.height()}) <= kLargestSide &&
                         target.width() < kGreatestScale * image.width() &&
                         target.height() < kGreatestScale * image.height();
    static const bool isAsExpected = QtScalesAsExpected();
    return isUsual && isAsExpected;
}

void DrawScaled(QPainter& painter, const QImage& image, const QRect& target) { DrawInStrips(painter, image, target); }

} // namespace txqt
