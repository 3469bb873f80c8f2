#pragma once

namespace txqt
{

/// True while outlines are to be drawn by the rasteriser: the engine manager has it switched on, and the self-check
/// found that it gives the pixels of this process's Qt.
bool RasterizerIsOn();

/// Draws a dozen shapes both ways on a small picture, the first time that it is called. Any difference, or a Qt of
/// another version, leaves everything to QPainter for as long as the process lives, and a warning says so once.
void CheckRasterizer();

} // namespace txqt
