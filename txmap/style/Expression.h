#pragma once

#include <set>
#include <string>
#include <variant>
#include <vector>

#include <txmap/style/ExpressionNode.h>
#include <txmap/style/PropertySpec.h>
#include <txmap/style/operators/ParsingContext.h>

namespace txmap
{

/// The attributes of features that an expression reads.
struct UsedProperties
{
    bool all = false; ///< Whether it may read any, because it computes the name or takes all of them.
    std::set<std::string> names;
};

/// A compiled expression of a style: one compilation for a layer, one evaluation for a feature. It may be shared by
/// threads.
class Expression
{
public:
    /// @param defaultValue given where there is no other value, by `EvaluateOrDefault`.
    Expression(NodePtr root, Value defaultValue, std::vector<std::string> enumValues);

    /// The value. @throw EvaluationError where there is none.
    Value Evaluate(const EvaluationContext& context) const;
    /// The value, or the default if it is null, no number, not one of an enumeration or has an error. `problem`, unless
    /// null, then gets the text of the error.
    Value EvaluateOrDefault(const EvaluationContext& context, std::string* problem = nullptr) const;

    const ExpressionType& Type() const { return root->Type(); }
    bool IsFeatureConstant() const { return (uses & UsesFeature) == 0; }
    bool IsFeatureStateConstant() const { return (uses & UsesFeatureState) == 0; }
    bool IsZoomConstant() const { return (uses & UsesZoom) == 0; }
    /// The value, if it never changes.
    const Value* Constant() const { return root->Constant(); }
    /// The same for one zoom only, which is faster for many features.
    Expression AtZoom(double zoom) const;
    UsedProperties Properties() const;
    const NodePtr& Root() const { return root; }

private:
    NodePtr root;
    unsigned uses;
    Value defaultValue;
    std::vector<std::string> enumValues;
};

/// An expression, or what is wrong with it.
using CompiledExpression = std::variant<Expression, std::vector<ParsingError>>;

/// Compiles an expression, or a literal, without regard to what a property allows.
CompiledExpression CompileExpression(const Json& json, const PropertySpec& spec);

/// Compiles the value of a property: an expression, a function of the old kind, or a constant.
CompiledExpression CompileProperty(const Json& json, const PropertySpec& spec);

/// Whether a value of a property is a function of the old kind: an object with stops or of type "identity".
bool IsLegacyFunction(const Json& json);

} // namespace txmap
