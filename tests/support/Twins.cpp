#include "Twins.h"

#include "ImageCompare.h"
#include "PainterState.h"
#include "TestEngine.h"

using namespace TZObjects;

void PaintBackground(QImage& image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, QColor(x * 5 % 256, y * 7 % 256, (x + y) * 3 % 256, 255 - x * y % 128));
}

Twins::Twins(int width, int height, TXImage::Format format)
    : image(TestEngine().NewImage()), surface(TestEngine().NewGraphics()),
      expected(width, height, static_cast<QImage::Format>(static_cast<int>(format)))
{
    image->CreateImage(width, height, format);
    PaintBackground(expected);
    PaintBackground(Actual());
    surface->SelectImage(image);
    direct.begin(&expected);
    Both(
        [](QPainter& painter)
        {
            painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
            painter.setPen(QPen(QColor(20, 60, 140, 200), 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.setBrush(QColor(230, 170, 40, 150));
            painter.setFont(QFont());
        });
}

QPainter& Twins::SurfacePainter() { return *static_cast<QPainter*>(surface->GetInteralObject()); }

QImage& Twins::Actual() { return *static_cast<QImage*>(image->GetInternalObject()); }

::testing::AssertionResult Twins::Same() { return SamePixels(Actual(), expected); }

::testing::AssertionResult Twins::SameWithState()
{
    const ::testing::AssertionResult state = SameState(SurfacePainter(), direct);
    return state ? Same() : state;
}

void Twins::Wipe()
{
    PaintBackground(Actual());
    PaintBackground(expected);
}
