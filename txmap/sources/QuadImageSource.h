#pragma once

#include <txmap/sources/RasterSource.h>

namespace txmap
{

/// A picture that is stretched between four corners.
class QuadImageSource final : public RasterSource
{
public:
    /// The most pixels a side of the picture.
    static constexpr int kLongestSide = 16384;

    /// @throw Failure with `ExitCode::Data` if the corners or the file are none.
    QuadImageSource(const std::string& name, const Json& source, const SourceFolder& folder);

    void Load(const MapView& view, SourceDiagnostics& diagnostics) override;
    std::optional<GeoBox> Extent() const override;

private:
    MercatorBox Bounds() const;

    std::string file;
    std::array<TZObjects::TXPoint, 4> corners;
};

} // namespace txmap
