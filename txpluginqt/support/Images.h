#pragma once

#include <QImage>

/// True for an image that Qt can draw. It has pixels, and if they are indices, colours for them: Qt reads the colours
/// of an index without looking whether there are any.
inline bool CanBeDrawn(const QImage& image)
{
    return !image.isNull() && (image.format() != QImage::Format_Indexed8 || image.colorCount() > 0);
}
