// The life of a surface: construction, its target image, an attached painter, destruction.
#include <txpluginqt/graphics/TXGraphicsQT.h>

#include <new>
#include <utility>

#include <QImage>

#include <txgraphics/TXGraphicsEngineManager.h>
#include <txpluginqt/graphics/PainterResources.h>
#include <txpluginqt/raster/SavedStates.h>
#include <txpluginqt/raster/SelfCheck.h>
#include <txpluginqt/resources/TXBrushQT.h>
#include <txpluginqt/resources/TXFontQT.h>
#include <txpluginqt/resources/TXPenQT.h>
#include <txpluginqt/support/Images.h>

using namespace TZObjects;
using namespace txqt;

namespace
{

constexpr QPainter::RenderHints kAntialiased = QPainter::Antialiasing | QPainter::TextAntialiasing;

bool AntialiasingByDefault() { return TXGraphicsEngineManager::instance("")->AntialiasingEnabled(); }

bool CairoDrawingByDefault() { return TXGraphicsEngineManager::instance("")->CairoDrawingEnabled(); }

/// What Qt would refuse with a warning: no pixels, indexed ones, or ones that another painter is painting.
bool CanBePainted(const QImage* pixels)
{
    return pixels && !pixels->isNull() && pixels->format() != QImage::Format_Indexed8 && !pixels->paintingActive();
}

} // namespace

TXGraphicsQT::TXGraphicsQT(TXImage* paintedImage) : cairoLock(std::make_unique<TXLock>())
{
    CheckRasterizer();
    if (paintedImage)
    {
        UsePainter(new QPainter);
        if (!BeginOn(paintedImage))
        {
            TXGraphicsQT::Delete();
            throw std::bad_alloc();
        }
    }
    TXGraphicsQT::EnableCairoDrawing(CairoDrawingByDefault());
}

TXGraphicsQT::TXGraphicsQT()
    : pen(new TXPenQT), brush(new TXBrushQT), font(new TXFontQT), cairoLock(std::make_unique<TXLock>())
{
    CheckRasterizer();
    pen->Create();
    brush->Create(TXColor(255, 255, 255, 0), TXBrush::SolidBrush);
    font->Create();
    if (!pen->GetInternalObject() || !brush->GetInternalObject() || !font->GetInternalObject())
        throw std::bad_alloc();
    UsePainter(new QPainter);
    TXGraphicsQT::EnableCairoDrawing(CairoDrawingByDefault());
}

TXGraphicsQT::~TXGraphicsQT()
{
    TXGraphicsQT::Delete();
    pen = nullptr;
    brush = nullptr;
    font = nullptr;
    Follow(nullptr);
    image = nullptr;
}

void TXGraphicsQT::UsePainter(QPainter* current)
{
    painter = current;
    internalObject = current;
}

bool TXGraphicsQT::Follow(TXImage* newTarget)
{
    if (target)
        target->RemoveUser(*this);
    target = dynamic_cast<TXImageQT*>(newTarget);
    hintsBeforeChange.reset();
    if (!target || target->AddUser(*this))
        return true;
    target = nullptr;
    return false;
}

bool TXGraphicsQT::Begin(QImage* pixels)
{
    return !CanBePainted(pixels) || Succeeds([&] { OwnPainter()->begin(pixels); });
}

bool TXGraphicsQT::BeginOn(TXImage* newTarget) { return Follow(newTarget) && Begin(PixelsOf(newTarget)); }

void TXGraphicsQT::EndPainting()
{
    QPainter* const own = OwnPainter();
    if (!own || !own->isActive())
        return;
    // Qt would print a warning about states that are still saved.
    for (int saved = SavedStates(*own); saved > 0; --saved)
        own->restore();
    own->end();
}

bool TXGraphicsQT::Delete()
{
    Detach();
    EndPainting();
    delete painter;
    UsePainter(nullptr);
    // The cairo objects stay, and with them the image whose pixels they draw into.
    if (target && target != image)
        Follow(nullptr);
    return true;
}

