#include <txmap/sources/VectorSource.h>

#include <cpl_conv.h>
#include <cpl_error.h>
#include <cpl_vsi.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <txmap/sources/Gdal.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

/// A folder that is no dataset by itself, as one named "world.gdb" is. Some drivers take every folder for a dataset of
/// the files in it, and what the first of them is depends on what else happens to lie there.
bool IsPlainFolder(const std::string& path)
{
    VSIStatBufL status;
    return VSIStatL(path.c_str(), &status) == 0 && VSI_ISDIR(status.st_mode) &&
           CPLGetExtension(path.c_str())[0] == '\0';
}

bool IsRaster(const std::string& path)
{
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(path.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY));
    return dataset && dataset->GetRasterCount() > 0;
}

/// Why GDAL could not open a source as vector data.
std::string OpenProblem(const std::string& path, const std::string& complaint)
{
    if (std::string problem = FileProblem(path); !problem.empty())
        return problem;
    if (IsRaster(path))
        return "holds raster data, where vector data is wanted";
    return "cannot be read as vector data" + complaint;
}

} // namespace

void VectorSource::Closer::operator()(GDALDataset* dataset) const { GDALClose(dataset); }

VectorSource::VectorSource(const std::string& name) : name(name)
{
    const std::size_t mark = name.rfind('#');
    if (!Open(name))
    {
        const std::string complaint = LastGdalComplaint();
        VSIStatBufL status;
        const bool hasLayerName = mark != std::string::npos && VSIStatL(name.c_str(), &status) != 0;
        if (!hasLayerName)
            throw Failure(ExitCode::Data, name + ": " + OpenProblem(name, complaint));
        const std::string path = name.substr(0, mark);
        if (!Open(path))
            throw Failure(ExitCode::Data, path + ": " + OpenProblem(path, LastGdalComplaint()));
        const std::string wanted = name.substr(mark + 1);
        OGRLayer* const layer = dataset->GetLayerByName(wanted.c_str());
        if (!layer)
            throw Failure(ExitCode::Data, path + ": has no layer " + wanted);
        layers = {layer};
        return;
    }
    for (OGRLayer* const layer : dataset->GetLayers())
        layers.push_back(layer);
    if (layers.empty())
        throw Failure(ExitCode::Data, name + ": holds no layer of vector data");
}

VectorSource::~VectorSource() = default;

bool VectorSource::Open(const std::string& path)
{
    CPLErrorReset();
    if (IsPlainFolder(path))
        return false;
    dataset.reset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR));
    return dataset != nullptr;
}

} // namespace txmap
