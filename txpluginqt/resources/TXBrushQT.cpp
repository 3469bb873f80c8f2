#include <txpluginqt/resources/TXBrushQT.h>

#include <QBrush>
#include <QImage>

#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/EnumTable.h>
#include <txpluginqt/support/Failures.h>
#include <txpluginqt/support/Images.h>

using namespace txqt;

namespace TZObjects
{
namespace
{

constexpr EnumRow<TXBrush::BrushStyle, Qt::BrushStyle> kCreatableStyles[] = {
    {TXBrush::SolidBrush, Qt::SolidPattern},
    {TXBrush::HorizontalHatch, Qt::HorPattern},
    {TXBrush::VerticalHatch, Qt::VerPattern},
    {TXBrush::CrossHatch, Qt::CrossPattern},
};

// A texture is reported, but comes about through its image alone.
constexpr EnumRow<TXBrush::BrushStyle, Qt::BrushStyle> kReportedStyles[] = {
    {TXBrush::SolidBrush, Qt::SolidPattern},     {TXBrush::HorizontalHatch, Qt::HorPattern},
    {TXBrush::VerticalHatch, Qt::VerPattern},    {TXBrush::CrossHatch, Qt::CrossPattern},
    {TXBrush::TextureBrush, Qt::TexturePattern},
};

} // namespace

TXBrushQT::TXBrushQT() = default;

TXBrushQT::~TXBrushQT() { TXBrushQT::Delete(); }

QBrush* TXBrushQT::Brush() const { return static_cast<QBrush*>(internalObject); }

bool TXBrushQT::Create(const TXColor& color, BrushStyle style)
{
    if (Brush())
        Delete();
    internalObject = NewOrNull<QBrush>();
    const bool made = IfPresent(Brush(),
                                [&](QBrush& brush)
                                {
                                    brush.setStyle(ToBackend(kCreatableStyles, style, Qt::SolidPattern));
                                    brush.setColor(ToQColor(color));
                                });
    // Rather no brush than half of one.
    if (!made)
        Delete();
    return true;
}

bool TXBrushQT::Delete()
{
    delete Brush();
    internalObject = nullptr;
    return true;
}

TXBrush::BrushStyle TXBrushQT::GetStyle()
{
    return Brush() ? ToHost(kReportedStyles, Brush()->style(), SolidBrush) : SolidBrush;
}

void TXBrushQT::SetColor(const TXColor& color)
{
    IfPresent(Brush(), [&](QBrush& brush) { brush.setColor(ToQColor(color)); });
}

TXColor TXBrushQT::GetColor() { return Brush() ? ToTXColor(Brush()->color()) : TXColor(); }

TXRefPtr<TXImage> TXBrushQT::textureImage() const { return texture; }

void TXBrushQT::SetTextureImage(TXRefPtr<TXImage> image)
{
    const QImage* const pixels = PixelsOf(image.get());
    if (!Brush() || !pixels || (!pixels->isNull() && !CanBeDrawn(*pixels)))
        return;
    // A copy of its own: shared pixels would move away from the image, and from everything that draws into them, at the
    // image's next change; over a caller's buffer the drawing would then miss the buffer.
    if (Succeeds([&] { Brush()->setTextureImage(DrawableImage(pixels->copy(), nullptr).Get()); }))
        texture = image;
}

} // namespace TZObjects
