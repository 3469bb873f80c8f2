#include <txmap/sources/FeatureNames.h>

#include <ogrsf_frmts.h>

#include <cmath>
#include <initializer_list>

namespace txmap
{
namespace
{

int FirstField(OGRFeatureDefn& attributes, std::initializer_list<const char*> names)
{
    for (const char* const name : names)
        if (const int field = attributes.GetFieldIndex(name); field >= 0)
            return field;
    return -1;
}

double NumberOr(double otherwise, const OGRFeature& feature, int field)
{
    if (field < 0 || !feature.IsFieldSetAndNotNull(field))
        return otherwise;
    const double number = feature.GetFieldAsDouble(field);
    return std::isfinite(number) ? number : otherwise;
}

} // namespace

void FeatureNames::Open(OGRLayer& layer, LayerRole role)
{
    fields = {};
    if (!request.wanted || (role != LayerRole::Any && role != LayerRole::Countries))
        return;
    OGRFeatureDefn& attributes = *layer.GetLayerDefn();
    fields.name = request.field.empty() ? FirstField(attributes, {"name", "name_en", "name_long", "nameascii", "admin"})
                                        : attributes.GetFieldIndex(request.field.c_str());
    fields.capital = FirstField(attributes, {"adm0cap", "capital"});
    fields.rank = FirstField(attributes, {"labelrank", "scalerank"});
    fields.population = FirstField(attributes, {"pop_max", "population", "pop"});
    found = found || fields.name >= 0 || (attributes.GetFieldCount() == 0 && layer.GetFeatureCount() == 0);
}

FeatureName FeatureNames::Of(const OGRFeature& feature) const
{
    FeatureName name;
    if (fields.name < 0 || !feature.IsFieldSetAndNotNull(fields.name))
        return name;
    name.text = const_cast<OGRFeature&>(feature).GetFieldAsString(fields.name);
    name.capital = NumberOr(0.0, feature, fields.capital) == 1.0;
    // What has no rank comes last.
    name.rank = fields.rank < 0 ? 0.0 : NumberOr(1e9, feature, fields.rank);
    name.population = NumberOr(0.0, feature, fields.population);
    return name;
}

std::string MissingNames(const NameRequest& request)
{
    return request.field.empty()
               ? "--labels: no layer of countries or places has an attribute name; --label-field picks another"
               : "--label-field " + request.field + ": no layer of countries or places has this attribute";
}

} // namespace txmap
