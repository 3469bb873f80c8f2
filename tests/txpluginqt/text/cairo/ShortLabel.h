#pragma once

#include <tests/txpluginqt/cairo/CairoTwins.h>
#include <tests/txpluginqt/text/Label.h>

#include "CairoLabels.h"

/// A label of one short word, in the middle of the images of a `CairoTwins`.
struct ShortLabel : Label
{
    ShortLabel();
};

/// Draws the label of an entry in direct cairo calls, with the face that is selected in the context.
void DrawDirectly(cairo_t* context, Entry entry, const Label& label, const Look& look);
