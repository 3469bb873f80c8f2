#include "ModelResources.h"

#include <algorithm>

#include <tests/txpluginqt/graphics/RandomCases.h>

using namespace TZObjects;

namespace
{

constexpr int kLastFormat = 22;

QImage::Format DefaultFormat()
{
    const int format = TXGraphicsEngineManager::instance("")->DefaultImageFormat();
    return static_cast<QImage::Format>(format >= 0 && format <= kLastFormat ? format : 5);
}

TXString EnglishOr(const TXString& name)
{
    const TXString english = TXFont::GetEnglishNameForKnownFont(name);
    return english.isEmpty() ? name : english;
}

} // namespace

ModelPen::ModelPen() { Create(TXPen::SolidLine, 1.0, TXColor::BLACK_, TXPen::RoundCap, TXPen::RoundJoin); }

bool ModelPen::Create(TXPen::PenStyle style, double width, const TXColor& color, TXPen::PenCapStyle cap,
                      TXPen::PenJoinStyle join)
{
    qpen = QPen();
    SetWidth(width);
    SetPenStyle(style);
    SetColor(color);
    SetPenCapStyle(cap);
    SetPenJoinStyle(join);
    return true;
}

void ModelPen::SetPenStyle(TXPen::PenStyle style)
{
    qpen.setStyle(style >= 1 && style <= 6 ? static_cast<Qt::PenStyle>(static_cast<int>(style)) : Qt::NoPen);
}

void ModelPen::SetPenCapStyle(TXPen::PenCapStyle cap)
{
    qpen.setCapStyle(cap == 256 ? Qt::SquareCap : cap == 512 ? Qt::FlatCap : Qt::RoundCap);
}

void ModelPen::SetPenJoinStyle(TXPen::PenJoinStyle join)
{
    qpen.setJoinStyle(join == 0 ? Qt::BevelJoin : join == 8192 ? Qt::MiterJoin : Qt::RoundJoin);
}

void ModelPen::SetWidth(double width) { qpen.setWidthF(width < 1.0 ? 1.0 : width); }

void ModelPen::SetColor(const TXColor& color) { qpen.setColor(ToQt(color)); }

void ModelPen::SetSteps(const std::vector<double>& steps)
{
    qpen.setDashPattern(QVector<qreal>(steps.begin(), steps.end()));
}

TXColor ModelPen::GetColor() const
{
    const QColor color = qpen.color();
    return {color.red(), color.green(), color.blue(), color.alpha()};
}

ModelImage::~ModelImage()
{
    for (ModelFollower* const follower : followers)
    {
        follower->PixelsGo();
        follower->ImageEnds();
    }
}

bool ModelImage::CreateCompatibleImage(std::nullptr_t, int width, int height)
{
    CreateCompatibleImage(width, height, {});
    return true;
}

void ModelImage::CreateCompatibleImage(int width, int height, const std::function<void()>& first)
{
    auto image = std::make_unique<QImage>(width, height, DefaultFormat());
    image->fill(QColor(255, 255, 255, 0));
    Replace(std::move(image), first);
}

bool ModelImage::CreateImage(int width, int height, TXImage::Format format)
{
    Replace(std::make_unique<QImage>(width, height, static_cast<QImage::Format>(static_cast<int>(format))));
    return true;
}

bool ModelImage::Delete()
{
    Replace(nullptr);
    return true;
}

void ModelImage::Replace(std::unique_ptr<QImage> replacement, const std::function<void()>& first)
{
    for (ModelFollower* const follower : followers)
        follower->PixelsGo();
    pixels = std::move(replacement);
    isRaw = false;
    if (first)
        first();
    for (ModelFollower* const follower : followers)
        follower->PixelsCame();
}

void ModelImage::Fill(const TXRect& rect, const TXColor& color)
{
    for (int x = 0; x < GetWidth(); ++x)
        for (int y = 0; y < GetHeight(); ++y)
            if (x >= static_cast<int>(rect.left) && x < static_cast<int>(rect.right) &&
                y >= static_cast<int>(rect.top) && y < static_cast<int>(rect.bottom))
                SetPixel(x, y, color);
}

