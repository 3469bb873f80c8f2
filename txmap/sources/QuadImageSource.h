#pragma once

#include <cstddef>
#include <memory>

#include <txmap/sources/RasterSource.h>

namespace txmap
{

/// A picture that is stretched between four corners.
class QuadImageSource final : public RasterSource
{
public:
    /// The most pixels a side of the picture.
    static constexpr int kLongestSide = 16384;
    /// A picture of at most so many bytes of pixels is decoded once; a larger one whenever it is seen.
    static constexpr std::size_t kMostBytes = std::size_t{128} << 20;

    /// @throw Failure with `ExitCode::Data` if the corners or the file are none.
    QuadImageSource(const std::string& name, const Json& source, const SourceFolder& folder);

    void Load(const MapView& view, SourceDiagnostics& diagnostics) override;
    std::optional<GeoBox> Extent() const override;

private:
    MercatorBox Bounds() const;
    std::shared_ptr<const Raster> Picture(SourceDiagnostics& diagnostics);

    std::string file;
    std::array<TZObjects::TXPoint, 4> corners;
    std::shared_ptr<const Raster> kept;
};

} // namespace txmap
