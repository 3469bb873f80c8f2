#include <txmap/sources/GdalFeatureReader.h>

#include <cpl_error.h>
#include <ogrsf_frmts.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include <txmap/sources/FeatureSetBuilder.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/GdalDegrees.h>
#include <txmap/sources/GeoJsonGeometry.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/VectorSource.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

/// An attribute, as JSON would have it. Lists of numbers come as texts.
Value ValueOf(const OGRFeature& feature, int field, const OGRFieldDefn& definition)
{
    if (!feature.IsFieldSetAndNotNull(field))
        return {};
    switch (definition.GetType())
    {
    case OFTInteger:
        if (definition.GetSubType() == OFSTBoolean)
            return feature.GetFieldAsInteger(field) != 0;
        return static_cast<double>(feature.GetFieldAsInteger(field));
    case OFTInteger64:
        return static_cast<double>(feature.GetFieldAsInteger64(field));
    case OFTReal:
        return feature.GetFieldAsDouble(field);
    case OFTStringList:
    {
        ValueArray array;
        for (char** text = feature.GetFieldAsStringList(field); text && *text; ++text)
            array.emplace_back(*text);
        return array;
    }
    default:
        return feature.GetFieldAsString(field);
    }
}

/// False for a layer that says that it holds other geometry. Areas have outlines, so they are lines, too.
bool MayHold(OGRLayer& layer, const std::optional<GeometryType>& wanted)
{
    const OGRwkbGeometryType type = wkbFlatten(layer.GetGeomType());
    if (!wanted || type == wkbUnknown || type == wkbGeometryCollection || type == wkbNone)
        return type != wkbNone;
    const bool isArea = OGR_GT_IsSurface(type) || OGR_GT_IsSubClassOf(type, wkbMultiSurface);
    const bool isLine = OGR_GT_IsCurve(type) || OGR_GT_IsSubClassOf(type, wkbMultiCurve);
    return isArea || (isLine && wanted == GeometryType::LineString);
}

/// True when the coordinates of a layer without a coordinate system can be degrees.
bool LooksLikeDegrees(OGRLayer& layer)
{
    OGREnvelope box;
    return layer.GetExtent(&box, TRUE) != OGRERR_NONE ||
           !(IsFarFromDegrees({box.MinX, box.MinY}) || IsFarFromDegrees({box.MaxX, box.MaxY}));
}

/// Reads one layer.
class LayerReader
{
public:
    LayerReader(OGRLayer& layer, const std::string& name, const GeoJsonOptions& options, FeatureSetBuilder& builder,
                FeatureSet& set)
        : layer(layer), name(name), options(options), builder(builder), set(set)
    {
        OGRSpatialReference degrees = Degrees();
        const OGRSpatialReference* const system = layer.GetSpatialRef();
        if (!system && !LooksLikeDegrees(layer))
            throw Failure(ExitCode::Data, name + ": has no coordinate system, and its coordinates are not degrees");
        if (!system || system->IsSame(&degrees))
            return;
        toDegrees.reset(OGRCreateCoordinateTransformation(system, &degrees));
        toSystem.reset(OGRCreateCoordinateTransformation(&degrees, system));
        if (!toDegrees)
            throw Failure(ExitCode::Data, name + ": cannot be brought into degrees" + LastGdalComplaint());
    }

    void Read(const std::optional<MercatorBox>& visible)
    {
        SelectFields();
        if (visible)
            FilterByPlace(*visible);
        CPLErrorReset();
        layer.ResetReading();
        while (const OGRFeatureUniquePtr feature{layer.GetNextFeature()})
        {
            ReadFeature(*feature);
            ++number;
        }
        if (CPLGetLastErrorType() >= CE_Failure)
            throw Failure(ExitCode::Data, name + ": cannot be read to its end" + LastGdalComplaint());
    }

    bool HasFarPositions() const { return hasFarPositions; }

