#pragma once

#include <cairo.h>

/// The context that was clipped last, by the surface under test or by the test.
cairo_t* LastClippedContext();
