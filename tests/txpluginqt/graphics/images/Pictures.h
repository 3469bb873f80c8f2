#pragma once

#include <vector>

#include <QImage>

/// A picture in which neighbouring pixels differ in colour and alpha; some are opaque, some clear. In formats of
/// indices, the colours are there.
QImage Picture(int width, int height, QImage::Format format);

/// The formats in which an image is drawn: all that have pixels.
std::vector<QImage::Format> DrawnFormats();
