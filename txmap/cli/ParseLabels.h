#pragma once

#include <string>

#include <txmap/labels/TextPath.h>
#include <txmap/style/Style.h>

namespace txmap
{

/// Reads the value of --text. @throw Failure with `ExitCode::Usage`.
TextPath ParseTextPath(const std::string& text);

/// Reads the value of --label-size. @throw Failure with `ExitCode::Usage`.
int ParseLabelSize(const std::string& text);

/// Reads the value of --label-halo: a width in pixels, a colon, and a colour as #RGB, #RRGGBB or one of the sixteen
/// names that HTML began with. @throw Failure with `ExitCode::Usage`.
LabelHalo ParseLabelHalo(const std::string& text);

} // namespace txmap
