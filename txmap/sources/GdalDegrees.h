#pragma once

#include <memory>

#include <ogr_spatialref.h>

namespace txmap
{

struct TransformationDeleter
{
    void operator()(OGRCoordinateTransformation* transformation) const
    {
        OCTDestroyCoordinateTransformation(transformation);
    }
};
using Transformation = std::unique_ptr<OGRCoordinateTransformation, TransformationDeleter>;

/// How many points along each side of a box are looked at to bring the box into another coordinate system.
constexpr int kBoundsSamples = 21;

/// The coordinate system of degrees, longitude first.
inline OGRSpatialReference Degrees()
{
    OGRSpatialReference system;
    system.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    system.SetWellKnownGeogCS("WGS84");
    return system;
}

} // namespace txmap
