#include <cmath>
#include <unordered_map>

#include <txmap/style/operators/OperatorTable.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

class CaseNode : public ExpressionNode
{
public:
    struct Branch
    {
        NodePtr condition;
        NodePtr output;
    };

    CaseNode(const ExpressionType& type, std::vector<Branch> branches, NodePtr otherwise, const std::string& key)
        : ExpressionNode(type, key), branches(std::move(branches)), otherwise(std::move(otherwise))
    {
    }

    Value Evaluate(const EvaluationContext& context) const override { return Choose(context).Evaluate(context); }
    const Value& Refer(const EvaluationContext& context, Value& scratch) const override
    {
        return Choose(context).Refer(context, scratch);
    }
    void ForEachChild(const Visitor& visit) const override
    {
        for (const Branch& branch : branches)
        {
            visit(*branch.condition);
            visit(*branch.output);
        }
        visit(*otherwise);
    }

private:
    const ExpressionNode& Choose(const EvaluationContext& context) const
    {
        Value scratch;
        for (const Branch& branch : branches)
            if (branch.condition->Refer(context, scratch).Boolean())
                return *branch.output;
        return *otherwise;
    }

    std::vector<Branch> branches;
    NodePtr otherwise;
};

class MatchNode : public ExpressionNode
{
public:
    struct Cases
    {
        std::unordered_map<std::string, std::size_t> texts;
        std::unordered_map<double, std::size_t> numbers;
        std::vector<NodePtr> outputs;
    };

    MatchNode(const ExpressionType& type, NodePtr input, Cases cases, NodePtr otherwise, const std::string& key)
        : ExpressionNode(type, key), input(std::move(input)), cases(std::move(cases)), otherwise(std::move(otherwise))
    {
    }

    Value Evaluate(const EvaluationContext& context) const override { return Choose(context).Evaluate(context); }
    const Value& Refer(const EvaluationContext& context, Value& scratch) const override
    {
        return Choose(context).Refer(context, scratch);
    }
    void ForEachChild(const Visitor& visit) const override
    {
        visit(*input);
        for (const NodePtr& output : cases.outputs)
            visit(*output);
        visit(*otherwise);
    }

private:
    const ExpressionNode& Choose(const EvaluationContext& context) const
    {
        Value scratch;
        const Value& value = input->Refer(context, scratch);
        if (value.Is(Value::Kind::String))
        {
            if (const auto found = cases.texts.find(value.String()); found != cases.texts.end())
                return *cases.outputs[found->second];
        }
        else if (value.Is(Value::Kind::Number))
        {
            if (const auto found = cases.numbers.find(value.Number()); found != cases.numbers.end())
                return *cases.outputs[found->second];
        }
        return *otherwise;
    }

    NodePtr input;
    Cases cases;
    NodePtr otherwise;
};

// The first value that is not null. An image that the sprite does not have counts as null; if there is no other value,
// the name of the first such image is the result.
class CoalesceNode : public ExpressionNode
{
public:
    CoalesceNode(const ExpressionType& type, std::vector<NodePtr> inputs, const std::string& key)
        : ExpressionNode(type, key), inputs(std::move(inputs))
    {
    }

    Value Evaluate(const EvaluationContext& context) const override
    {
        Value missingImage;
        for (const NodePtr& input : inputs)
        {
            Value value = input->Evaluate(context);
            if (value.Is(Value::Kind::Image) && !value.Image().available)
            {
                if (missingImage.IsNull())
                    missingImage = value.Image().name;
                if (input == inputs.back())
                    return missingImage;
            }
            else if (!value.IsNull())
                return value;
        }
        return nullptr;
    }
    void ForEachChild(const Visitor& visit) const override
    {
        for (const NodePtr& input : inputs)
            visit(*input);
    }
    Passes PassesOn() const override { return Passes::AnyPart; }

private:
    std::vector<NodePtr> inputs;
};

// A label of a branch, or of several at once. All labels of a match have one type.
bool AddLabel(const Json& label, MatchNode::Cases& cases, std::optional<ExpressionType>& inputType,
              ParsingContext& context)
{
    constexpr double kGreatest = 9007199254740991.0;
    const auto fail = [&](const std::string& message)
    {
        context.Error(message);
        return false;
    };
    if (!label.is_number() && !label.is_string())
        return fail("Branch labels must be numbers or strings.");
    if (label.is_number())
    {
        const double number = label.get<double>();
        if (std::fabs(number) > kGreatest)
            return fail("Branch labels must be integers no larger than 9007199254740991.");
        if (std::floor(number) != number)
            return fail("Numeric branch labels must be integer values.");
    }
    const ExpressionType type = label.is_number() ? Kind::Number : Kind::String;
    if (!inputType)
        inputType = type;
    else if (!inputType->Accepts(type))
        return fail(TypeMismatch(*inputType, type));
    const std::size_t branch = cases.outputs.size();
    const bool added = label.is_number() ? cases.numbers.emplace(label.get<double>(), branch).second
                                         : cases.texts.emplace(label.get<std::string>(), branch).second;
    return added || fail("Branch labels must be unique.");
}

