#pragma once

#include <memory>
#include <string>
#include <vector>

class GDALDataset;
class OGRLayer;

namespace txmap
{

/// A source of vector data that is open for reading.
class VectorSource
{
public:
    /// Opens @p name: anything that GDAL opens, with "#" and the name of a layer behind it if need be. @throw Failure
    /// with `ExitCode::Data` when that fails.
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

} // namespace txmap
