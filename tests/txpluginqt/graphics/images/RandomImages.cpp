#include "RandomImages.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <tests/support/TestEngine.h>

#include "Pictures.h"

using namespace TZObjects;

namespace
{

struct Span
{
    double low;
    double high;
};

/// On how fine a raster the numbers of a call lie: the coarser, the more of them are equal.
enum class Raster
{
    Whole,
    Quarters,
    None,
};

double Snapped(double value, Raster raster)
{
    if (raster == Raster::Whole)
        return std::round(value);
    return raster == Raster::Quarters ? std::round(value * 4.0) / 4.0 : value;
}

/// A stretch in any position to the one from 0 to @p size.
Span SomeSpan(Random& random, double size, Raster raster)
{
    const auto at = [&](double lowest, double highest) { return Snapped(random.Real(lowest, highest), raster); };
    const double inside = at(0.0, size * 0.6);
    switch (random.Int(0, 23))
    {
    case 0:
    case 1:
        return {at(-size, 0.0), inside};
    case 2:
    case 3:
        return {inside, at(size, size * 2.0)};
    case 4:
        return {at(-size, 0.0), at(size, size * 2.0)};
    case 5:
        return {at(-size, -1.0), 0.0};
    case 6:
        return {size, at(size + 1.0, size * 2.0)};
    case 7:
        return {at(-size, -1.0), at(-1.0, 0.0)};
    case 8:
        return {at(size, size + 1.0), at(size + 1.0, size * 2.0)};
    case 9:
        return {inside, inside};
    case 10:
        return {inside, inside - at(0.0, inside)};
    case 11:
        return {0.0, size};
    case 12:
        return {inside, inside + random.Real(0.0, 1.0)};
    case 13:
        return {-std::pow(10.0, random.Int(2, 6)), std::pow(10.0, random.Int(2, 6))};
    case 14:
        return {0.0, at(0.0, size)};
    default:
        return {inside, inside + at(1.0, size * 0.5)};
    }
}

/// A part of a source, never so far outside that it would take much memory.
Span SomePart(Random& random, double size, Raster raster)
{
    const Span span = SomeSpan(random, size, raster);
    return {std::max(span.low, -100.0), std::min(span.high, size + 100.0)};
}

QImage& PixelsOf(const TXRefPtr<TXImage>& image) { return *static_cast<QImage*>(image->GetInternalObject()); }

} // namespace

SourceImage SomeSource(Random& random)
{
    const QImage::Format format = random.OneOf(DrawnFormats());
    const auto number = static_cast<TXImage::Format>(static_cast<int>(format));
    const int width = random.Chance(10) ? 1 : random.Int(2, 70);
    const int height = random.Chance(10) ? 1 : random.Int(2, 60);
    const QImage picture = Picture(width, height, format);
    SourceImage source{TestEngine().NewImage(), {}};
    // The interface takes no later format over a caller's memory.
    if (random.Chance(25) && format <= QImage::Format_A2RGB30_Premultiplied)
    {
        source.memory.assign(picture.constBits(), picture.constBits() + picture.sizeInBytes());
        source.image->CreateImage(source.memory.data(), width, height, number);
        PixelsOf(source.image).setColorTable(picture.colorTable());
    }
    else
    {
        source.image->CreateImage(width, height, number);
        PixelsOf(source.image) = picture;
    }
    if (random.Chance(12))
        PixelsOf(source.image).setDevicePixelRatio(2.0);
    return source;
}

double SomeOpacity(Random& random)
{
    constexpr double opacities[] = {0.0,  0.5,    1.0, 1.0, 1.0, 2.0, -1.0, std::numeric_limits<double>::quiet_NaN(),
                                    1e-3, 0.99999};
    return random.Chance(45) ? random.OneOf(opacities) : random.Real(0.0, 1.0);
}

ImageCall SomeCall(Random& random, const QSize& target, const QSize& source)
{
    ImageCall call;
    call.opacity = SomeOpacity(random);
    call.angle = random.Chance(15) ? 90.0 * random.Int(-4, 8) : random.Real(-400.0, 400.0);
    const auto raster = static_cast<Raster>(random.Int(0, 2));
    const Span x = SomeSpan(random, target.width(), raster);
    const Span y = SomeSpan(random, target.height(), raster);
    call.dst = TXRect(x.low, x.high, y.low, y.high);
    const Span fromX = SomePart(random, source.width(), raster);
    const Span fromY = SomePart(random, source.height(), raster);
    call.src = TXRect(fromX.low, fromX.high, fromY.low, fromY.high);

    const int relation = random.Int(1, 100);
    if (relation <= 14)
    {
        // In place: mostly about as large as the source, also empty, inverted and far too large.
        const double width = random.Chance(70) ? Snapped(random.Real(0.0, source.width() * 1.5), raster) : x.high;
        const double height = random.Chance(70) ? Snapped(random.Real(0.0, source.height() * 1.5), raster) : y.high;
        call.dst = TXRect(0.0, width, 0.0, height);
        if (random.Chance(25))
            call.dst = TXRect(0.0, source.width(), 0.0, source.height());
        call.src = call.dst;
    }
    else if (relation <= 22)
        call.src = call.dst = TXRect(fromX.low, fromX.high, fromY.low, fromY.high);
    else if (relation <= 45 && x.high - x.low < 500.0 && y.high - y.low < 500.0)
        // Not scaled.
        call.src = TXRect(fromX.low, fromX.low + (x.high - x.low), fromY.low, fromY.low + (y.high - y.low));
    else if (relation <= 60)
        call.src = TXRect(0.0, source.width(), 0.0, source.height());
    else if (relation <= 68)
    {
        const double left = Snapped(x.low, Raster::Whole);
        const double top = Snapped(y.low, Raster::Whole);
        call.src = TXRect(0.0, source.width(), 0.0, source.height());
        call.dst = TXRect(left, left + source.width(), top, top + source.height());
    }
    return call;
}

void ChangeImageState(Random& random, Twins& twins)
{
    const bool smooth = random.Chance(50);
    const bool perspective = random.Chance(12);
    const bool view = random.Chance(12);
    const bool withoutWorld = random.Chance(12);
    const int moved = random.Chance(20) ? random.Int(-20, 20) : 0;
    const double farther = random.Real(-0.004, 0.004);
    twins.Both(
        [&](QPainter& painter)
        {
            painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
            if (perspective)
                painter.setTransform(QTransform(1.0, 0.1, farther, 0.0, 1.0, farther / 2.0, 5.0, 3.0, 1.0), true);
            if (view)
            {
                painter.setWindow(-10, -5, 120, 100);
                painter.setViewport(3, 2, 100, 70);
            }
            painter.translate(moved, -2 * moved);
            painter.setBrushOrigin(moved, 1.5);
            if (withoutWorld)
                painter.setWorldMatrixEnabled(false);
        });
}
