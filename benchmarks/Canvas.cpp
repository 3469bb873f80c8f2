#include "Canvas.h"

#include <cstdlib>
#include <cstring>
#include <iostream>

#include "Scene.h"

using namespace TZObjects;

namespace
{

constexpr QImage::Format kFormat = QImage::Format_ARGB32_Premultiplied;

/// Uneven, so that drawing has to blend.
QImage Background(int width, int height)
{
    QImage image(width, height, kFormat);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(200 + x / 4 % 50, 215 + y / 8 % 40, 225 + (x + y) / 16 % 30));
    return image;
}

void CopyPixels(QImage& to, const QImage& from)
{
    std::memcpy(to.bits(), from.constBits(), static_cast<std::size_t>(from.sizeInBytes()));
}

} // namespace

TXGraphicsEngine& Engine()
{
    static TXGraphicsEngine* const engine = []
    {
        TXGraphicsEngineManager& manager = *TXGraphicsEngineManager::instance("");
        manager.SetDefaultImageFormat(TXImage::Format_ARGB32_Premultiplied);
        TXString error;
        const TXRefPtr<TXGraphicsEngine> loaded = manager.LoadPlugin(TX_BENCH_PLUGIN, &error);
        if (!loaded)
        {
            std::cerr << "the plugin cannot be loaded: " << error.toUTF8() << std::endl;
            std::exit(1);
        }
        // The manager holds it until the process ends.
        return loaded.get();
    }();
    return *engine;
}

void SetCairoColor(cairo_t* context, const TXColor& color)
{
    cairo_set_source_rgba(context, color.getR() / 255.0, color.getG() / 255.0, color.getB() / 255.0,
                          color.getA() / 255.0);
}

Canvas::CairoPtr Canvas::CairoOn(QImage& picture)
{
    cairo_surface_t* const target = cairo_image_surface_create_for_data(
        picture.bits(), CAIRO_FORMAT_ARGB32, picture.width(), picture.height(), picture.bytesPerLine());
    CairoPtr context(cairo_create(target), &cairo_destroy);
    // The context holds it.
    cairo_surface_destroy(target);
    return context;
}

Canvas::Canvas(int width, int height)
    : background(Background(width, height)), image(Engine().NewImage()), surface(Engine().NewGraphics()),
      twin(background.copy()), cairoTwin(background.copy()), aggTwin(background.copy()), directCairo(CairoOn(twin)),
      cairo(CairoOn(cairoTwin)), agg(aggTwin)
{
    image->CreateImage(width, height, TXImage::Format_ARGB32_Premultiplied);
    surface->SelectImage(image);
    cairo_set_line_join(cairo.get(), CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(cairo.get(), CAIRO_LINE_CAP_ROUND);
    cairo_set_fill_rule(cairo.get(), CAIRO_FILL_RULE_EVEN_ODD);
    BeginDirect();
    Wipe();
}

Canvas::~Canvas() = default;

void Canvas::BeginDirect()
{
    direct.begin(&twin);
    direct.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    Use(Look());
}

void Canvas::PaintDirectlyOn(Canvas& other)
{
    QImage& picture = other.Ours();
    direct.end();
    twin = QImage(picture.bits(), picture.width(), picture.height(), picture.bytesPerLine(), picture.format());
    directCairo = CairoOn(twin);
    BeginDirect();
}

QImage& Canvas::Ours() const { return *static_cast<QImage*>(image->GetInternalObject()); }

void Canvas::Use(const Look& look)
{
    const TXRefPtr<TXPen> pen(Engine().NewPen());
    pen->Create(look.width > 0.0 ? TXPen::SolidLine : TXPen::NullPen, look.width, look.outline, TXPen::RoundCap,
                TXPen::RoundJoin);
    surface->SelectPen(pen);
    const TXRefPtr<TXBrush> brush(Engine().NewBrush());
    brush->Create(TXColor(look.fill.getR(), look.fill.getG(), look.fill.getB(), look.filled ? look.fill.getA() : 0),
                  TXBrush::SolidBrush);
    surface->SelectBrush(brush);

    QPainter& painter = *static_cast<QPainter*>(surface->GetInteralObject());
    if (!look.filled)
        // The interface has no brush that fills nothing; this is what a transparent one is for Qt.
        painter.setBrush(Qt::NoBrush);
    if (look.width > 0.0)
        direct.setPen(QPen(QBrush(QColor::fromRgba(look.outline.GetColor())), look.width, Qt::SolidLine, Qt::RoundCap,
                           Qt::RoundJoin));
    else
        direct.setPen(Qt::NoPen);
    direct.setBrush(look.filled ? QBrush(QColor::fromRgba(look.fill.GetColor())) : QBrush());
    cairo_set_line_width(cairo.get(), look.width);
    agg.Use(look);
}

void Canvas::Wipe()
{
    CopyPixels(Ours(), background);
    CopyPixels(twin, background);
    CopyPixels(cairoTwin, background);
    CopyPixels(aggTwin, background);
}

long Canvas::DifferingPixels() const
{
    const auto* const ours = reinterpret_cast<const QRgb*>(Ours().constBits());
    const auto* const theirs = reinterpret_cast<const QRgb*>(twin.constBits());
    const long count = static_cast<long>(twin.width()) * twin.height();
    long differing = 0;
    for (long i = 0; i < count; ++i)
        differing += ours[i] != theirs[i] ? 1 : 0;
    return differing;
}

Contenders Stage::Contenders() const
{
    struct Contenders contenders;
    contenders.begin = [canvas = canvas](int) { canvas->Wipe(); };
    contenders.differing = [canvas = canvas] { return canvas->DifferingPixels(); };
    return contenders;
}
