#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <txmap/style/EvaluationContext.h>
#include <txmap/style/ExpressionType.h>

namespace txmap
{

/// An expression that has no value for this feature, or in this context.
class EvaluationError : public std::runtime_error
{
public:
    EvaluationError(const std::string& key, const std::string& message) : std::runtime_error(message), key(key) {}

    /// The place of the expression that failed: "[2][1]", or empty for the whole.
    const std::string& Key() const { return key; }

private:
    std::string key;
};

/// What the value of an expression may depend on, apart from its own parts.
enum ExpressionUse : unsigned
{
    UsesNothing = 0,
    UsesFeature = 1,
    UsesZoom = 2,
    UsesOtherGlobals = 4, ///< Density of a heat map, progress along a line, elevation and the like.
    UsesRuntime = 8,      ///< What is known only when the map is drawn: global state, collators, the sprite.
    UsesFeatureState = 16 ///< What an application gives a feature.
};

class ExpressionNode;
using NodePtr = std::shared_ptr<const ExpressionNode>;

/// A compiled expression with its parts. Nodes never change, and may be shared by trees and threads.
class ExpressionNode
{
public:
    /// @param key the place of the expression in what was compiled.
    ExpressionNode(ExpressionType type, std::string key) : type(std::move(type)), key(std::move(key)) {}
    virtual ~ExpressionNode() = default;
    ExpressionNode(const ExpressionNode&) = delete;
    ExpressionNode& operator=(const ExpressionNode&) = delete;

    /// @throw EvaluationError where there is no value.
    virtual Value Evaluate(const EvaluationContext& context) const = 0;
    /// The same without a copy, where the value exists already: the result is either that or `scratch`.
    virtual const Value& Refer(const EvaluationContext& context, Value& scratch) const
    {
        scratch = Evaluate(context);
        return scratch;
    }

    using Visitor = std::function<void(const ExpressionNode&)>;
    virtual void ForEachChild(const Visitor& visit) const = 0;
    /// What this expression itself uses, beside what its parts use.
    virtual unsigned OwnUses() const { return UsesNothing; }
    /// The value, if it is the same always and known already.
    virtual const Value* Constant() const { return nullptr; }
    /// Whether the parts of this expression being constant makes it constant, too.
    virtual bool IsConstant() const;
    /// Whose value an expression has: that of none of its parts as a rule.
    enum class Passes
    {
        Nothing,
        LastPart,
        AnyPart
    };
    virtual Passes PassesOn() const { return Passes::Nothing; }
    /// The same expression for one zoom only, or null where it is the same expression.
    virtual NodePtr AtZoom(double /*zoom*/) const { return nullptr; }

    const ExpressionType& Type() const { return type; }
    const std::string& Key() const { return key; }

protected:
    [[noreturn]] void Fail(const std::string& message) const { throw EvaluationError(key, message); }
    double NumberOf(const ExpressionNode& part, const EvaluationContext& context) const
    {
        Value scratch;
        return part.Refer(context, scratch).Number();
    }

private:
    ExpressionType type;
    std::string key;
};

/// What an expression and its parts use, as a sum of `ExpressionUse`.
unsigned AllUses(const ExpressionNode& node);

} // namespace txmap
