#include <limits>

#include <txmap/style/operators/CurveNodes.h>
#include <txmap/style/operators/OperatorTable.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

NodePtr CheckArgumentCount(const Json& arguments, ParsingContext& context, bool& good)
{
    const std::size_t count = arguments.size() - 1;
    good = false;
    if (count < 4)
        return context.Error("Expected at least 4 arguments, but found only " + std::to_string(count) + ".");
    if (count % 2 != 0)
        return context.Error("Expected an even number of arguments.");
    good = true;
    return nullptr;
}

// The name in messages, which is the same for all color spaces.
std::string CurveName(const Json& arguments) { return arguments[0] == "step" ? "step" : "interpolate"; }

// Reads a stop and its output, which stands behind it. The first output decides about the type of the others.
bool AddStop(const Json& arguments, std::size_t index, double input, CurveStops& stops,
             std::optional<ExpressionType>& type, ParsingContext& context)
{
    if (!stops.inputs.empty() && !(stops.inputs.back() < input))
    {
        context.Error("Input/output pairs for \"" + CurveName(arguments) +
                          "\" expressions must be arranged with input values in strictly ascending order.",
                      index);
        return false;
    }
    NodePtr output = context.Parse(arguments[index + 1], index + 1, type);
    if (!output)
        return false;
    type = type ? type : output->Type();
    stops.inputs.push_back(input);
    stops.outputs.push_back(std::move(output));
    return true;
}

bool AddStops(const Json& arguments, std::size_t first, CurveStops& stops, std::optional<ExpressionType>& type,
              ParsingContext& context)
{
    for (std::size_t i = first; i + 1 < arguments.size(); i += 2)
    {
        if (!arguments[i].is_number())
        {
            context.Error("Input/output pairs for \"" + CurveName(arguments) +
                              "\" expressions must be defined using literal numeric values (not computed expressions) "
                              "for the input values.",
                          i);
            return false;
        }
        if (!AddStop(arguments, i, arguments[i].get<double>(), stops, type, context))
            return false;
    }
    return true;
}

std::optional<CurveShape> ParseBezier(const Json& json, ParsingContext& context)
{
    bool good = json.size() == 5;
    for (std::size_t i = 1; i < json.size(); ++i)
        good = good && json[i].is_number() && json[i].get<double>() >= 0.0 && json[i].get<double>() <= 1.0;
    if (!good)
    {
        context.Error("Cubic bezier interpolation requires four numeric arguments with values between 0 and 1.", 1);
        return std::nullopt;
    }
    CurveShape shape;
    shape.kind = CurveShape::Kind::CubicBezier;
    shape.x1 = json[1];
    shape.y1 = json[2];
    shape.x2 = json[3];
    shape.y2 = json[4];
    return shape;
}

std::optional<CurveShape> ParseShape(const Json& json, ParsingContext& context)
{
    if (!json.is_array() || json.empty())
    {
        context.Error("Expected an interpolation type expression.", 1);
        return std::nullopt;
    }
    CurveShape shape;
    if (json[0] == "linear")
        return shape;
    if (json[0] == "cubic-bezier")
        return ParseBezier(json, context);
    if (json[0] != "exponential")
    {
        const std::string name = Value::FromJson(json[0]).ToString();
        context.ErrorAt(context.At(1).Key(0), "Unknown interpolation type " + name);
        return std::nullopt;
    }
    if (json.size() < 2 || !json[1].is_number())
    {
        context.ErrorAt(context.At(1).Key(1), "Exponential interpolation requires a numeric base.");
        return std::nullopt;
    }
    shape.base = json[1];
    return shape;
}

bool IsInterpolatable(const ExpressionType& type)
{
    switch (type.GetKind())
    {
    case Kind::Number:
    case Kind::Color:
    case Kind::Projection:
    case Kind::Padding:
    case Kind::NumberArray:
    case Kind::ColorArray:
    case Kind::VariableAnchorOffsets:
        return true;
    case Kind::Array:
        return type.Item().Is(Kind::Number) && type.Length();
    default:
        return false;
    }
}

} // namespace

NodePtr ParseStep(const Json& arguments, ParsingContext& context)
{
    bool good = false;
    if (CheckArgumentCount(arguments, context, good); !good)
        return nullptr;
    NodePtr input = context.Parse(arguments[1], 1, Kind::Number);
    if (!input)
        return nullptr;
    CurveStops stops;
    std::optional<ExpressionType> type = context.ExpectedOutput();
    if (!AddStop(arguments, 1, -std::numeric_limits<double>::infinity(), stops, type, context) ||
        !AddStops(arguments, 3, stops, type, context))
        return nullptr;
    return std::make_shared<StepNode>(*type, std::move(input), std::move(stops), context.Key());
}

NodePtr ParseInterpolate(const Json& arguments, ParsingContext& context)
{
    const auto shape = ParseShape(arguments.size() > 1 ? arguments[1] : Json(), context);
    if (!shape)
        return nullptr;
    bool good = false;
    if (CheckArgumentCount(arguments, context, good); !good)
        return nullptr;
    NodePtr input = context.Parse(arguments[2], 2, Kind::Number);
    if (!input)
        return nullptr;

    std::optional<ExpressionType> type = context.ExpectedOutput();
    ColorSpace space = ColorSpace::Rgb;
    if (arguments[0] != "interpolate")
    {
        space = arguments[0] == "interpolate-hcl" ? ColorSpace::Hcl : ColorSpace::Lab;
        if (!type || !type->Is(Kind::ColorArray))
            type = Kind::Color;
    }
    CurveStops stops;
    if (!AddStops(arguments, 3, stops, type, context))
        return nullptr;
    if (!IsInterpolatable(*type))
        return context.Error("Type " + type->ToString() + " is not interpolatable.");
    return std::make_shared<InterpolationNode>(*type, std::move(input), std::move(stops), *shape, space, context.Key());
}

} // namespace txmap
