#pragma once

#include <QPainter>

#include <tests/support/PainterState.h>
#include <tests/txpluginqt/text/cairo/ShortLabel.h>

#include "ClipRegion.h"

/// A surface under test with cairo drawing on, and beside it an image of the same pixels that a painter and a cairo
/// context draw on directly. Every operation is made on both sides.
class TextTwins
{
public:
    explicit TextTwins(TZObjects::TXImage::Format format = TZObjects::TXImage::Format_ARGB32_Premultiplied,
                       const Look& look = Look());

    TZObjects::TXGraphics& Surface() { return twins.Surface(); }
    QPainter& SurfacePainter() { return twins.SurfacePainter(); }
    QPainter& Direct() { return direct; }
    cairo_t* DirectContext() { return twins.Direct(); }
    QImage& Actual() { return twins.Actual(); }
    QImage& Expected() { return twins.Expected(); }

    void Clip(const Rings& region, bool fill, const TZObjects::TXColor& color);
    void Clip(const Rings& region, const TZObjects::TXGraphics::stGradientParams& gradient);
    /// Clips without filling the region.
    void Clip(const Rings& region);
    void RestoreClip();
    void Label(const ShortLabel& call, Entry entry = Entry::StringAt);
    /// A label of two lines over most of the images.
    void Label();
    /// A translucent fill over all of the images.
    void Flood();
    /// Makes the same change of state to both painters.
    template <class Change>
    void Both(Change change)
    {
        change(SurfacePainter());
        change(direct);
    }

    /// Puts both images back to the background; clips stay.
    void Wipe() { twins.Wipe(); }
    /// Success when both images hold the same pixels and both painters are in the same state.
    ::testing::AssertionResult Same();
    /// The same, where something must have been drawn since the last wipe.
    ::testing::AssertionResult SameAndInked();
    /// True when the surface under test has not drawn anything since the last wipe.
    bool Untouched() { return twins.Untouched(); }

private:
    Look look;
    CairoTwins twins;
    QPainter direct;
};

/// A label of two lines over most of the images of a `TextTwins`.
ShortLabel WideLabel();
