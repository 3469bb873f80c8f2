#pragma once

#include <memory>
#include <string>
#include <vector>

class GDALDataset;
class OGRLayer;

namespace TZObjects
{

/// Makes GDAL ready for use, and silent: what it has to say goes into our own messages.
void PrepareGdal();

/// What GDAL complained about last, in brackets, to be put behind a message; empty for nothing.
std::string LastGdalComplaint();

/// A source of vector data that is open for reading.
class VectorSource
{
public:
    /// Opens @p name, as `LayerRequest::source` has it. @throw Failure with `ExitCode::Data` when that fails.
    explicit VectorSource(const std::string& name);
    ~VectorSource();

    /// The layer that was asked for by name, else all layers; at least one. They belong to the source.
    const std::vector<OGRLayer*>& Layers() const { return layers; }
    /// The source as the user knows it.
    const std::string& Name() const { return name; }

private:
    struct Closer
    {
        void operator()(GDALDataset* dataset) const;
    };

    bool Open(const std::string& path);

    std::string name;
    std::unique_ptr<GDALDataset, Closer> dataset;
    std::vector<OGRLayer*> layers;
};

} // namespace TZObjects
