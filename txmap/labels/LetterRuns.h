#pragma once

#include <string>
#include <vector>

#include <txgraphics/TXFont.h>
#include <txmap/labels/PlacedLabel.h>

namespace txmap
{

/// Letters that are drawn in one go.
struct LetterRun
{
    std::wstring letters;
    double left = 0.0; ///< Both from the top left of the label, in pixels.
    double top = 0.0;
};

/// How cairo measures a label.
class LetterRuns
{
public:
    /// @param font what is measured with; it must outlive this object.
    /// @param spacing between letters, in pixels.
    LetterRuns(const TZObjects::TXFont& font, double spacing) : font(font), spacing(spacing) {}

    /// The room of a text of one or several lines, that of accents and descenders included.
    LabelExtent Measure(const std::wstring& text) const;
    /// Breaks a text into what can be drawn in one go: lines, or the letters of spaced lines. Lines are centred.
    ///
    /// Neither is left to the backend: it centres lines by their ink, and leaves out the spaces of spaced ones.
    std::vector<LetterRun> Break(const std::wstring& text) const;

private:
    double LineHeight() const;
    double Width(const std::wstring& line) const;
    double Advance(const std::wstring& line) const;
    double InkWidth(const std::wstring& text) const;

    const TZObjects::TXFont& font;
    double spacing;
};

} // namespace txmap
