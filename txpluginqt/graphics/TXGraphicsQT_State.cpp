// Selection of resources, painter state, and operations on the whole surface.
#include <txpluginqt/graphics/TXGraphicsQT.h>

#include <QImage>

#include <txgraphics/TXLinearGradient.h>
#include <txgraphics/TXRadialGradient.h>
#include <txpluginqt/graphics/PainterResources.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/ImageFile.h>
#include <txpluginqt/support/Images.h>
#include <txpluginqt/support/ScopeGuards.h>

using namespace TZObjects;
using namespace txqt;

void TXGraphicsQT::SelectPen(TXPen::PenStyle style)
{
    Paint([&](QPainter& p) { p.setPen(static_cast<Qt::PenStyle>(static_cast<int>(style))); });
}

TXRefPtr<TXPen> TXGraphicsQT::SelectPen(TXRefPtr<TXPen> newPen)
{
    if (!newPen || !painter)
        return nullptr;
    Paint([&](QPainter& p) { ApplyPen(p, *newPen); });
    return std::exchange(pen, newPen);
}

TXRefPtr<TXBrush> TXGraphicsQT::SelectBrush(TXRefPtr<TXBrush> newBrush)
{
    if (!newBrush || !painter)
        return nullptr;
    Paint([&](QPainter& p) { ApplyBrush(p, *newBrush); });
    return std::exchange(brush, newBrush);
}

TXRefPtr<TXFont> TXGraphicsQT::SelectFont(TXRefPtr<TXFont> newFont)
{
    if (!newFont || !painter)
        return nullptr;
    Paint([&](QPainter& p) { ApplyQFont(p, *newFont); });
    TXRefPtr<TXFont> oldFont = std::exchange(font, newFont);
    if (cairoEnabled)
        cairo.SelectFont(font.get());
    return oldFont;
}

void TXGraphicsQT::SelectGradient(TXGradient* gradient)
{
    if (!dynamic_cast<TXRadialGradient*>(gradient) && !dynamic_cast<TXLinearGradient*>(gradient))
        return;
    const auto* const qgradient = static_cast<const QGradient*>(gradient->GetInternalObject());
    if (qgradient && IsDrawable(*qgradient))
        Paint([&](QPainter& p) { p.setBrush(QBrush(*qgradient)); });
}

TXRefPtr<TXRgn> TXGraphicsQT::SelectRgn(TXRefPtr<TXRgn>) { return nullptr; }

// While a painter is attached, the resources show what it holds. An inactive one answers with Qt's defaults, but prints
// a warning.

TXRefPtr<TXPen> TXGraphicsQT::GetPen()
{
    if (attached && pen && pen->GetInternalObject())
        Succeeds([&]
                 { *static_cast<QPen*>(pen->GetInternalObject()) = painter->isActive() ? painter->pen() : QPen(); });
    return pen;
}

TXRefPtr<TXBrush> TXGraphicsQT::GetBrush()
{
    if (attached && brush && brush->GetInternalObject())
        Succeeds(
            [&]
            { *static_cast<QBrush*>(brush->GetInternalObject()) = painter->isActive() ? painter->brush() : QBrush(); });
    return brush;
}

TXRefPtr<TXFont> TXGraphicsQT::GetFont()
{
    if (attached && font && font->GetInternalObject())
        Succeeds(
            [&] { *static_cast<QFont*>(font->GetInternalObject()) = painter->isActive() ? painter->font() : QFont(); });
    return font;
}

TXRefPtr<TXImage> TXGraphicsQT::GetImage() { return image; }

bool TXGraphicsQT::Save(const TXString& fileName)
{
    const QImage* const pixels = PixelsOf(image.get());
    return pixels && ResultOr(false, [&] { return WriteImageFile(*pixels, ToQString(fileName)); });
}

void TXGraphicsQT::Save()
{
    Paint([](QPainter& p) { p.save(); });
}

void TXGraphicsQT::Restore()
{
    // Without a state to restore Qt prints a warning, which is the host's to see.
    Paint([](QPainter& p) { p.restore(); });
}

void TXGraphicsQT::SetOpacity(const double& opacity)
{
    Paint([&](QPainter& p) { p.setOpacity(opacity); });
}

double TXGraphicsQT::GetOpacity() const
{
    if (!painter)
        return 0.0;
    // What Qt answers for a painter that is not active, without its warning.
    return painter->isActive() ? painter->opacity() : 1.0;
}

TXPoint TXGraphicsQT::SetWindowOrg(int x, int y)
{
    const TXPoint old = GetWindowOrg();
    Paint([&](QPainter& p) { p.translate(x, y); });
    return old;
}

TXPoint TXGraphicsQT::GetWindowOrg() const
{
    if (!painter || !painter->isActive())
        return TXPoint();
    const QTransform& transform = painter->transform();
    return TXPoint(transform.dx(), transform.dy());
}

// The interface leaves the conversion to backends with a mapping mode; this one has none.
void TXGraphicsQT::DPtoLP(TXPoint*, int) {}
void TXGraphicsQT::LPtoDP(TXPoint*, int) {}

void TXGraphicsQT::EnableAntialiasing(bool on)
{
    Paint([&](QPainter& p) { p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing, on); });
}

void TXGraphicsQT::SetCompositionMode(TXCompositionMode mode)
{
    // Qt looks other numbers up in a table without an end.
    if (mode >= CompositionMode_SourceOver && mode <= RasterOp_NotDestination)
        Paint([&](QPainter& p)
              { p.setCompositionMode(static_cast<QPainter::CompositionMode>(static_cast<int>(mode))); });
}

bool TXGraphicsQT::ClearWithColor(TXColor color)
{
    if (!image)
        return false;
    image->Fill(color);
    return true;
}

bool TXGraphicsQT::BiltTo(TXGraphics* surface, int x, int y) const
{
    if (!surface)
        return false;
    const QImage* const from = PixelsOf(image.get());
    const TXRefPtr<TXImage> surfaceImage = surface->GetImage();
    const QImage* const to = PixelsOf(surfaceImage.get());
    auto* const surfacePainter = static_cast<QPainter*>(surface->GetInteralObject());
    if (!from || !to || !surfacePainter)
        return false;
    return !surfacePainter->isActive() || !CanBeDrawn(*from) ||
           Succeeds(
               [&]
               {
                   const PainterStateScope state(*surfacePainter);
                   surfacePainter->translate(x, y);
                   surfacePainter->drawImage(0, 0, DrawableImage(*from, PaintedImage(*surfacePainter)).Get());
               });
}
