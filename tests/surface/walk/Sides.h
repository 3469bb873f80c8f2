#pragma once

#include <array>
#include <memory>
#include <vector>

#include <tests/support/TestEngine.h>

#include "Canvas.h"
#include "ModelSurface.h"

/// The types of the side under test, and how its objects come about.
struct UnderTest
{
    using Surface = TZObjects::TXRefPtr<TZObjects::TXGraphics>;
    using Pen = TZObjects::TXRefPtr<TZObjects::TXPen>;
    using Brush = TZObjects::TXRefPtr<TZObjects::TXBrush>;
    using Font = TZObjects::TXRefPtr<TZObjects::TXFont>;
    using Image = TZObjects::TXRefPtr<TZObjects::TXImage>;
    using Gradient = TZObjects::TXRefPtr<TZObjects::TXGradient>;
    using Outside = void;

    static Surface NewSurface() { return TestEngine().NewGraphics(); }
    static Surface NewSurface(const Image& image) { return TestEngine().NewGraphics(image.get()); }
    /// Made by a surface.
    static Pen NewPen(const TZObjects::TXGraphics& surface);
    static Brush NewBrush(const TZObjects::TXGraphics& surface);
    static Font NewFont(const TZObjects::TXGraphics& surface);
    static Image NewImage(const TZObjects::TXGraphics& surface) { return surface.NewImage(); }
    static Gradient NewLinear(double x1, double y1, double x2, double y2);
    static Gradient NewRadial(double x, double y, double radius);
};

/// The same of the model.
struct Modelled
{
    using Surface = std::shared_ptr<ModelSurface>;
    using Pen = std::shared_ptr<ModelPen>;
    using Brush = std::shared_ptr<ModelBrush>;
    using Font = std::shared_ptr<ModelFont>;
    using Image = std::shared_ptr<ModelImage>;
    using Gradient = std::shared_ptr<ModelGradient>;
    using Outside = ModelOutside;

    static Surface NewSurface() { return std::make_shared<ModelSurface>(); }
    static Surface NewSurface(const Image& image) { return std::make_shared<ModelSurface>(image); }
    static Pen NewPen(const ModelSurface&) { return std::make_shared<ModelPen>(); }
    static Brush NewBrush(const ModelSurface&) { return std::make_shared<ModelBrush>(); }
    static Font NewFont(const ModelSurface&) { return std::make_shared<ModelFont>(); }
    static Image NewImage(const ModelSurface&) { return std::make_shared<ModelImage>(); }
    static Gradient NewLinear(double x1, double y1, double x2, double y2);
    static Gradient NewRadial(double x, double y, double radius);
};

/// Of the surfaces that operations are made for.
constexpr int kUsualWidth = 96;

constexpr int kSurfaces = 2;
constexpr int kPens = 3;
constexpr int kBrushes = 3;
constexpr int kFonts = 3;
constexpr int kImages = 5;
constexpr int kGradients = 3;
constexpr int kCanvases = 6;
/// From this number on, canvases are images of a resolution of their own.
constexpr int kFirstOfResolution = 4;

/// One of the two sides of a walk: two surfaces, and the objects that the operations hand them. Objects are named by
/// their number, -1 standing for null. The first two images are the first surface's targets, the next two the second
/// one's; the last is a source only.
template <class Kind>
class Side
{
public:
    Side()
    {
        for (auto& surface : surfaces)
            surface = Kind::NewSurface();
        for (int i = 0; i < kPens; ++i)
            RenewPen(i);
        for (int i = 0; i < kBrushes; ++i)
            RenewBrush(i);
        for (int i = 0; i < kFonts; ++i)
            RenewFont(i);
        for (int i = 0; i < kImages; ++i)
            RenewImage(i);
        for (auto& gradient : gradients)
            gradient = Kind::NewLinear(0.0, 0.0, 60.0, 40.0);
        for (int i = 0; i < kCanvases; ++i)
        {
            canvases[i] = std::make_unique<Canvas>(Canvas::kKinds[i]);
            outsides[i] = std::make_unique<ModelOutside>(ModelOutside{canvases[i]->Painter()});
        }
    }

    /// The surface that an operation is made on.
    auto& Surface() { return *surfaces[current]; }
    auto SurfaceNumber(int number) { return number < 0 ? nullptr : surfaces[number].get(); }
    auto Pen(int number) const { return number < 0 ? typename Kind::Pen() : pens[number]; }
    auto Brush(int number) const { return number < 0 ? typename Kind::Brush() : brushes[number]; }
    auto Font(int number) const { return number < 0 ? typename Kind::Font() : fonts[number]; }
    auto Image(int number) const { return number < 0 ? typename Kind::Image() : images[number]; }
    auto Gradient(int number) const { return number < 0 ? nullptr : gradients[number].get(); }
    /// An image to draw: kOwn is the surface's own target.
    auto Source(int number) { return number == kOwn ? Surface().GetImage() : Image(number); }
    /// A target of the surface: 0 and 1 are its own two, 2 and 3 the other surface's.
    auto Target(int number) const { return Image(number < 0 ? -1 : (2 * current + number) % (2 * kSurfaces)); }
    typename Kind::Outside* Outside(int number);
    /// The painter that the surface draws with now.
    QPainter* Painter();
    /// Saves a state on that painter without the surface.
    void SaveOnPainter();
    /// The same; null unless it is painting.
    QPainter* ActivePainter()
    {
        QPainter* const painter = Painter();
        return painter && painter->isActive() ? painter : nullptr;
    }

