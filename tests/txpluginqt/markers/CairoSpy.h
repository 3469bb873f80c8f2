#pragma once

#include <QImage>

#include <cairo.h>

// The program's own functions of these names stand before cairo's, so that a test reaches the context that a surface
// keeps to itself, and lets a conversion fail that cairo would always make.

/// The context that was made last over the image's pixels.
cairo_t* ContextOver(const QImage& image);

/// No text is converted to glyphs while one of these lives.
class FailingConversion
{
public:
    FailingConversion();
    ~FailingConversion();
    FailingConversion(const FailingConversion&) = delete;
    FailingConversion& operator=(const FailingConversion&) = delete;
};
