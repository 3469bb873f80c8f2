#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXFont.h>
#include <txgraphics/TXGraphics.h>
#include <txmap/labels/LabelLayout.h>

namespace TZObjects
{

class TXGraphicsEngine;

/// Measures labels, and draws them on a surface.
///
/// Every operation throws a `Failure` with `ExitCode::Drawing` when the backend refuses.
class LabelPainter
{
public:
    /// @param engine where fonts and pens come from; it must outlive the painter.
    /// @param surface what is drawn on; it must outlive the painter.
    /// @param face the name of an installed face; empty for the backend's own.
    /// @param path what measures and draws; the engine's fonts must be made for it, as a `PluginSession` sets.
    LabelPainter(TXGraphicsEngine& engine, TXGraphics& surface, std::string face, TextPath path);

    /// The room of the letters: without what fonts keep free above them for accents, if there are none.
    LabelExtent Measure(const LabelText& text, const LabelLook& look);
    /// Draws each label with its halo.
    void Draw(const std::vector<PlacedLabel>& labels);

private:
    void DrawPlain(const PlacedLabel& label);
    void DrawRich(const PlacedLabel& label);
    void DrawRuns(const PlacedLabel& label);
    void DrawLetters(const TXString& text, const LabelLook& look, const TXPoint& topLeft, const TXColor& color);
    LabelExtent MeasureLines(const TXString& text, const LabelLook& look);
    double BlankAbove(const LabelText& text, const LabelLook& look);
    TXPoint TopLeft(const PlacedLabel& label);
    TXRefPtr<TXFont> FontFor(const LabelLook& look);

    TXGraphicsEngine& engine;
    TXGraphics& surface;
    std::string face;
    TextPath path;
    std::map<std::pair<int, double>, TXRefPtr<TXFont>> fonts; ///< By size and spacing.
};

} // namespace TZObjects
