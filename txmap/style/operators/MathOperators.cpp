#include <algorithm>
#include <cmath>
#include <limits>

#include <txmap/style/operators/OverloadedOperator.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;
using Node = OverloadedNode;
using Context = EvaluationContext;

constexpr double kPi = 3.14159265358979323846;
constexpr double kE = 2.7182818284590452354;
constexpr double kLn2 = 0.69314718055994530942;

template <double (*Function)(double)>
Value Apply(const Node& node, const Context& context)
{
    return Function(node.Number(0, context));
}

// Away from zero at one half.
double Round(double number) { return std::round(number); }
double Absolute(double number) { return std::fabs(number); }
double Ceil(double number) { return std::ceil(number); }
double Floor(double number) { return std::floor(number); }
double Root(double number) { return std::sqrt(number); }
double Sine(double number) { return std::sin(number); }
double Cosine(double number) { return std::cos(number); }
double Tangent(double number) { return std::tan(number); }
double ArcSine(double number) { return std::asin(number); }
double ArcCosine(double number) { return std::acos(number); }
double ArcTangent(double number) { return std::atan(number); }
double Log2(double number) { return std::log2(number); }
double Log10(double number) { return std::log10(number); }
double LogE(double number) { return std::log(number); }

Value Sum(const Node& node, const Context& context)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < node.Arguments().size(); ++i)
        sum += node.Number(i, context);
    return sum;
}

Value Product(const Node& node, const Context& context)
{
    double product = 1.0;
    for (std::size_t i = 0; i < node.Arguments().size(); ++i)
        product *= node.Number(i, context);
    return product;
}

// The smallest or greatest; NaN if one is, as JavaScript has it.
template <bool Greatest>
Value Extreme(const Node& node, const Context& context)
{
    double extreme = Greatest ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < node.Arguments().size(); ++i)
    {
        const double number = node.Number(i, context);
        if (std::isnan(number))
            return number;
        extreme = Greatest ? std::max(extreme, number) : std::min(extreme, number);
    }
    return extreme;
}

Value Difference(const Node& node, const Context& context) { return node.Number(0, context) - node.Number(1, context); }
Value Negative(const Node& node, const Context& context) { return -node.Number(0, context); }
Value Quotient(const Node& node, const Context& context) { return node.Number(0, context) / node.Number(1, context); }
Value Power(const Node& node, const Context& context)
{
    return std::pow(node.Number(0, context), node.Number(1, context));
}
Value Remainder(const Node& node, const Context& context)
{
    return std::fmod(node.Number(0, context), node.Number(1, context));
}

bool IsTrue(const Node& node, std::size_t index, const Context& context)
{
    Value scratch;
    return node.Argument(index, context, scratch).Boolean();
}

Value Not(const Node& node, const Context& context) { return !IsTrue(node, 0, context); }

Value All(const Node& node, const Context& context)
{
    for (std::size_t i = 0; i < node.Arguments().size(); ++i)
        if (!IsTrue(node, i, context))
            return false;
    return true;
}

Value Any(const Node& node, const Context& context)
{
    for (std::size_t i = 0; i < node.Arguments().size(); ++i)
        if (IsTrue(node, i, context))
            return true;
    return false;
}

Value ErrorValue(const Node& node, const Context& context)
{
    Value scratch;
    node.Fail(node.Argument(0, context, scratch).String());
}

Overload Taking(std::vector<ExpressionType> parameters, OverloadFunction function)
{
    return {std::move(parameters), function, UsesNothing, false};
}
Overload TakingAnyNumberOf(ExpressionType parameter, OverloadFunction function)
{
    return {{std::move(parameter)}, function, UsesNothing, true};
}

} // namespace

void AddMathOperators(std::vector<OverloadedOperator>& operators)
{
    const ExpressionType number = Kind::Number;
    const ExpressionType boolean = Kind::Boolean;
    const auto add = [&](const char* name, std::vector<Overload> overloads) {
        operators.push_back({name, number, std::move(overloads)});
    };
    add("ln2", {Taking({}, [](const Node&, const Context&) { return Value(kLn2); })});
    add("pi", {Taking({}, [](const Node&, const Context&) { return Value(kPi); })});
    add("e", {Taking({}, [](const Node&, const Context&) { return Value(kE); })});
    add("+", {TakingAnyNumberOf(number, Sum)});
    add("*", {TakingAnyNumberOf(number, Product)});
    add("-", {Taking({number, number}, Difference), Taking({number}, Negative)});
    add("/", {Taking({number, number}, Quotient)});
    add("%", {Taking({number, number}, Remainder)});
    add("^", {Taking({number, number}, Power)});
    add("min", {TakingAnyNumberOf(number, Extreme<false>)});
    add("max", {TakingAnyNumberOf(number, Extreme<true>)});
    add("sqrt", {Taking({number}, Apply<Root>)});
    add("log10", {Taking({number}, Apply<Log10>)});
    add("ln", {Taking({number}, Apply<LogE>)});
    add("log2", {Taking({number}, Apply<Log2>)});
    add("sin", {Taking({number}, Apply<Sine>)});
    add("cos", {Taking({number}, Apply<Cosine>)});
    add("tan", {Taking({number}, Apply<Tangent>)});
    add("asin", {Taking({number}, Apply<ArcSine>)});
    add("acos", {Taking({number}, Apply<ArcCosine>)});
    add("atan", {Taking({number}, Apply<ArcTangent>)});
    add("abs", {Taking({number}, Apply<Absolute>)});
    add("round", {Taking({number}, Apply<Round>)});
    add("floor", {Taking({number}, Apply<Floor>)});
    add("ceil", {Taking({number}, Apply<Ceil>)});
    operators.push_back({"!", boolean, {Taking({boolean}, Not)}});
    operators.push_back({"all", boolean, {Taking({boolean, boolean}, All), TakingAnyNumberOf(boolean, All)}});
    operators.push_back({"any", boolean, {Taking({boolean, boolean}, Any), TakingAnyNumberOf(boolean, Any)}});
    operators.push_back({"error", Kind::Error, {{{Kind::String}, ErrorValue, UsesRuntime, false}}});
}

} // namespace txmap
