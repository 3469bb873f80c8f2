#include <txmap/render/PictureFile.h>

#include <optional>

#include <txgraphics/TXGraphics.h>
#include <txmap/map/MapView.h>
#include <txmap/output/GeoTiff.h>
#include <txmap/output/OutputFile.h>
#include <txmap/output/WorldFile.h>
#include <txmap/support/Failure.h>
#include <txmap/support/FileSuffix.h>

namespace txmap
{
namespace
{

/// Where the pixels of a view lie in the units of its coordinate system.
GeoReference ReferenceOf(const MapView& view)
{
    const double world = view.MapProjection().Circumference();
    const auto units = [&](double column, double row)
    {
        const TZObjects::TXPoint place = view.ToPlace({column, row});
        return TZObjects::TXPoint((place.x - 0.5) * world, (0.5 - place.y) * world);
    };
    const PixelSize size = view.Size();
    const TZObjects::TXPoint origin = units(0, 0);
    const TZObjects::TXPoint right = units(size.width, 0);
    const TZObjects::TXPoint down = units(0, size.height);
    return {view.MapProjection().Name(),       origin.x, (right.x - origin.x) / size.width,
            (down.x - origin.x) / size.height, origin.y, (right.y - origin.y) / size.width,
            (down.y - origin.y) / size.height};
}

} // namespace

void SavePicture(TZObjects::TXGraphics& picture, const MapView& view, OutputFile& output, const std::string& name,
                 bool worldFile)
{
    const GeoReference reference = ReferenceOf(view);
    std::optional<OutputFile> world;
    if (worldFile)
    {
        world.emplace(WorldFileName(name), "--world-file");
        if (!WriteWorldFile(world->Begin(), reference))
            throw Failure(ExitCode::Drawing, world->Name() + ": cannot be written" + world->WriteProblem());
    }
    const auto save = [&](OutputFile& file, const std::string& suffix)
    {
        if (!picture.Save(file.Begin(suffix).c_str()))
            throw Failure(ExitCode::Drawing, file.Name() + ": the picture cannot be written" + file.WriteProblem());
    };
    const std::string suffix = FileSuffix(name);
    if (suffix == ".tif" || suffix == ".tiff")
    {
        // Never gets a name of its own.
        OutputFile pixels(name);
        save(pixels, ".png");
        WriteGeoTiff(pixels.Path(), output.Begin(), output.Name(), reference);
    }
    else
        save(output, {});
    // All writing is done: what is left are two renames.
    if (world)
        world->Commit();
    output.Commit();
}

} // namespace txmap
