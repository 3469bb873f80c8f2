#include <txmap/style/operators/OverloadedOperator.h>

#include <unordered_map>

#include <txmap/style/operators/OperatorTable.h>

namespace txmap
{
namespace
{

const OverloadedOperator& Find(const std::string& name)
{
    static const auto table = []
    {
        std::unordered_map<std::string, const OverloadedOperator*> byName;
        for (const OverloadedOperator& one : OverloadedOperators())
            byName.emplace(one.name, &one);
        return byName;
    }();
    return *table.at(name);
}

const ExpressionType& Parameter(const Overload& overload, std::size_t index)
{
    return overload.anyNumber ? overload.parameters.front() : overload.parameters[index];
}

std::string Signature(const Overload& overload)
{
    std::string text;
    for (const ExpressionType& parameter : overload.parameters)
        text += (text.empty() ? "" : ", ") + parameter.ToString();
    return "(" + text + (overload.anyNumber ? "...)" : ")");
}

// The arguments as this overload takes them, or nothing after an error.
std::optional<std::vector<NodePtr>> ParseArguments(const Json& arguments, const Overload& overload,
                                                   ParsingContext& context)
{
    std::vector<NodePtr> parsed;
    for (std::size_t i = 1; i < arguments.size(); ++i)
    {
        NodePtr argument = context.Parse(arguments[i], i, Parameter(overload, i - 1));
        if (!argument)
            return std::nullopt;
        parsed.push_back(std::move(argument));
    }
    return parsed;
}

NodePtr ReportTypes(const Json& arguments, const std::vector<const Overload*>& candidates, ParsingContext& context)
{
    std::string signatures;
    for (const Overload* candidate : candidates)
        signatures += (signatures.empty() ? "" : " | ") + Signature(*candidate);
    std::string found;
    for (std::size_t i = 1; i < arguments.size(); ++i)
    {
        const NodePtr argument = context.Parse(arguments[i], i);
        if (!argument)
            return nullptr;
        found += (found.empty() ? "" : ", ") + argument->Type().ToString();
    }
    return context.Error("Expected arguments of type " + signatures + ", but found (" + found + ") instead.");
}

} // namespace

const Value& OverloadedNode::Refer(const EvaluationContext& context, Value& scratch) const
{
    // An attribute need not be copied to be compared.
    if (overload.uses == UsesFeature && context.feature && arguments.size() == 1 && definition.name == "get")
    {
        Value nameScratch;
        const Value* property = context.feature->Property(arguments[0]->Refer(context, nameScratch).String());
        if (property)
            return *property;
        scratch = Value();
        return scratch;
    }
    scratch = Evaluate(context);
    return scratch;
}

const std::vector<OverloadedOperator>& OverloadedOperators()
{
    static const std::vector<OverloadedOperator> operators = []
    {
        std::vector<OverloadedOperator> all;
        AddMathOperators(all);
        AddFeatureOperators(all);
        AddFilterOperators(all);
        AddColorOperators(all);
        AddTextOperators(all);
        return all;
    }();
    return operators;
}

NodePtr ParseOverloaded(const Json& arguments, ParsingContext& context)
{
    const OverloadedOperator& definition = Find(arguments[0]);
    std::vector<const Overload*> fitting;
    std::vector<const Overload*> all;
    for (const Overload& overload : definition.overloads)
    {
        all.push_back(&overload);
        if (overload.anyNumber || overload.parameters.size() == arguments.size() - 1)
            fitting.push_back(&overload);
    }

    std::vector<ParsingError> errors;
    for (const Overload* overload : fitting)
    {
        // The errors of an overload do not count where a later one fits.
        errors.clear();
        ParsingContext attempt(context, errors);
        auto parsed = ParseArguments(arguments, *overload, attempt);
        if (parsed && errors.empty())
            return std::make_shared<OverloadedNode>(definition, *overload, *std::move(parsed), context.Key());
    }
    if (fitting.size() == 1)
    {
        context.Add(errors);
        return nullptr;
    }
    return ReportTypes(arguments, fitting.empty() ? all : fitting, context);
}

} // namespace txmap
