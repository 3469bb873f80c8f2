#include <txmap/sources/GeometryReader.h>

#include <cpl_error.h>
#include <ogr_geometry.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

#include <memory>
#include <utility>

#include <txmap/sources/Gdal.h>
#include <txmap/sources/VectorSource.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

// The attributes that colour countries if none is named: first those that are made for it.
constexpr const char* kColorFields[] = {"mapcolor", "mapcolor7", "name", "admin", "id"};

struct TransformationDeleter
{
    void operator()(OGRCoordinateTransformation* object) const { OGRCoordinateTransformation::DestroyCT(object); }
};
using TransformationPtr = std::unique_ptr<OGRCoordinateTransformation, TransformationDeleter>;

bool WantsAreas(LayerRole role) { return role == LayerRole::Countries || role == LayerRole::Lakes; }
bool WantsLines(LayerRole role) { return role == LayerRole::Borders || role == LayerRole::Lines; }

/// Whether geometry of this dimension (0 points, 1 lines, 2 areas) can be drawn in a role. Areas have outlines, so they
/// suit where lines are wanted.
bool Suits(int dimension, LayerRole role)
{
    return role == LayerRole::Any || dimension == 2 || (dimension == 1 && WantsLines(role));
}

bool Suits(OGRLayer& layer, LayerRole role)
{
    const OGRwkbGeometryType type = wkbFlatten(layer.GetGeomType());
    if (type == wkbUnknown || type == wkbGeometryCollection)
        return true;
    return type != wkbNone && Suits(OGR_GT_IsSurface(type) || OGR_GT_IsSubClassOf(type, wkbMultiSurface) ? 2
                                    : OGR_GT_IsCurve(type) || OGR_GT_IsSubClassOf(type, wkbMultiCurve)   ? 1
                                                                                                         : 0,
                                    role);
}

OGRSpatialReference Degrees()
{
    OGRSpatialReference wgs84;
    wgs84.SetWellKnownGeogCS("WGS84");
    wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    return wgs84;
}

/// True when the coordinates of a layer without a coordinate system can be degrees.
bool LooksLikeDegrees(OGRLayer& layer)
{
    const GeoBox earth{-540.0, -91.0, 540.0, 91.0};
    OGREnvelope extent;
    return layer.GetExtent(&extent, TRUE) != OGRERR_NONE ||
           earth.Contains({extent.MinX, extent.MinY, extent.MaxX, extent.MaxY});
}

} // namespace

GeometryReader::GeometryReader(const View& view, std::string colorBy, int classes, const NameRequest& request)
    : builder(view), colorBy(std::move(colorBy)), categories(classes), names(request)
{
}

void GeometryReader::Fail(const std::string& reason) const
{
    throw Failure(ExitCode::Data, sourceName + ": " + reason);
}

void GeometryReader::RequireClipped(bool clipped) const
{
    if (!clipped)
        Fail("feature " + std::to_string(featureId) + " cannot be clipped to the map" + LastGdalComplaint());
}

MapLayer GeometryReader::Read(const VectorSource& data, LayerRole role)
{
    sourceName = data.Name();
    for (OGRLayer* const layer : data.Layers())
        if (Suits(*layer, role))
        {
            colorField = FindColorField(*layer);
            names.Open(*layer, role);
            ReadFeatures(*layer, role);
            return builder.Take(role);
        }
    Fail(WantsAreas(role) ? "has no layer of areas" : WantsLines(role) ? "has no layer of lines" : "has no geometry");
}

