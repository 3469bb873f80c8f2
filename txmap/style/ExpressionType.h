#pragma once

#include <memory>
#include <optional>
#include <string>

#include <txmap/style/Value.h>

namespace txmap
{

/// The type of what an expression gives.
class ExpressionType
{
public:
    enum class Kind
    {
        Null,
        Number,
        String,
        Boolean,
        Color,
        Projection,
        Object,
        Value, ///< Any of the others, known only when the expression is evaluated.
        Error, ///< Of an expression that never gives anything; it fits everywhere.
        Collator,
        Formatted,
        Padding,
        NumberArray,
        ColorArray,
        Image,
        VariableAnchorOffsets,
        Array
    };

    ExpressionType(Kind kind) : kind(kind) {}
    /// An array, of any length unless one is given.
    static ExpressionType ArrayOf(const ExpressionType& item, std::optional<std::size_t> length = std::nullopt);
    /// The type of a value.
    static ExpressionType Of(const Value& value);

    Kind GetKind() const { return kind; }
    bool Is(Kind other) const { return kind == other; }
    /// Of arrays only.
    const ExpressionType& Item() const { return *item; }
    const std::optional<std::size_t>& Length() const { return length; }

    /// Whether every value of `other` is one of this type.
    bool Accepts(const ExpressionType& other) const;
    /// As messages name it: "array<number, 2>".
    std::string ToString() const;

private:
    Kind kind;
    std::shared_ptr<const ExpressionType> item;
    std::optional<std::size_t> length;
};

/// "Expected number but found string instead."
std::string TypeMismatch(const ExpressionType& expected, const ExpressionType& found);

} // namespace txmap
