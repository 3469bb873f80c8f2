// The life of the model: construction, its target, an attached painter, and the cairo context.
#include <algorithm>

#include "ModelSurface.h"

using namespace TZObjects;

namespace
{

constexpr QPainter::RenderHints kAntialiased = QPainter::Antialiasing | QPainter::TextAntialiasing;

bool AntialiasingIsDefault() { return TXGraphicsEngineManager::instance("")->AntialiasingEnabled(); }

bool CairoIsDefault() { return TXGraphicsEngineManager::instance("")->CairoDrawingEnabled(); }

QImage* PixelsOf(const ModelImage* image) { return image ? image->pixels.get() : nullptr; }

} // namespace

ModelSurface::ModelSurface()
    : own(std::make_unique<QPainter>()), pen(std::make_shared<ModelPen>()), brush(std::make_shared<ModelBrush>()),
      font(std::make_shared<ModelFont>())
{
    EnableCairoDrawing(CairoIsDefault());
}

ModelSurface::ModelSurface(const Ptr<ModelImage>& painted)
{
    if (painted)
    {
        own = std::make_unique<QPainter>();
        Follow(painted.get());
        Begin(PixelsOf(target));
    }
    EnableCairoDrawing(CairoIsDefault());
}

ModelSurface::~ModelSurface()
{
    Delete();
    Follow(nullptr);
}

void ModelSurface::Follow(ModelImage* newTarget)
{
    if (target)
    {
        auto& followers = target->followers;
        followers.erase(std::remove(followers.begin(), followers.end(), static_cast<ModelFollower*>(this)),
                        followers.end());
    }
    target = newTarget;
    lostHints.reset();
    if (target)
        target->followers.push_back(this);
}

// Qt paints on no pixels, on indexed ones, and on those of another painter as little as it can.
void ModelSurface::Begin(QImage* pixels)
{
    if (pixels && !pixels->isNull() && pixels->format() != QImage::Format_Indexed8 && !pixels->paintingActive())
        own->begin(pixels);
}

void ModelSurface::EndPainting()
{
    for (; saved > 0; --saved)
        own->restore();
    if (own && own->isActive())
        own->end();
}

bool ModelSurface::Delete()
{
    Detach();
    EndPainting();
    own.reset();
    if (target != image.get())
        Follow(nullptr);
    return true;
}

bool ModelSurface::CreateCompatibleGraphics(int width, int height)
{
    Delete();
    Follow(nullptr);
    own = std::make_unique<QPainter>();
    if (!image)
        image = std::make_shared<ModelImage>();
    // Other surfaces on the image get its new pixels only where this one does not paint.
    image->CreateCompatibleImage(width, height, [this] { Begin(PixelsOf(image.get())); });
    Follow(image.get());
    if (own->isActive() && AntialiasingIsDefault())
        own->setRenderHints(kAntialiased | QPainter::SmoothPixmapTransform);
    if (cairoEnabled)
    {
        DropCairoContext();
        MakeCairoContext();
    }
    ApplyResources();
    return true;
}

ModelSurface::Ptr<ModelImage> ModelSurface::SelectImage(const Ptr<ModelImage>& newImage)
{
    // An attached painter is not the surface's to end: this concerns the surface's own.
    if (!own || (newImage && newImage == image))
        return nullptr;
    const QPainter::RenderHints hints = image ? lostHints.value_or(own->renderHints()) : kAntialiased;
    EndPainting();
    Follow(newImage.get());
    Begin(PixelsOf(target));
    if (own->isActive() && AntialiasingIsDefault())
        own->setRenderHints(hints);
    const Ptr<ModelImage> old = std::exchange(image, newImage);
    if (cairoEnabled)
    {
        DropCairoContext();
        MakeCairoContext();
    }
    ApplyResources();
    return old;
}

void ModelSurface::ApplyResources()
{
    if (!own->isActive())
        return;
    ModelOutside* const parked = std::exchange(outside, nullptr);
    SelectBrush(brush);
    SelectPen(pen);
    SelectFont(font);
    outside = parked;
}

void ModelSurface::PixelsGo()
{
    if (own && own->isActive())
        lostHints = own->renderHints();
    EndPainting();
    if (target == image.get())
        DropCairoContext();
}

// As if the image had just been selected, but with the hints from before its pixels went.
void ModelSurface::PixelsCame()
{
    if (cairoEnabled && target == image.get())
        MakeCairoContext();
    if (!own)
        return;
    Begin(PixelsOf(target));
    if (!own->isActive())
        return;
    const QPainter::RenderHints hints = lostHints.value_or(kAntialiased);
    lostHints.reset();
    if (AntialiasingIsDefault())
        own->setRenderHints(hints);
    ApplyResources();
}

void ModelSurface::Attach(ModelOutside* newOutside)
{
    if (newOutside)
        outside = newOutside;
}

void ModelSurface::EnableCairoDrawing(bool on)
{
    if (on == cairoEnabled)
        return;
    cairoEnabled = on;
    DropCairoContext();
    if (on)
        MakeCairoContext();
    if (!cairo)
        return;
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GOOD);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_MEDIUM);
    cairo_set_font_options(cairo.get(), options);
    cairo_font_options_destroy(options);
    SelectCairoFace();
}

void ModelSurface::MakeCairoContext()
{
    QImage* const pixels = image ? image->pixels.get() : nullptr;
    if (!pixels || pixels->isNull() || pixels->depth() != 32)
        return;
    cairoSurface.reset(
        cairo_image_surface_create_for_data(pixels->bits(), CAIRO_FORMAT_ARGB32, pixels->width(), pixels->height(),
                                            cairo_format_stride_for_width(CAIRO_FORMAT_ARGB32, pixels->width())));
    cairo.reset(cairo_create(cairoSurface.get()));
    // Cairo does not draw on images of more than 32,767 pixels in a row.
    if (cairo_status(cairo.get()) != CAIRO_STATUS_SUCCESS)
        DropCairoContext();
}

void ModelSurface::DropCairoContext()
{
    cairo.reset();
    cairoSurface.reset();
}

void ModelSurface::SelectCairoFace()
{
    if (!cairoEnabled || !cairo || !font)
        return;
    cairo_select_font_face(cairo.get(), font->GetFontName().toUTF8().c_str(),
                           font->IsItalic() ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                           font->IsBold() ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cairo.get(), font->qfont.pixelSize());
}