bool TXGraphicsQT::CreateCompatibleGraphics(int width, int height)
{
    Delete();
    Follow(nullptr);
    UsePainter(NewOrNull<QPainter>());
    if (!image)
        image = NewImage();
    // The pixels under the old context go now; the objects themselves last as long as the surface.
    const bool isRetired = Succeeds([&] { cairo.Retire(); });
    if (!painter || !image || !isRetired)
        return false;
    {
        // Other surfaces on the image look for its new pixels only when this one paints there.
        const TXImageQT::PixelChange change(*image);
        if (!image->CreateCompatibleImage(this, width, height))
            return false;
        Begin(PixelsOf(image.get()));
    }
    if (!Follow(image.get()))
        EndPainting();
    if (painter->isActive() && AntialiasingByDefault())
        painter->setRenderHints(kAntialiased | QPainter::SmoothPixmapTransform, true);
    if (cairoEnabled)
        cairo.Create(image.get());
    if (painter->isActive())
        ApplySelection(*painter);
    return true;
}

TXRefPtr<TXImage> TXGraphicsQT::SelectImage(TXRefPtr<TXImage> newImage)
{
    QPainter* const own = OwnPainter();
    if (!own || (newImage && newImage == image))
        return nullptr;

    const QPainter::RenderHints hints = image ? hintsBeforeChange.value_or(own->renderHints()) : kAntialiased;
    EndPainting();
    BeginOn(newImage.get());
    if (own->isActive() && AntialiasingByDefault())
        own->setRenderHints(hints, true);
    TXRefPtr<TXImage> oldImage = std::exchange(image, newImage);
    if (cairoEnabled)
    {
        cairo.Destroy();
        cairo.Create(image.get());
    }
    if (own->isActive())
        ApplySelection(*own);
    return oldImage;
}

void TXGraphicsQT::ApplySelection(QPainter& newlyBegun)
{
    Succeeds(
        [&]
        {
            if (brush)
                ApplyBrush(newlyBegun, *brush);
            if (pen)
                ApplyPen(newlyBegun, *pen);
            if (!font)
                return;
            ApplyQFont(newlyBegun, *font);
            cairo.SelectFont(font.get());
        });
}

void TXGraphicsQT::PixelsGoing()
{
    QPainter* const own = OwnPainter();
    if (own && own->isActive())
        hintsBeforeChange = own->renderHints();
    EndPainting();
    cairo.Destroy();
}

void TXGraphicsQT::PixelsChanged()
{
    // First, so that the font reaches the new context as well.
    if (cairoEnabled)
        cairo.Create(image.get());
    QPainter* const own = OwnPainter();
    if (own && Begin(PixelsOf(target)) && own->isActive())
    {
        if (AntialiasingByDefault())
            own->setRenderHints(hintsBeforeChange.value_or(kAntialiased), true);
        hintsBeforeChange.reset();
        ApplySelection(*own);
    }
}

void TXGraphicsQT::ImageEnding() { target = nullptr; }

void TXGraphicsQT::Attach(void* outsidePainter)
{
    if (!outsidePainter)
        return;
    Detach();
    ownPainter = painter;
    UsePainter(static_cast<QPainter*>(outsidePainter));
    attached = true;
}

void TXGraphicsQT::Detach()
{
    if (!attached)
        return;
    UsePainter(ownPainter);
    ownPainter = nullptr;
    attached = false;
}

TXBrush* TXGraphicsQT::NewBrush() const { return NewOrNull<TXBrushQT>(); }

TXPen* TXGraphicsQT::NewPen() const { return NewOrNull<TXPenQT>(); }

TXFont* TXGraphicsQT::NewFont() const { return NewOrNull<TXFontQT>(); }

TXImage* TXGraphicsQT::NewImage() const { return NewOrNull<TXImageQT>(); }
