#pragma once

#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/labels/LabelFonts.h>
#include <txmap/labels/PlacedLabel.h>

namespace txmap
{

class Canvas;

/// Draws labels.
///
/// Every operation throws a `Failure` with `ExitCode::Drawing` when the backend refuses.
class LabelPainter
{
public:
    /// Makes the surface draw text on the path of the fonts.
    /// @param canvas what is drawn on; it must outlive the painter.
    /// @param fonts what the labels were measured with; they must outlive the painter.
    LabelPainter(Canvas& canvas, LabelFonts& fonts);

    /// Draws each label with its halo.
    void Draw(const std::vector<PlacedLabel>& labels);

private:
    void DrawPlain(const PlacedLabel& label);
    void DrawRich(const PlacedLabel& label);
    void DrawRuns(const PlacedLabel& label);
    void DrawLetters(const TZObjects::TXString& text, const LabelLook& look, const TZObjects::TXPoint& topLeft,
                     const TZObjects::TXColor& color);
    TZObjects::TXPoint TopLeft(const PlacedLabel& label);

    Canvas& canvas;
    LabelFonts& fonts;
};

} // namespace txmap
