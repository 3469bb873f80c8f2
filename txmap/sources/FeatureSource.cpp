#include <txmap/sources/FeatureSource.h>

#include <txmap/sources/GeoJsonSource.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/sources/VectorTileSource.h>
#include <txmap/style/Expression.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

SourceFilter FilterOf(const std::string& name, const Json& source)
{
    const auto json = source.find("filter");
    if (json == source.end())
        return {};
    CompiledExpression compiled = CompileProperty(*json, PropertySpec::Filter());
    if (const auto* const errors = std::get_if<std::vector<ParsingError>>(&compiled))
        throw Failure(ExitCode::Data, "the source " + name + " has a filter that is none" +
                                          (errors->empty() ? "" : ": " + errors->front().message));
    const auto& expression = std::get<Expression>(compiled);
    const UsedProperties used = expression.Properties();
    const auto accepts = [expression](const ExpressionFeature& feature)
    {
        EvaluationContext context;
        context.zoom = 0.0;
        context.feature = &feature;
        return expression.EvaluateOrDefault(context).IsTruthy();
    };
    return {accepts, used.all ? WantedProperties() : WantedProperties(used.names)};
}

} // namespace

std::unique_ptr<FeatureSource> MakeFeatureSource(const std::string& name, const Json& source,
                                                 const SourceFolder& folder)
{
    const auto type = source.find("type");
    const std::string text = type != source.end() && type->is_string() ? type->get<std::string>() : "";
    if (text == "geojson")
        return std::make_unique<GeoJsonSource>(name, source, folder, FilterOf(name, source));
    if (text == "vector")
        return std::make_unique<VectorTileSource>(source, folder);
    throw Failure(ExitCode::Data, "the source " + name + " has no features");
}

} // namespace txmap
