#pragma once

#include <QByteArray>
#include <QImage>

#include <gtest/gtest.h>
#include <txgraphics/TXImage.h>

/// The `QImage` that a present image owns.
QImage& QtImage(TZObjects::TXImage& image);

/// Gives every pixel of an image, in any format that holds colours, a colour and an alpha that differ from its
/// neighbours'.
void PaintPattern(QImage& image);
/// A new image with that pattern.
QImage Pattern(int width, int height, QImage::Format format);

/// The image as the bytes of an image file.
QByteArray Encoded(const QImage& image, const char* format);

/// The format in which an image is made when a format is mapped: 0 to 4 and 6 to 22 as they are, all others 5.
QImage::Format MappedFormat(int format);

/// Success when size, format and every byte of the pixels are the same. Unlike a comparison of colours this sees the
/// unused bits of a pixel too.
::testing::AssertionResult SameBytes(const QImage& actual, const QImage& expected);
