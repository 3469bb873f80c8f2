#include <txmap/style/operators/ParsingContext.h>

#include <algorithm>

#include <txmap/style/operators/Annotations.h>
#include <txmap/style/operators/LiteralNode.h>
#include <txmap/style/operators/OperatorTable.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

bool IsOneOf(Kind kind, std::initializer_list<Kind> kinds)
{
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

bool IsAsserted(Kind expected, Kind actual)
{
    return actual == Kind::Value &&
           IsOneOf(expected, {Kind::String, Kind::Number, Kind::Boolean, Kind::Object, Kind::Array});
}

bool IsCoerced(Kind expected, Kind actual)
{
    switch (expected)
    {
    case Kind::Projection:
        return IsOneOf(actual, {Kind::Value, Kind::String, Kind::Array});
    case Kind::Color:
    case Kind::Formatted:
    case Kind::Image:
        return IsOneOf(actual, {Kind::Value, Kind::String});
    case Kind::Padding:
    case Kind::NumberArray:
        return IsOneOf(actual, {Kind::Value, Kind::Number, Kind::Array});
    case Kind::ColorArray:
        return IsOneOf(actual, {Kind::Value, Kind::String, Kind::Array});
    case Kind::VariableAnchorOffsets:
        return IsOneOf(actual, {Kind::Value, Kind::Array});
    default:
        return false;
    }
}

} // namespace

NodePtr VariableScope::Find(const std::string& name) const
{
    for (const VariableScope* scope = this; scope; scope = scope->outer)
        if (const auto found = scope->variables.find(name); found != scope->variables.end())
            return found->second;
    return nullptr;
}

NodePtr ParsingContext::ErrorAt(const std::string& place, const std::string& message)
{
    errors->push_back({place, message});
    return nullptr;
}

std::optional<ExpressionType> ParsingContext::ExpectedOutput() const
{
    return expected && expected->Is(Kind::Value) ? std::nullopt : expected;
}

ParsingContext ParsingContext::At(std::size_t index) const
{
    ParsingContext part(*this);
    part.key = Key(index);
    part.expected.reset();
    return part;
}

NodePtr ParsingContext::Parse(const Json& json, std::size_t index, std::optional<ExpressionType> partExpected,
                              Annotation annotation, const VariableScope* partScope)
{
    ParsingContext part = At(index);
    part.expected = std::move(partExpected);
    if (partScope)
        part.scope = partScope;
    return part.ParseHere(json, annotation);
}

NodePtr ParsingContext::ParseHere(const Json& json, Annotation annotation)
{
    NodePtr node;
    if (json.is_discarded())
        return Error("'undefined' value invalid. Use null instead.");
    if (json.is_object())
        return Error("Bare objects invalid. Use [\"literal\", {...}] instead.");
    if (json.is_array())
        node = ParseOperator(json);
    else
        node = MakeLiteral(json, *this);
    if (node)
        node = Annotate(std::move(node), annotation);
    return node ? Fold(std::move(node)) : nullptr;
}

NodePtr ParsingContext::ParseOperator(const Json& json)
{
    if (json.empty())
        return Error(
            "Expected an array with at least one element. If you wanted a literal array, use [\"literal\", []].");
    const Json& name = json.front();
    if (!name.is_string())
        return Error("Expression name must be a string, but found " + JsonTypeName(name) +
                         " instead. If you wanted a literal array, use [\"literal\", [...]].",
                     0);
    const OperatorParser* parser = FindOperator(name.get_ref<const std::string&>());
    if (!parser)
        return Error("Unknown expression \"" + name.get<std::string>() +
                         "\". If you wanted a literal array, use [\"literal\", [...]].",
                     0);
    return (*parser)(json, *this);
}

NodePtr ParsingContext::Annotate(NodePtr node, Annotation annotation)
{
    if (!expected)
        return node;
    const Kind wanted = expected->GetKind();
    const Kind actual = node->Type().GetKind();
    const bool asserted = IsAsserted(wanted, actual);
    if (asserted || IsCoerced(wanted, actual))
    {
        if (annotation == Annotation::Omit)
            return node;
        if (asserted && annotation == Annotation::Default)
            return MakeAssertion(*expected, {std::move(node)}, key);
        return MakeCoercion(*expected, {std::move(node)}, key);
    }
    if (!expected->Accepts(node->Type()))
        return Error(TypeMismatch(*expected, node->Type()));
    return node;
}

// An expression of constant parts becomes its value. Images stay, because the sprite is not known yet.
NodePtr ParsingContext::Fold(NodePtr node)
{
    if (node->Constant() || node->Type().Is(Kind::Image) || !node->IsConstant())
        return node;
    try
    {
        return std::make_shared<LiteralNode>(node->Type(), node->Evaluate(EvaluationContext()), key);
    }
    catch (const EvaluationError& error)
    {
        return Error(error.what());
    }
}

std::string JsonTypeName(const Json& json)
{
    if (json.is_discarded())
        return "undefined";
    if (json.is_number())
        return "number";
    if (json.is_string())
        return "string";
    return json.is_boolean() ? "boolean" : "object";
}

} // namespace txmap
