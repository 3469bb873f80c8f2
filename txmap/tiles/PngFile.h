#pragma once

#include <string>

#include <txmap/tiles/TileImage.h>

namespace txmap
{

class ColorPalette;

/// The PNG file of a tile in the colours of its palette. @throw Failure with `ExitCode::Drawing`.
std::string PalettePng(const PixelSize& size, const ColorPalette& palette);
/// The PNG file of a tile with each pixel's own colour, without alpha where no pixel has any.
/// @throw Failure with `ExitCode::Drawing`.
std::string ColorPng(const TilePixels& tile);

} // namespace txmap
