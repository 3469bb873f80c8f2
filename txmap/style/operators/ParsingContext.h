#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include <txmap/style/ExpressionNode.h>

namespace txmap
{

/// What is wrong with an expression, and where.
struct ParsingError
{
    std::string key; ///< "[2][1]", or empty for the whole.
    std::string message;
};

/// The variables that are bound where an expression stands.
struct VariableScope
{
    const VariableScope* outer = nullptr;
    std::map<std::string, NodePtr> variables;

    /// Null where there is no variable of that name.
    NodePtr Find(const std::string& name) const;
};

/// How a value of unknown type is made one of the expected type.
enum class Annotation
{
    Default, ///< By assertion for types of JSON, by coercion for the others.
    Coerce,
    Omit
};

/// Where in an expression the parser is, what is expected there, and the errors so far.
class ParsingContext
{
public:
    ParsingContext(std::vector<ParsingError>& errors, std::optional<ExpressionType> expected)
        : errors(&errors), expected(std::move(expected))
    {
    }
    /// The same place, with errors of its own and nothing expected.
    ParsingContext(const ParsingContext& place, std::vector<ParsingError>& errors)
        : errors(&errors), scope(place.scope), key(place.key)
    {
    }

    /// Parses what stands at this place. Null after an error.
    NodePtr ParseHere(const Json& json, Annotation annotation = Annotation::Default);
    /// Parses a part, whose place is `index`.
    NodePtr Parse(const Json& json, std::size_t index, std::optional<ExpressionType> expected = std::nullopt,
                  Annotation annotation = Annotation::Default, const VariableScope* scope = nullptr);

    /// The place `index` in this place, with nothing expected.
    ParsingContext At(std::size_t index) const;

    const std::optional<ExpressionType>& Expected() const { return expected; }
    /// What is expected unless it is anything.
    std::optional<ExpressionType> ExpectedOutput() const;
    const std::string& Key() const { return key; }
    std::string Key(std::size_t index) const { return key + "[" + std::to_string(index) + "]"; }
    const VariableScope* Scope() const { return scope; }

    /// Notes an error at this place. @return null, so that a parser can return the result.
    NodePtr Error(const std::string& message) { return ErrorAt(key, message); }
    NodePtr Error(const std::string& message, std::size_t index) { return ErrorAt(Key(index), message); }
    NodePtr ErrorAt(const std::string& place, const std::string& message);
    void Add(const std::vector<ParsingError>& more) { errors->insert(errors->end(), more.begin(), more.end()); }

private:
    NodePtr ParseOperator(const Json& json);
    NodePtr Annotate(NodePtr node, Annotation annotation);
    NodePtr Fold(NodePtr node);

    std::vector<ParsingError>* errors;
    std::optional<ExpressionType> expected;
    const VariableScope* scope = nullptr;
    std::string key;
};

/// The type of a JSON value as messages name it: "number", "object" for arrays and null, too.
std::string JsonTypeName(const Json& json);

} // namespace txmap