bool AddLabels(const Json& labels, MatchNode::Cases& cases, std::optional<ExpressionType>& inputType,
               ParsingContext context)
{
    if (!labels.is_array())
        return AddLabel(labels, cases, inputType, context);
    if (labels.empty())
        context.Error("Expected at least one branch label.");
    for (const Json& label : labels)
        if (!AddLabel(label, cases, inputType, context))
            return false;
    return !labels.empty();
}

} // namespace

NodePtr ParseCase(const Json& arguments, ParsingContext& context)
{
    const std::size_t count = arguments.size();
    if (count < 4)
        return context.Error("Expected at least 3 arguments, but found only " + std::to_string(count - 1) + ".");
    if (count % 2 != 0)
        return context.Error("Expected an odd number of arguments.");
    std::optional<ExpressionType> type = context.ExpectedOutput();
    std::vector<CaseNode::Branch> branches;
    for (std::size_t i = 1; i + 1 < count; i += 2)
    {
        NodePtr condition = context.Parse(arguments[i], i, Kind::Boolean);
        NodePtr output = condition ? context.Parse(arguments[i + 1], i + 1, type) : nullptr;
        if (!output)
            return nullptr;
        type = type ? type : output->Type();
        branches.push_back({std::move(condition), std::move(output)});
    }
    NodePtr otherwise = context.Parse(arguments[count - 1], count - 1, type);
    if (!otherwise)
        return nullptr;
    return std::make_shared<CaseNode>(*type, std::move(branches), std::move(otherwise), context.Key());
}

NodePtr ParseMatch(const Json& arguments, ParsingContext& context)
{
    const std::size_t count = arguments.size();
    if (count < 5)
        return context.Error("Expected at least 4 arguments, but found only " + std::to_string(count - 1) + ".");
    if (count % 2 != 1)
        return context.Error("Expected an even number of arguments.");
    std::optional<ExpressionType> type = context.ExpectedOutput();
    std::optional<ExpressionType> inputType;
    MatchNode::Cases cases;
    for (std::size_t i = 2; i + 1 < count; i += 2)
    {
        if (!AddLabels(arguments[i], cases, inputType, context.At(i)))
            return nullptr;
        NodePtr output = context.Parse(arguments[i + 1], i, type);
        if (!output)
            return nullptr;
        type = type ? type : output->Type();
        cases.outputs.push_back(std::move(output));
    }
    NodePtr input = context.Parse(arguments[1], 1, Kind::Value);
    NodePtr otherwise = input ? context.Parse(arguments[count - 1], count - 1, type) : nullptr;
    if (!otherwise)
        return nullptr;
    if (!input->Type().Is(Kind::Value) && !inputType->Accepts(input->Type()))
        return context.Error(TypeMismatch(*inputType, input->Type()), 1);
    return std::make_shared<MatchNode>(*type, std::move(input), std::move(cases), std::move(otherwise), context.Key());
}

NodePtr ParseCoalesce(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() < 2)
        return context.Error("Expected at least one argument.");
    const std::optional<ExpressionType> expected = context.Expected();
    std::optional<ExpressionType> type = context.ExpectedOutput();
    std::vector<NodePtr> inputs;
    bool needsAnnotation = false;
    for (std::size_t i = 1; i < arguments.size(); ++i)
    {
        // An assertion or coercion of each input would fail for null, which is what the next input is for. The whole
        // gets it instead.
        NodePtr input = context.Parse(arguments[i], i, type, Annotation::Omit);
        if (!input)
            return nullptr;
        type = type ? type : input->Type();
        needsAnnotation = needsAnnotation || (expected && !expected->Accepts(input->Type()));
        inputs.push_back(std::move(input));
    }
    const ExpressionType result = needsAnnotation ? ExpressionType(Kind::Value) : *type;
    return std::make_shared<CoalesceNode>(result, std::move(inputs), context.Key());
}

} // namespace txmap
