// Scaled parts of images on a surface, which may be scaled in place, against scaled copies.
#include <cstring>

#include <tests/support/PainterState.h>
#include <tests/support/QuietTest.h>
#include <tests/support/Twins.h>

#include "RandomPaths.h"

using namespace TZObjects;

namespace
{

class ScaledImagesTest : public QuietTest
{
protected:
    static QImage Noise(int width, int height, QImage::Format format)
    {
        std::mt19937 engine(static_cast<unsigned>(width * 1000 + height));
        QImage image(width, height, QImage::Format_ARGB32);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                image.setPixel(x, y, static_cast<QRgb>(engine()));
        return image.convertToFormat(format);
    }
};

TEST_F(ScaledImagesTest, AreDrawnAsScaledCopies)
{
    constexpr int kCases = 600;
    for (const TXImage::Format format :
         {TXImage::Format_RGB32, TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied})
    {
        Twins twins(420, 130, format);
        const QImage background = twins.Expected().copy();
        for (int i = 0; i < kCases; ++i)
        {
            RandomPaths random(static_cast<unsigned>(i));
            for (QImage* const image : {&twins.Actual(), &twins.Expected()})
                std::memcpy(image->bits(), background.constBits(), static_cast<std::size_t>(background.sizeInBytes()));
            twins.Both([](QPainter& painter) { painter.save(); });

            const int most = random.Chance(20) ? 300 : 40;
            const QImage pixels = Noise(random.Int(2, most), random.Int(2, most),
                                        random.Chance(50) ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
            const TXRefPtr<TXImage> source = TestEngine().NewImage();
            source->CreateImage(pixels.width(), pixels.height(), static_cast<TXImage::Format>(pixels.format()));
            *static_cast<QImage*>(source->GetInternalObject()) = pixels;

            const bool whole = random.Chance(60);
            const auto placed = [&](double value) { return whole ? std::round(value) : value; };
            const bool inside = random.Chance(70);
            const double left = placed(random.Real(0.0, 60.0));
            const double top = placed(random.Real(0.0, 50.0));
            // Within the surface, where nothing is cut off.
            const double width = placed(random.Real(1.0, inside ? 420.0 - left : 360.0));
            const double height = placed(random.Real(1.0, 130.0 - top));
            const QRect crop = random.Chance(50)
                                   ? pixels.rect()
                                   : QRect(random.Int(0, pixels.width() / 2), random.Int(0, pixels.height() / 2),
                                           random.Int(1, pixels.width() / 2), random.Int(1, pixels.height() / 2));
            const double opacity = random.Chance(50) ? 1.0 : random.Real(0.0, 1.0);
            const int mode = random.Chance(70) ? 0 : random.Int(0, 20);
            const bool clipped = random.Chance(20);
            const bool smooth = random.Chance(50);
            const int moved = random.Chance(30) ? random.Int(-20, 20) : 0;
            const double turned = random.Chance(5) ? 5.0 : 0.0;
            twins.Both(
                [&](QPainter& p)
                {
                    p.setCompositionMode(static_cast<QPainter::CompositionMode>(mode));
                    if (clipped)
                        p.setClipRect(QRect(20, 10, 200, 80));
                    p.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
                    p.translate(moved, moved / 2);
                    p.rotate(turned);
                });
            const TXRect dst(left, left + width, top, top + height);
            const TXRect src(crop.x(), crop.x() + crop.width(), crop.y(), crop.y() + crop.height());
            EXPECT_TRUE(twins.Surface().DrawImage(dst, source.get(), src, opacity));

            QPainter& direct = twins.Direct();
            const double before = direct.opacity();
            direct.setOpacity(opacity);
            direct.setCompositionMode(QPainter::CompositionMode_SourceOver);
            QImage copy = pixels.copy(crop);
            // In steps, as the operation computes it.
            const double toWidth = dst.right - dst.left;
            const double toHeight = dst.bottom - dst.top;
            if (toWidth != crop.width() || toHeight != crop.height())
                copy = copy.scaled(static_cast<int>(toWidth), static_cast<int>(toHeight), Qt::IgnoreAspectRatio,
                                   Qt::FastTransformation);
            direct.drawImage(QPointF(left, top), copy);
            direct.setOpacity(before);
            ASSERT_TRUE(twins.SameWithState())
                << "format " << format << ", case " << i << ": " << crop.width() << " x " << crop.height() << " to "
                << toWidth << " x " << toHeight << " at " << left << ", " << top;
            twins.Both([](QPainter& painter) { painter.restore(); });
        }
    }
}

} // namespace
