#include <txpluginqt/resources/TXImageQT.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>

#include <QBuffer>
#include <QByteArray>
#include <QImage>

#include <txgraphics/TXGraphicsEngineManager.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/Failures.h>
#include <txpluginqt/support/ImageFile.h>
#include <txpluginqt/support/Images.h>

// Present in programs that look for leaks, absent in all others.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is the leak checker's own.
extern "C" void __lsan_ignore_object(const void* object) __attribute__((weak));

using namespace txqt;

namespace TZObjects
{
namespace
{

constexpr QRgb kTransparentWhite = 0x00ffffff;

/// The Qt format for a number of the interface: 0 to 22 are Qt's own, all others become ARGB32.
QImage::Format MappedFormat(int format)
{
    return format >= QImage::Format_Invalid && format <= QImage::Format_A2RGB30_Premultiplied
               ? static_cast<QImage::Format>(format)
               : QImage::Format_ARGB32;
}

int DefaultFormat() { return TXGraphicsEngineManager::instance("")->DefaultImageFormat(); }

/// Formats whose pixels are bits or indices take no colours.
bool TakesColors(const QImage& image) { return image.format() > QImage::Format_Indexed8; }

/// Repeats the colour of one pixel over a rectangle that lies within the image. Setting each pixel would convert the
/// colour once a pixel.
void FillPixels(QImage& image, const QRect& area, const QColor& color)
{
    image.setPixelColor(area.topLeft(), color);
    const std::size_t pixelBytes = static_cast<std::size_t>(image.depth()) / 8;
    const std::size_t offset = pixelBytes * static_cast<std::size_t>(area.left());
    uchar* const firstRow = image.scanLine(area.top()) + offset;
    for (int i = 1; i < area.width(); ++i)
        std::memcpy(firstRow + static_cast<std::size_t>(i) * pixelBytes, firstRow, pixelBytes);
    for (int y = area.top() + 1; y <= area.bottom(); ++y)
        std::memcpy(image.scanLine(y) + offset, firstRow, static_cast<std::size_t>(area.width()) * pixelBytes);
}

} // namespace

TXImageQT::PixelChange::PixelChange(TXImage& changed) : image(dynamic_cast<TXImageQT*>(&changed))
{
    if (image && image->changes++ == 0)
        for (PixelUser* const user : image->users)
            user->PixelsGoing();
}

TXImageQT::PixelChange::~PixelChange()
{
    if (image && --image->changes == 0)
        for (PixelUser* const user : image->users)
            user->PixelsChanged();
}

TXImageQT::TXImageQT() = default;

TXImageQT::~TXImageQT()
{
    for (PixelUser* const user : users)
        user->PixelsGoing();
    delete Image();
    for (PixelUser* const user : users)
        user->ImageEnding();
}

QImage* TXImageQT::Image() const { return static_cast<QImage*>(internalObject); }

template <class Make>
bool TXImageQT::Replace(Make make)
{
    const PixelChange change(*this);
    if (Image())
        Delete();
    return Succeeds([&] { internalObject = new QImage(make()); });
}

bool TXImageQT::CreateCompatibleImage(const char* path)
{
    if (!path)
        return false;
    const PixelChange change(*this);
    if (Image())
        Delete();
    auto loaded = std::unique_ptr<QImage>(NewOrNull<QImage>());
    if (!loaded)
        return false;
    // Qt would print a warning about an empty path.
    const bool attempted = *path && Succeeds([&] { loaded->load(ToQString(TXString(path))); });
    if (attempted && !loaded->isNull())
    {
        internalObject = loaded.release();
        return true;
    }
    // The empty image of a failed attempt is not freed; it has always been so, and it holds no pixels.
    const QImage* const lost = loaded.release();
    if (__lsan_ignore_object)
        __lsan_ignore_object(lost);
    return false; // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
}

bool TXImageQT::CreateCompatibleImage(TXGraphics*, const int& width, const int& height)
{
    Replace(
        [&]
        {
            QImage image(width, height, MappedFormat(DefaultFormat()));
            image.fill(QColor::fromRgba(kTransparentWhite));
            return image;
        });
    return true;
}

void* TXImageQT::GetBits()
{
    return Image() ? ResultOr<void*>(nullptr, [&] { return Image()->bits(); }) : nullptr;
}

void TXImageQT::SetBits(const void* data, unsigned int size)
{
    constexpr unsigned int largest = std::numeric_limits<int>::max();
    const unsigned int length = data ? size : 0;
    if (!Image() || length > largest)
        return;
    const PixelChange change(*this);
    Succeeds([&] { Image()->loadFromData(static_cast<const uchar*>(data), static_cast<int>(length)); });
}

int TXImageQT::GetWidth() { return Image() ? Image()->width() : 0; }

int TXImageQT::GetHeight() { return Image() ? Image()->height() : 0; }

bool TXImageQT::Delete()
{
    const PixelChange change(*this);
    delete Image();
    internalObject = nullptr;
    return true;
}

bool TXImageQT::CreateImage(const int& width, const int& height, Format format)
{
    Replace(
        [&]
        {
            // Qt divides by the depth of a format without looking whether it knows it.
            const int number = format;
            const bool known = number >= QImage::Format_Invalid && number < QImage::NImageFormats;
            return known ? QImage(width, height, static_cast<QImage::Format>(number)) : QImage();
        });
    return true;
}

bool TXImageQT::CreateImage(unsigned char* bits, const int& width, const int& height, Format format)
{
    Replace([&] { return QImage(bits, width, height, MappedFormat(format)); });
    return true;
}

bool TXImageQT::CreateImage(unsigned char* bits, const int& width, const int& height)
{
    return CreateImage(bits, width, height, static_cast<Format>(DefaultFormat()));
}

bool TXImageQT::Load(unsigned char* data, const int& length, const char* format)
{
    if (!data || length < 1)
        return false;
    const PixelChange change(*this);
    if (Image())
        Delete();
    auto loaded = std::unique_ptr<QImage>(NewOrNull<QImage>());
    const bool decoded = loaded &&
                         Succeeds(
                             [&]
                             {
                                 QByteArray bytes;
                                 QBuffer buffer(&bytes);
                                 buffer.open(QIODevice::WriteOnly);
                                 buffer.write(reinterpret_cast<const char*>(data), length);
                                 // Qt cannot read from a buffer that is still open for writing.
                                 buffer.close();
                                 loaded->load(&buffer, format);
                             }) &&
                         !loaded->isNull();
    if (decoded)
        internalObject = loaded.release();
    return decoded;
}

void TXImageQT::Save(const TXString& path) const
{
    if (Image())
        Succeeds([&] { WriteImageFile(*Image(), ToQString(path)); });
}

void TXImageQT::Save(const char* path) const
{
    if (Image())
        Succeeds([&] { WriteImageFile(*Image(), QString::fromLatin1(path)); });
}

void TXImageQT::Fill(const TXRect& rect, const TXColor& color)
{
    if (!Image() || !TakesColors(*Image()))
        return;
    // Arguments in this order, so that NaN comes through and counts as 0.
    const int left = Truncated(std::max(rect.left, 0.0));
    const int right = Truncated(std::min(rect.right, double(GetWidth())));
    const int top = Truncated(std::max(rect.top, 0.0));
    const int bottom = Truncated(std::min(rect.bottom, double(GetHeight())));
    if (left < right && top < bottom)
        Succeeds([&] { FillPixels(*Image(), QRect(left, top, right - left, bottom - top), ToQColor(color)); });
}

void TXImageQT::Fill(const TXColor& color)
{
    const int format = DefaultFormat();
    // The manager's format decides here, not the image's own.
    if (format == Format_ARGB6666_Premultiplied || format == Format_ARGB4444_Premultiplied)
        Fill(qPremultiply(color.GetColor()));
    else
        IfPresent(Image(),
                  [&](QImage& image)
                  {
                      if (!image.paintingActive())
                      {
                          image.fill(ToQColor(color));
                          return;
                      }
                      // Some formats Qt fills with a painter of its own, which cannot be while another one paints.
                      QImage pixels(image.bits(), image.width(), image.height(), image.bytesPerLine(), image.format());
                      pixels.fill(ToQColor(color));
                  });
}

void TXImageQT::Fill(unsigned int value)
{
    IfPresent(Image(), [&](QImage& image) { image.fill(value); });
}

TXColor TXImageQT::GetPixel(int x, int y)
{
    const QImage* const image = Image();
    if (!image || !image->valid(x, y))
        return TXColor();
    // Qt reads an index beyond the colours as 0, too, but prints a warning.
    const bool lacksColor = HasIndices(*image) && image->pixelIndex(x, y) >= image->colorCount();
    return TXColor(lacksColor ? 0U : image->pixel(x, y), true);
}

void TXImageQT::SetPixel(int x, int y, const TXColor& color)
{
    if (Image() && Image()->valid(x, y) && TakesColors(*Image()))
        Succeeds([&] { Image()->setPixelColor(x, y, ToQColor(color)); });
}

int TXImageQT::GetByteCount()
{
    constexpr qsizetype largest = std::numeric_limits<int>::max();
    return Image() ? static_cast<int>(std::min(Image()->sizeInBytes(), largest)) : 0;
}

bool TXImageQT::AddUser(PixelUser& user)
{
    return Succeeds([&] { users.push_back(&user); });
}

void TXImageQT::RemoveUser(PixelUser& user)
{
    users.erase(std::remove(users.begin(), users.end(), &user), users.end());
}

} // namespace TZObjects