    /// The box around all features, in world coordinates.
    std::optional<MercatorBox> Extent()
    {
        OGREnvelope box;
        if (layer.GetExtent(&box, FALSE) != OGRERR_NONE)
            return std::nullopt;
        if (toDegrees && !toDegrees->TransformBounds(box.MinX, box.MinY, box.MaxX, box.MaxY, &box.MinX, &box.MinY,
                                                     &box.MaxX, &box.MaxY, kBoundsSamples))
            return std::nullopt;
        return set.projection.ToWorld(GeoBox{box.MinX, box.MinY, box.MaxX, box.MaxY});
    }

private:
    void SelectFields()
    {
        const OGRFeatureDefn& definition = *layer.GetLayerDefn();
        std::vector<const char*> ignored;
        for (int i = 0; i < definition.GetFieldCount(); ++i)
        {
            const OGRFieldDefn& field = *definition.GetFieldDefn(i);
            const std::string fieldName = field.GetNameRef();
            const auto has = [&](const WantedProperties& wanted) { return !wanted || wanted->count(fieldName) > 0; };
            if (has(options.properties) || (options.filter.accepts && has(options.filter.properties)) ||
                (!options.promotedId.empty() && fieldName == options.promotedId))
                fields.push_back({i, &field, builder.KeyNumber(fieldName)});
            else
                ignored.push_back(field.GetNameRef());
        }
        ignored.push_back("OGR_STYLE");
        ignored.push_back(nullptr);
        // Some drivers cannot leave anything out, and read it for nothing.
        layer.SetIgnoredFields(ignored.data());
    }

    /// Leaves out what lies outside, if the box can be told in the layer's own coordinate system.
    void FilterByPlace(const MercatorBox& visible)
    {
        if (visible.right - visible.left >= 1.0 || visible.left < 0.0 || visible.right > 1.0)
            return;
        const GeoBox degrees = set.projection.ToDegrees(visible);
        double box[4] = {degrees.west, degrees.south, degrees.east, degrees.north};
        if (box[1] < -85.0)
            box[1] = -90.0;
        if (box[3] > 85.0)
            box[3] = 90.0;
        if (toDegrees && (!toSystem || !toSystem->TransformBounds(box[0], box[1], box[2], box[3], &box[0], &box[1],
                                                                  &box[2], &box[3], kBoundsSamples)))
            return;
        // Data that counts from 0 to 360 has the western half of the world elsewhere.
        OGREnvelope all;
        if (!toDegrees && (layer.GetExtent(&all, FALSE) != OGRERR_NONE || all.MaxX > 180.0 || all.MinX < -180.0))
            return;
        if (std::all_of(std::begin(box), std::end(box), [](double edge) { return std::isfinite(edge); }))
            layer.SetSpatialFilterRect(box[0], box[1], box[2], box[3]);
    }

    void ReadFeature(OGRFeature& feature)
    {
        std::unique_ptr<OGRGeometry> geometry(feature.StealGeometry());
        if (!geometry || geometry->IsEmpty())
            return;
        if (geometry->hasCurveGeometry())
            geometry.reset(geometry->getLinearGeometry());
        if (geometry && toDegrees && geometry->transform(toDegrees.get()) != OGRERR_NONE)
            // A place that has no degrees, as outside the domain of a projection.
            return CPLErrorReset();
        if (!geometry)
            return;
        Value id;
        if (options.generatesIds)
            id = static_cast<double>(number);
        else if (options.promotedId.empty() && feature.GetFID() != OGRNullFID)
            id = static_cast<double>(feature.GetFID());
        values.clear();
        for (const Field& field : fields)
        {
            values.push_back(ValueOf(feature, field.index, *field.definition));
            if (field.definition->GetNameRef() == options.promotedId)
                id = FeatureId(values.back());
        }
        AddGeometry(*geometry, id);
    }

