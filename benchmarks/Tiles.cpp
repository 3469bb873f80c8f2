// Raster tiles: as they are, in part, scaled and turned.
#include <QImage>

#include "Canvas.h"
#include "Random.h"
#include "Scene.h"

using namespace TZObjects;

namespace
{

constexpr const char* kSubject = "Tiles of 256 x 256";
constexpr int kTile = 256;

QRgb PixelOf(int x, int y, int tile)
{
    return qRgb((x * 3 + tile * 17) % 256, (y * 5 + tile * 31) % 256, (x * y / 16 + tile) % 256);
}

/// Four tiles. Both sides draw from the same memory.
struct Tiles
{
    std::vector<TXRefPtr<TXImage>> ours;
    std::vector<QImage> direct;

    explicit Tiles(int alpha = 255)
    {
        for (int tile = 0; tile < 4; ++tile)
        {
            ours.emplace_back(Engine().NewImage());
            ours.back()->CreateImage(kTile, kTile, TXImage::Format_ARGB32_Premultiplied);
            QImage& pixels = *static_cast<QImage*>(ours.back()->GetInternalObject());
            for (int y = 0; y < kTile; ++y)
                for (int x = 0; x < kTile; ++x)
                {
                    const QRgb rgb = PixelOf(x, y, tile);
                    pixels.setPixelColor(x, y, QColor(qRed(rgb), qGreen(rgb), qBlue(rgb), alpha));
                }
            direct.emplace_back(pixels.constBits(), kTile, kTile, pixels.bytesPerLine(), pixels.format());
        }
    }
};

/// Where a tile lands: its own size, or another one.
std::vector<QRect> Places(int count, int side)
{
    Random random(5);
    std::vector<QRect> places;
    for (int i = 0; i < count; ++i)
    {
        const int x = random.Int(1, 1024 - side - 40);
        places.emplace_back(x, random.Int(1, 1024 - side - 40), side, side);
    }
    return places;
}

TXRect ToTXRect(const QRect& r) { return TXRect(r.x(), r.x() + r.width(), r.y(), r.y() + r.height()); }

using DrawOurs = void (*)(TXGraphics& surface, TXImage* tile, const QRect& place);
using DrawDirect = void (*)(QPainter& painter, const QImage& tile, const QRect& place);

/// Two pictures, of which each side has one, and the other one every other time: how fast the same pixels are copied
/// depends on where in memory they lie.
class CrossedCanvases
{
public:
    CrossedCanvases()
    {
        canvases[0].PaintDirectlyOn(canvases[1]);
        canvases[1].PaintDirectlyOn(canvases[0]);
    }

    void Cross(bool crossed) { current = &canvases[crossed ? 1 : 0]; }
    TXGraphics& Surface() { return current->Surface(); }
    QPainter& Direct() { return current->Direct(); }
    void Wipe()
    {
        for (Canvas& canvas : canvases)
            canvas.Wipe();
    }
    long DifferingPixels() const { return canvases[0].DifferingPixels(); }

private:
    Canvas canvases[2];
    Canvas* current = canvases;
};

Scene TileScene(const std::string& name, int count, int side, Limit limit, DrawOurs ours, DrawDirect direct)
{
    return {kSubject, name, count, limit,
            [=]
            {
                const auto canvas = std::make_shared<CrossedCanvases>();
                Contenders contenders;
                contenders.begin = [=](int) { canvas->Wipe(); };
                contenders.turn = [=](int turn) { canvas->Cross(turn % 2 == 1); };
                contenders.differing = [=] { return canvas->DifferingPixels(); };
                const auto tiles = std::make_shared<const Tiles>();
                const auto places = std::make_shared<const std::vector<QRect>>(Places(count, side));
                contenders.ours = Each([=](int i) { ours(canvas->Surface(), tiles->ours[i % 4].get(), (*places)[i]); });
                contenders.direct = Each([=](int i) { direct(canvas->Direct(), tiles->direct[i % 4], (*places)[i]); });
                return contenders;
            }};
}

const QRect kWhole(0, 0, kTile, kTile);
const QRect kPart(40, 24, 128, 160);

template <int Angle>
void RotateOurs(TXGraphics& surface, TXImage* tile, const QRect& place)
{
    surface.DrawImage4BitmapRotate(ToTXRect(place), tile, ToTXRect(kWhole), Angle, 1.0);
}

template <int Angle>
void RotateDirect(QPainter& painter, const QImage& tile, const QRect& place)
{
    const QImage scaled = tile.scaled(place.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QPointF corner = place.topLeft();
    const QPointF centre = corner + QPoint(scaled.width() / 2, scaled.height() / 2);
    painter.save();
    painter.translate(centre);
    painter.rotate(Angle);
    painter.translate(-centre);
    painter.drawImage(corner, scaled);
    painter.restore();
}

void FastOurs(TXGraphics& surface, TXImage* tile, const QRect& place)
{
    surface.DrawImage(ToTXRect(place), tile, ToTXRect(kWhole), 1.0);
}

void FastDirect(QPainter& painter, const QImage& tile, const QRect& place)
{
    painter.drawImage(place.topLeft(), tile.scaled(place.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation));
}

void FadedOurs(TXGraphics& surface, TXImage* tile, const QRect& place)
{
    surface.DrawImage(ToTXRect(place), tile, ToTXRect(kWhole), 0.6);
}

void FadedDirect(QPainter& painter, const QImage& tile, const QRect& place)
{
    painter.setOpacity(0.6);
    FastDirect(painter, tile, place);
    painter.setOpacity(1.0);
}

} // namespace

void AddTiles(Scenes& scenes)
{
    scenes.push_back(TileScene(
        "whole, at the origin", 800, kTile, Limit::Drawing(),
        [](TXGraphics& surface, TXImage* tile, const QRect&) { surface.DrawImage(tile, 1.0); },
        [](QPainter& painter, const QImage& tile, const QRect&) { painter.drawImage(0, 0, tile); }));
    scenes.push_back(TileScene("whole, unscaled", 800, kTile, Limit::Drawing(), FastOurs,
                               [](QPainter& painter, const QImage& tile, const QRect& place)
                               { painter.drawImage(place.topLeft(), tile); }));
    scenes.push_back(TileScene(
        "part of 128 x 160, unscaled", 1600, kTile, Limit::Drawing(),
        [](TXGraphics& surface, TXImage* tile, const QRect& place)
        { surface.DrawImage(ToTXRect(QRect(place.topLeft(), kPart.size())), tile, ToTXRect(kPart), 1.0); },
        [](QPainter& painter, const QImage& tile, const QRect& place)
        { painter.drawImage(place.topLeft(), tile, kPart); }));
    const Limit faster = Limit::TimesAsFast(1.3);
    scenes.push_back(TileScene("scaled fast to 200 x 200", 600, 200, faster, FastOurs, FastDirect));
    scenes.push_back(TileScene("scaled fast to 300 x 300", 400, 300, faster, FastOurs, FastDirect));
    scenes.push_back(
        TileScene("scaled fast to 300 x 300, opacity 0.6", 300, 300, Limit::Drawing(), FadedOurs, FadedDirect));
    for (const int side : {200, 300})
    {
        const std::string name = "scaled smoothly to " + std::to_string(side) + " x " + std::to_string(side);
        scenes.push_back(TileScene(name, 200, side, Limit::Drawing(), RotateOurs<0>, RotateDirect<0>));
        scenes.push_back(
            TileScene(name + ", turned by 15", 120, side, Limit::Drawing(), RotateOurs<15>, RotateDirect<15>));
    }
}
