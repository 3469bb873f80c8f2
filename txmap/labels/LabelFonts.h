#pragma once

#include <map>
#include <string>
#include <utility>

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXFont.h>
#include <txmap/labels/PlacedLabel.h>
#include <txmap/labels/TextPath.h>

namespace TZObjects
{
class TXGraphicsEngine;
} // namespace TZObjects

namespace txmap
{

/// @throw Failure with `ExitCode::Drawing` when the backend refused to measure or draw a label.
void RequireLabel(bool done);

/// The fonts that labels are measured and drawn with, one for each size and spacing.
///
/// Every operation throws a `Failure` with `ExitCode::Drawing` when the backend refuses.
class LabelFonts
{
public:
    /// @param engine where fonts come from; it must outlive this object.
    /// @param face the name of an installed face; empty for the backend's own.
    /// @param path what measures and draws; the engine must make its fonts for it.
    LabelFonts(TZObjects::TXGraphicsEngine& engine, std::string face, TextPath path);

    TextPath Path() const { return path; }
    /// The font of a look.
    TZObjects::TXRefPtr<TZObjects::TXFont> FontFor(const LabelLook& look);
    /// The room of the letters: without what fonts keep free above them for accents, if there are none.
    LabelExtent Measure(const LabelText& text, const LabelLook& look);
    /// What fonts keep free above letters without accents, which labels do without; 0 for letters that may have some.
    double BlankAbove(const LabelText& text, const LabelLook& look);

private:
    LabelExtent MeasureLines(const TZObjects::TXString& text, const LabelLook& look);

    TZObjects::TXGraphicsEngine& engine;
    std::string face;
    TextPath path;
    std::map<std::pair<int, double>, TZObjects::TXRefPtr<TZObjects::TXFont>> fonts; ///< By size and spacing.
};

} // namespace txmap
