#pragma once

#include <QImage>
#include <QPainter>

#include <txgraphics/TXImage.h>

namespace txqt
{

/// An image's object of Qt; null for no image and for one without pixels.
inline QImage* PixelsOf(const TZObjects::TXImage* image)
{
    return image ? static_cast<QImage*>(image->GetInternalObject()) : nullptr;
}

/// True for an image whose pixels are indices of colours.
inline bool HasIndices(const QImage& image) { return image.format() <= QImage::Format_Indexed8; }

/// True for an image that Qt can draw. It has pixels, and if they are indices, colours for them: Qt reads the colours
/// of an index without looking whether there are any.
inline bool CanBeDrawn(const QImage& image)
{
    return !image.isNull() && (!HasIndices(image) || image.colorCount() > 0);
}

/// The image that a painter paints into, which an attached one chooses for itself; null when it is no image.
const QImage* PaintedImage(const QPainter& painter);

/// An image for drawing into a target: the image itself where that is safe. Onto itself, Qt would read pixels that it
/// has just written; and indices without a colour, which Qt would look up beyond the end of the colours, are
/// transparent.
class DrawableImage
{
public:
    /// @param image one that can be drawn, which must outlive this. @param target null when it is no image.
    DrawableImage(const QImage& image, const QImage* target);
    DrawableImage(const DrawableImage&) = delete;
    DrawableImage& operator=(const DrawableImage&) = delete;

    const QImage& Get() const { return *drawable; }

private:
    QImage changed;
    // Not a copy: after much drawing, giving up a shared reference waits until all that was drawn is in memory.
    const QImage* drawable;
};

/// What `QImage::copy` gives for @p part, on the same pixels where possible. The image must outlive the result.
QImage PartOf(const QImage& image, const QRect& part);

} // namespace txqt
