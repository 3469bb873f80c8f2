#include <txmap/style/operators/Conversions.h>
#include <txmap/style/operators/OverloadedOperator.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

Value FromChannels(const OverloadedNode& node, const EvaluationContext& context)
{
    const double red = node.Number(0, context);
    const double green = node.Number(1, context);
    const double blue = node.Number(2, context);
    const double alpha = node.Arguments().size() == 4 ? node.Number(3, context) : 1.0;
    const Value opacity = alpha;
    const std::string problem = CheckRgba(red, green, blue, &opacity);
    if (!problem.empty())
        node.Fail(problem);
    return Color{red / 255.0, green / 255.0, blue / 255.0, alpha};
}

Value ToChannels(const OverloadedNode& node, const EvaluationContext& context)
{
    Value scratch;
    const Color& color = node.Argument(0, context, scratch).GetColor();
    return ValueArray{color.red * 255.0, color.green * 255.0, color.blue * 255.0, color.alpha};
}

} // namespace

void AddColorOperators(std::vector<OverloadedOperator>& operators)
{
    const ExpressionType number = Kind::Number;
    operators.push_back({"rgb", Kind::Color, {{{number, number, number}, FromChannels, UsesNothing, false}}});
    operators.push_back({"rgba", Kind::Color, {{{number, number, number, number}, FromChannels, UsesNothing, false}}});
    operators.push_back(
        {"to-rgba", ExpressionType::ArrayOf(number, 4), {{{Kind::Color}, ToChannels, UsesNothing, false}}});
}

} // namespace txmap