void GeometryReader::ReadFeatures(OGRLayer& layer, LayerRole role)
{
    TransformationPtr toDegrees;
    OGRSpatialReference degrees = Degrees();
    OGRSpatialReference* const system = layer.GetSpatialRef();
    if (!system && !LooksLikeDegrees(layer))
        Fail("has no coordinate system, and its coordinates are not degrees");
    if (system && !system->IsSame(&degrees))
    {
        toDegrees.reset(OGRCreateCoordinateTransformation(system, &degrees));
        if (!toDegrees)
            Fail("its coordinate system cannot be converted to degrees" + LastGdalComplaint());
    }

    bool suitable = false;
    bool anything = false;
    layer.ResetReading();
    for (;;)
    {
        CPLErrorReset();
        const OGRFeatureUniquePtr feature(layer.GetNextFeature());
        if (CPLGetLastErrorType() >= CE_Failure)
            Fail("cannot be read to its end" + LastGdalComplaint());
        if (!feature)
            break;
        OGRGeometry* const geometry = feature->GetGeometryRef();
        if (!geometry || geometry->IsEmpty())
            continue;
        anything = true;
        if (!Suits(geometry->getDimension(), role))
            continue;
        suitable = true;
        featureId = feature->GetFID();
        if (toDegrees && geometry->transform(toDegrees.get()) != OGRERR_NONE)
            Fail("feature " + std::to_string(featureId) + " cannot be converted to degrees" + LastGdalComplaint());
        Add(*feature, role);
    }
    if (anything && !suitable)
        Fail(WantsAreas(role) ? "holds no areas" : "holds no lines");
}

void GeometryReader::Add(OGRFeature& feature, LayerRole role)
{
    std::unique_ptr<OGRGeometry> geometry(feature.StealGeometry());
    geometry->flattenTo2D();
    if (geometry->hasCurveGeometry())
        geometry.reset(geometry->getLinearGeometry());
    std::vector<PolygonPtr> polygons;
    name = names.Of(feature);
    AddGeometry(std::move(geometry), role, polygons);
    if (!polygons.empty())
        RequireClipped(builder.AddArea(std::move(polygons), role == LayerRole::Lakes ? 0 : Category(feature), name));
}

void GeometryReader::AddGeometry(std::unique_ptr<OGRGeometry> geometry, LayerRole role,
                                 std::vector<PolygonPtr>& polygons)
{
    const OGRwkbGeometryType type = wkbFlatten(geometry->getGeometryType());
    if (OGR_GT_IsSubClassOf(type, wkbGeometryCollection))
    {
        // The parts are taken out from the end, which copies no point.
        OGRGeometryCollection& collection = *geometry->toGeometryCollection();
        for (int last = collection.getNumGeometries() - 1; last >= 0; --last)
        {
            std::unique_ptr<OGRGeometry> part(collection.getGeometryRef(last));
            collection.removeGeometry(last, FALSE);
            AddGeometry(std::move(part), role, polygons);
        }
    }
    else if (OGR_GT_IsSubClassOf(type, wkbPolyhedralSurface))
    {
        for (const OGRPolygon* const part : *geometry->toPolyhedralSurface())
            AddGeometry(PolygonPtr(part->clone()), role, polygons);
    }
    else if (OGR_GT_IsSubClassOf(type, wkbPolygon))
    {
        // A triangle is a polygon of a class of its own, which the geometry library does not join or clip.
        if (!WantsLines(role))
            polygons.emplace_back(OGRGeometryFactory::forceToPolygon(geometry.release())->toPolygon());
        else
            for (const OGRLinearRing* const ring : *geometry->toPolygon())
                RequireClipped(builder.AddLine(*ring));
    }
    else if (type == wkbLineString && !WantsAreas(role))
        RequireClipped(builder.AddLine(*geometry->toLineString()));
    else if (type == wkbPoint && role == LayerRole::Any)
    {
        // A feature of several points is labelled at one of them.
        if (builder.AddPlace(geometry->toPoint()->getX(), geometry->toPoint()->getY(), name))
            name.text.clear();
    }
}

int GeometryReader::FindColorField(OGRLayer& layer) const
{
    OGRFeatureDefn& attributes = *layer.GetLayerDefn();
    if (!colorBy.empty())
        return attributes.GetFieldIndex(colorBy.c_str());
    for (const char* const name : kColorFields)
        if (const int field = attributes.GetFieldIndex(name); field >= 0)
            return field;
    return -1;
}

int GeometryReader::Category(const OGRFeature& feature)
{
    if (colorField < 0 && !colorBy.empty())
        Fail("has no attribute " + colorBy + ", which --color-by asks for");
    if (colorField < 0)
        return categories.Of(std::to_string(feature.GetFID() + 1));
    return categories.Of(feature.GetFieldAsString(colorField));
}

} // namespace txmap