    // The backend's own objects; that of an image is null while the image is absent.
    QImage* QtImage(int number) const;
    QPen* QtPen(int number) const;
    QBrush* QtBrush(int number) const;

    /// The format of an image that would have that one. Beside raw pixels all images are premultiplied: Qt blends onto
    /// others on its stack, and what it makes of such pixels depends on where on the stack that is.
    int FormatOf(int usual) const { return hasRawPixels ? TZObjects::TXImage::Format_ARGB32_Premultiplied : usual; }
    // A size as on a surface of the usual width.
    int WidthOf(int usual) const { return usual * width / kUsualWidth; }
    int HeightOf(int usual) const { return width > kUsualWidth ? usual * 2 / 3 : usual; }

    void RenewSurface() { surfaces[current] = Kind::NewSurface(); }
    void RenewSurfaceOn(int target)
    {
        // The surface before may be painting on the image.
        surfaces[current] = nullptr;
        surfaces[current] = Kind::NewSurface(Target(target));
    }
    // These take the place of others, which last as long as a surface holds them.
    void RenewPen(int number) { pens[number] = Kind::NewPen(Surface()); }
    void RenewBrush(int number) { brushes[number] = Kind::NewBrush(Surface()); }
    void RenewFont(int number) { fonts[number] = Kind::NewFont(Surface()); }
    void RenewImage(int number) { images[number] = Kind::NewImage(Surface()); }
    void RenewLinear(int number, double x1, double y1, double x2, double y2)
    {
        gradients[number] = Kind::NewLinear(x1, y1, x2, y2);
    }
    void RenewRadial(int number, double x, double y, double radius)
    {
        gradients[number] = Kind::NewRadial(x, y, radius);
    }

    /// Names what an operation answered: -1 for null, the number of an object handed to it before, else kOwn.
    int NumberOf(const typename Kind::Pen& pen) const { return Find(pens, pen); }
    int NumberOf(const typename Kind::Brush& brush) const { return Find(brushes, brush); }
    int NumberOf(const typename Kind::Font& font) const { return Find(fonts, font); }
    int NumberOf(const typename Kind::Image& image) const { return Find(images, image); }
    static constexpr int kOwn = 100;

    std::array<typename Kind::Pen, kPens> pens;
    std::array<typename Kind::Brush, kBrushes> brushes;
    std::array<typename Kind::Font, kFonts> fonts;
    std::array<typename Kind::Image, kImages> images;
    std::array<typename Kind::Gradient, kGradients> gradients;
    std::array<std::unique_ptr<Canvas>, kCanvases> canvases;
    std::array<std::unique_ptr<ModelOutside>, kCanvases> outsides;
    std::array<typename Kind::Surface, kSurfaces> surfaces;
    std::size_t current = 0;
    /// Of the first target of each surface.
    int width = kUsualWidth;
    /// Whether images may have pixels with more colour than alpha.
    bool hasRawPixels = false;

private:
    template <class Pointers, class Pointer>
    static int Find(const Pointers& pointers, const Pointer& wanted)
    {
        if (!wanted)
            return -1;
        for (std::size_t i = 0; i < pointers.size(); ++i)
            if (pointers[i] == wanted)
                return static_cast<int>(i);
        return kOwn;
    }
};

template <>
inline void* Side<UnderTest>::Outside(int number)
{
    return number < 0 ? nullptr : &canvases[number]->Painter();
}

template <>
inline ModelOutside* Side<Modelled>::Outside(int number)
{
    return number < 0 ? nullptr : outsides[number].get();
}

template <>
inline QImage* Side<UnderTest>::QtImage(int number) const
{
    return static_cast<QImage*>(images[number]->GetInternalObject());
}

template <>
inline QImage* Side<Modelled>::QtImage(int number) const
{
    return images[number]->pixels.get();
}

template <>
inline QPen* Side<UnderTest>::QtPen(int number) const
{
    return static_cast<QPen*>(pens[number]->GetInternalObject());
}

template <>
inline QPen* Side<Modelled>::QtPen(int number) const
{
    return &pens[number]->qpen;
}

template <>
inline QBrush* Side<UnderTest>::QtBrush(int number) const
{
    return static_cast<QBrush*>(brushes[number]->GetInternalObject());
}

template <>
inline QBrush* Side<Modelled>::QtBrush(int number) const
{
    return &brushes[number]->qbrush;
}

template <>
inline QPainter* Side<UnderTest>::Painter()
{
    return static_cast<QPainter*>(Surface().GetInteralObject());
}

template <>
inline QPainter* Side<Modelled>::Painter()
{
    return Surface().Painter();
}

template <>
inline void Side<UnderTest>::SaveOnPainter()
{
    if (ActivePainter())
        Painter()->save();
}

template <>
inline void Side<Modelled>::SaveOnPainter()
{
    Surface().Save();
}
