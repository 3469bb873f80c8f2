#pragma once

#include <string>

namespace TZObjects
{
class TXGraphics;
} // namespace TZObjects

namespace txmap
{

class MapView;
class OutputFile;

/// Writes a picture of a map to its file and gives it its name. A suffix of .tif or .tiff makes a GeoTIFF.
/// @param picture what the suffix of @p output picks the format of.
/// @param name the file as the user gave it.
/// @param worldFile writes a world file beside it, too.
/// @throw Failure with `ExitCode::Drawing`.
void SavePicture(TZObjects::TXGraphics& picture, const MapView& view, OutputFile& output, const std::string& name,
                 bool worldFile = false);

} // namespace txmap