void ModelImage::Fill(const TXColor& color)
{
    const int format = TXGraphicsEngineManager::instance("")->DefaultImageFormat();
    if (format == 10 || format == 15)
        Fill(qPremultiply(ToQt(color).rgba()));
    else if (pixels)
        pixels->fill(ToQt(color));
}

void ModelImage::Fill(unsigned int value)
{
    if (pixels)
        pixels->fill(value);
}

void ModelImage::SetPixel(int x, int y, const TXColor& color)
{
    if (pixels && pixels->valid(x, y) && pixels->format() > QImage::Format_Indexed8)
        pixels->setPixelColor(x, y, ToQt(color));
}

TXColor ModelImage::GetPixel(int x, int y) const
{
    if (!pixels || !pixels->valid(x, y))
        return TXColor();
    const bool lacksColor =
        pixels->format() <= QImage::Format_Indexed8 && pixels->pixelIndex(x, y) >= pixels->colorCount();
    return TXColor(lacksColor ? 0u : pixels->pixel(x, y), true);
}

void ModelImage::SetBits(const void* data, unsigned int size)
{
    if (!pixels)
        return;
    Replace(
        std::make_unique<QImage>(QImage::fromData(static_cast<const uchar*>(data), data ? static_cast<int>(size) : 0)));
}

void* ModelImage::GetBits()
{
    isRaw = true;
    return pixels ? pixels->bits() : nullptr;
}

QImage ModelImage::Drawable() const
{
    QImage drawable = pixels->copy();
    if (drawable.format() != QImage::Format_Indexed8)
        return drawable;
    if (drawable.colorCount() == 0)
        return QImage();
    int largest = 0;
    for (int x = 0; x < drawable.width(); ++x)
        for (int y = 0; y < drawable.height(); ++y)
            largest = std::max(largest, drawable.pixelIndex(x, y));
    if (largest >= drawable.colorCount())
        drawable.setColor(largest, 0u);
    return drawable;
}

ModelBrush::ModelBrush() { Create(TXColor(255, 255, 255, 0), TXBrush::SolidBrush); }

bool ModelBrush::Create(const TXColor& color, TXBrush::BrushStyle style)
{
    constexpr Qt::BrushStyle styles[] = {Qt::SolidPattern, Qt::HorPattern, Qt::VerPattern, Qt::CrossPattern};
    qbrush = QBrush();
    qbrush.setStyle(style >= 1 && style <= 4 ? styles[style - 1] : Qt::SolidPattern);
    SetColor(color);
    return true;
}

void ModelBrush::SetColor(const TXColor& color) { qbrush.setColor(ToQt(color)); }

void ModelBrush::SetTextureImage(const std::shared_ptr<ModelImage>& image)
{
    if (!image->pixels)
        return;
    // What is drawn into the image later does not show in the brush.
    const QImage drawable = image->Drawable();
    if (drawable.isNull() && !image->pixels->isNull())
        return;
    qbrush.setTextureImage(drawable);
    texture = image;
}

bool ModelFont::Create()
{
    qfont = QFont();
    width = qfont.pixelSize();
    dotsPerInch = 0;
    return true;
}

void ModelFont::SetFontWidth(int newWidth)
{
    if (newWidth > 0)
        width = newWidth;
}

void ModelFont::SetFontHeight(int height)
{
    if (height > 0)
        qfont.setPixelSize(height);
}

void ModelFont::SetFontItalicMode(TXFont::TXItalicMode mode)
{
    qfont.setStyle(mode == 1 ? QFont::StyleItalic : QFont::StyleNormal);
    italicMode = mode;
}

void ModelFont::SetFontName(const TXString& newName)
{
    if (newName.isEmpty())
        return;
    qfont.setFamily(QString::fromStdWString(EnglishOr(newName).toStdWString()));
    name = EnglishOr(TXString(qfont.family().toStdWString()));
}

TXString ModelFont::GetFontName() const
{
    return name.isEmpty() ? EnglishOr(TXString(qfont.family().toStdWString())) : name;
}

void ModelGradient::SetColorAt(double position, const TXColor& color)
{
    const bool keepsAlpha = qgradient.type() == QGradient::LinearGradient;
    qgradient.setColorAt(position, QColor(color.getR(), color.getG(), color.getB(), keepsAlpha ? color.getA() : 255));
}
