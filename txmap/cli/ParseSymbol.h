#pragma once

#include <string>

#include <txmap/drawing/PlaceSymbol.h>

namespace txmap
{

/// Reads the value of --symbol: the name of a shape, or "font:FACE:CHARACTER" with a size behind it if need be.
/// @throw Failure with `ExitCode::Usage`.
PlaceSymbol ParseSymbol(const std::string& text);

/// Reads the value of --symbol-size. @throw Failure with `ExitCode::Usage`.
double ParseSymbolSize(const std::string& text);

} // namespace txmap
