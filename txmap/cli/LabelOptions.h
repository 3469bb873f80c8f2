#pragma once

#include <optional>
#include <string>

#include <txbase/TXColor.h>
#include <txmap/labels/TextPath.h>

namespace TZObjects
{

/// The pale band around letters that keeps them readable over lines.
struct LabelHalo
{
    double width = 0.0; ///< How far it reaches beyond the letters, in pixels; 0 for no halo.
    TXColor color;
};

/// What the command line says about labels.
struct LabelOptions
{
    bool wanted = false;
    std::string field;             ///< The attribute that holds the names; empty for what each layer offers.
    std::optional<int> size;       ///< Pixels; nothing for what suits the picture.
    std::optional<LabelHalo> halo; ///< Nothing for what the style has.
    std::string font;              ///< The name of a face; empty for the system's own.
    TextPath path = TextPath::Qt;
};

/// Reads the value of --text. @throw Failure with `ExitCode::Usage`.
TextPath ParseTextPath(const std::string& text);

/// Reads the value of --label-size. @throw Failure with `ExitCode::Usage`.
int ParseLabelSize(const std::string& text);

/// Reads the value of --label-halo: a width in pixels, a colon, and a colour as #RGB, #RRGGBB or one of the sixteen
/// names that HTML began with. @throw Failure with `ExitCode::Usage`.
LabelHalo ParseLabelHalo(const std::string& text);

} // namespace TZObjects
