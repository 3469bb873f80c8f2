#pragma once

#include <QImage>

/// The background of all tests, painted once for each size and format, as painting it takes long.
const QImage& Background(const QSize& size, QImage::Format format);