    void AddGeometry(const OGRGeometry& geometry, const Value& id)
    {
        const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
        if (type == wkbGeometryCollection)
        {
            for (const OGRGeometry* const member : *geometry.toGeometryCollection())
                AddGeometry(*member, id);
            return;
        }
        builder.Begin(GeometryType::Point, id);
        AddParts(geometry);
        for (std::size_t i = 0; i < fields.size(); ++i)
            builder.AddTag(fields[i].key, values[i]);
        if (!builder.End() || !options.filter.accepts)
            return;
        FeatureAttributes asked(set);
        asked.Select(set.features.back());
        if (!options.filter.accepts(asked))
            builder.DropLast();
    }

    void AddParts(const OGRGeometry& geometry)
    {
        switch (wkbFlatten(geometry.getGeometryType()))
        {
        case wkbPoint:
            builder.SetType(GeometryType::Point);
            AddPoint(geometry.toPoint()->getX(), geometry.toPoint()->getY());
            builder.EndPart();
            break;
        case wkbLineString:
            builder.SetType(GeometryType::LineString);
            AddCurve(*geometry.toLineString());
            builder.EndPart();
            break;
        case wkbPolygon:
        case wkbTriangle:
        {
            builder.SetType(GeometryType::Polygon);
            bool outer = true;
            for (const OGRLinearRing* const ring : *geometry.toPolygon())
            {
                AddCurve(*ring);
                builder.EndRing(outer);
                outer = false;
            }
            break;
        }
        case wkbMultiPoint:
        case wkbMultiLineString:
        case wkbMultiPolygon:
            for (const OGRGeometry* const member : *geometry.toGeometryCollection())
                AddParts(*member);
            break;
        case wkbPolyhedralSurface:
        case wkbTIN:
            for (const OGRGeometry* const member : *geometry.toPolyhedralSurface())
                AddParts(*member);
            break;
        default:
            break;
        }
    }

    void AddCurve(const OGRSimpleCurve& curve)
    {
        for (int i = 0; i < curve.getNumPoints(); ++i)
            AddPoint(curve.getX(i), curve.getY(i));
    }

    void AddPoint(double x, double y)
    {
        if (!std::isfinite(x) || !std::isfinite(y))
            return;
        hasFarPositions = hasFarPositions || IsFarFromDegrees({x, y});
        builder.AddPosition({x, y});
    }

    struct Field
    {
        int index;
        const OGRFieldDefn* definition;
        std::uint32_t key;
    };

    OGRLayer& layer;
    const std::string& name;
    const GeoJsonOptions& options;
    FeatureSetBuilder& builder;
    FeatureSet& set;
    Transformation toDegrees; ///< Null for a layer in degrees.
    Transformation toSystem;
    std::vector<Field> fields;
    std::vector<Value> values; ///< Of the feature that is being read.
    std::size_t number = 0;    ///< Of that feature.
    bool hasFarPositions = false;
};

} // namespace

std::optional<MercatorBox> GdalFeatureReader::Read(const std::optional<MercatorBox>& visible,
                                                   FeatureSetBuilder& builder, FeatureSet& set,
                                                   SourceDiagnostics& diagnostics)
{
    const VectorSource data(name);
    std::vector<OGRLayer*> suitable;
    for (OGRLayer* const layer : data.Layers())
        if (MayHold(*layer, geometry))
            suitable.push_back(layer);
    if (suitable.empty())
        throw Failure(ExitCode::Data, name + (!geometry                            ? ": has no geometry"
                                              : *geometry == GeometryType::Polygon ? ": has no layer of areas"
                                                                                   : ": has no layer of lines"));
    if (data.Layers().size() > 1)
        chosenLayer = suitable.front()->GetName();
    std::string others;
    for (std::size_t i = 1; i < suitable.size(); ++i)
        others += (i > 1 ? ", " : "") + std::string(suitable[i]->GetName());
    if (!others.empty())
        diagnostics.Warn(name + ": has more layers than " + chosenLayer + ", which are not drawn: " + others);
    LayerReader reader(*suitable.front(), name, options, builder, set);
    const std::optional<MercatorBox> extent = reader.Extent();
    reader.Read(visible);
    if (reader.HasFarPositions())
        diagnostics.Report(name + ": has coordinates that are no degrees");
    return extent;
}

} // namespace txmap
