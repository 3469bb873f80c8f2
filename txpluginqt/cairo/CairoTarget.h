#pragma once

#include <utility>
#include <vector>

#include <cairo.h>

#include <txgraphics/TXFont.h>
#include <txgraphics/TXImage.h>
#include <txpluginqt/cairo/CairoHandles.h>

namespace txqt
{

/// A cairo context over the pixels of an image, on which a surface draws its labels.
class CairoTarget
{
public:
    /// Makes the context; there is none for pixels that cairo cannot draw on.
    /// @param image null for none.
    void Create(TZObjects::TXImage* image);
    void Destroy();
    /// Destroys the context only with this object: hosts may still hold it when an image gets new pixels.
    void Retire();

    /// Chooses how the context draws letters: well antialiased, hinted a little.
    void ApplyFontOptions();
    /// Selects the font's face and height, where there is a context.
    /// @param font null for none.
    void SelectFont(const TZObjects::TXFont* font);

    /// The context; null when there is none.
    cairo_t* Get() const { return context.get(); }
    /// The context, made again when it has fallen into an error: one label that cairo could not draw must not take all
    /// later ones with it.
    cairo_t* Ready(TZObjects::TXImage* image, const TZObjects::TXFont* font);

private:
    CairoSurface surface;
    CairoContext context;
    bool hasFontOptions = false;
    std::vector<std::pair<CairoSurface, CairoContext>> retired;
};

} // namespace txqt
