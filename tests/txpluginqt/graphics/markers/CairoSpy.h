#pragma once

#include <QImage>

#include <cairo.h>

// The program's own functions of these names stand before cairo's, so that a test reaches the context that a surface
// keeps to itself, sees numbers that no
// picture shows, and lets a conversion fail that cairo would always make.

/// The context that was made last over the image's pixels.
cairo_t* ContextOver(const QImage& image);

/// The angle in radians that a context was turned by last.
double LastRotation();

/// No text is converted to glyphs while one of these lives.
class FailingConversion
{
public:
    FailingConversion();
    ~FailingConversion();
    FailingConversion(const FailingConversion&) = delete;
    FailingConversion& operator=(const FailingConversion&) = delete;
};
