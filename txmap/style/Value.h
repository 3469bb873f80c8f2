#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include <txmap/style/Color.h>

namespace txmap
{

class TextCollator;
class Value;

/// JSON whose objects keep the order of their members, as the texts of objects do.
using Json = nlohmann::ordered_json;

/// How deep arrays and objects of styles may be nested: deeper than anyone writes them, and far from the end of the
/// stack.
constexpr int kMaximumNesting = 256;
bool IsNestedTooDeep(const Json& json);

using ValueArray = std::vector<Value>;
/// The members in the order in which they were written.
using ValueObject = std::vector<std::pair<std::string, Value>>;

/// An image by its name.
struct ResolvedImage
{
    std::string name;
    bool available = false; ///< Whether the sprite has it.
};

/// A part of a label with a look of its own. What it does not set is as in the label.
struct FormattedSection
{
    std::string text;
    std::optional<ResolvedImage> image; ///< Drawn instead of a text.
    std::optional<double> scale;        ///< Of the size of the text.
    std::optional<std::string> fontStack;
    std::optional<Color> textColor;
    std::optional<std::string> verticalAlign; ///< "bottom", "center" or "top".
};

/// A label of several sections.
struct Formatted
{
    std::vector<FormattedSection> sections;

    /// All texts, one after the other.
    std::string ToString() const;
};

/// Distances in the order top, right, bottom, left.
struct Padding
{
    std::array<double, 4> values = {};
};

struct NumberArray
{
    std::vector<double> values;
};

struct ColorArray
{
    std::vector<Color> values;
};

/// Where a label may stand beside its point: anchors with offsets, the best first.
struct VariableAnchorOffsets
{
    struct Entry
    {
        std::string anchor;
        std::array<double, 2> offset = {};
    };
    std::vector<Entry> entries;
};

/// A projection on the way to another.
struct ProjectionTransition
{
    std::string from;
    std::string to;
    double transition = 1.0;
};

/// What an attribute of a feature can be, and what an expression can give. Everything but null, booleans, numbers,
/// colours and paddings is shared and never changes, so that a copy allocates nothing.
class Value
{
public:
    /// In the order of the alternatives of `Content`.
    enum class Kind
    {
        Null,
        Boolean,
        Number,
        String,
        Color,
        Array,
        Object,
        Collator,
        Formatted,
        Image,
        Padding,
        NumberArray,
        ColorArray,
        VariableAnchorOffsets,
        Projection
    };

    Value() = default;
    Value(std::nullptr_t) {}
    Value(bool value) : content(value) {}
    Value(double value) : content(value) {}
    Value(int value) : content(static_cast<double>(value)) {}
    Value(std::string value) : content(std::make_shared<const std::string>(std::move(value))) {}
    Value(const char* value) : Value(std::string(value)) {}
    Value(const Color& value) : content(value) {}
    Value(ValueArray value);
    Value(ValueObject value);
    Value(std::shared_ptr<const TextCollator> value) : content(std::move(value)) {}
    Value(Formatted value) : content(std::make_shared<const Formatted>(std::move(value))) {}
    Value(ResolvedImage value) : content(std::make_shared<const ResolvedImage>(std::move(value))) {}
    Value(const Padding& value) : content(value) {}
    Value(NumberArray value) : content(std::make_shared<const NumberArray>(std::move(value))) {}
    Value(ColorArray value) : content(std::make_shared<const ColorArray>(std::move(value))) {}
    Value(VariableAnchorOffsets value) : content(std::make_shared<const VariableAnchorOffsets>(std::move(value))) {}
    Value(ProjectionTransition value) : content(std::make_shared<const ProjectionTransition>(std::move(value))) {}

    Kind GetKind() const { return static_cast<Kind>(content.index()); }
    bool Is(Kind kind) const { return GetKind() == kind; }
    bool IsNull() const { return Is(Kind::Null); }

    /// @name The content
    /// Each of these is for values of its kind only.
    /// @{
    bool Boolean() const { return std::get<bool>(content); }
    double Number() const { return std::get<double>(content); }
    const std::string& String() const { return *std::get<Shared<std::string>>(content); }
    const Color& GetColor() const { return std::get<Color>(content); }
    const ValueArray& Array() const { return *std::get<Shared<ValueArray>>(content); }
    const ValueObject& Object() const { return *std::get<Shared<ValueObject>>(content); }
    const TextCollator& Collator() const { return *std::get<Shared<TextCollator>>(content); }
    const Formatted& GetFormatted() const { return *std::get<Shared<Formatted>>(content); }
    const ResolvedImage& Image() const { return *std::get<Shared<ResolvedImage>>(content); }
    const Padding& GetPadding() const { return std::get<Padding>(content); }
    const NumberArray& Numbers() const { return *std::get<Shared<NumberArray>>(content); }
    const ColorArray& Colors() const { return *std::get<Shared<ColorArray>>(content); }
    const VariableAnchorOffsets& AnchorOffsets() const { return *std::get<Shared<VariableAnchorOffsets>>(content); }
    const ProjectionTransition& Projection() const { return *std::get<Shared<ProjectionTransition>>(content); }
    /// @}

    /// A member of an object, or null where there is none.
    const Value* Member(const std::string& name) const;
    /// Whether the value counts as true: all but null, false, 0, NaN and the empty text.
    bool IsTruthy() const;
    /// The text of the value: texts as they are, nothing for null, everything else as JSON.
    std::string ToString() const;
    /// The value as JSON without spaces; a number that is not finite is null.
    std::string ToJsonText() const;

    /// Equal in kind and content. Arrays, objects and what else is shared are equal only to their own copies.
    friend bool operator==(const Value& a, const Value& b);
    friend bool operator!=(const Value& a, const Value& b) { return !(a == b); }

    /// What is nested deeper than `kMaximumNesting` becomes null.
    static Value FromJson(const Json& json) { return FromJson(json, 0); }

private:
    static Value FromJson(const Json& json, int depth);

    template <class T>
    using Shared = std::shared_ptr<const T>;
    using Content =
        std::variant<std::monostate, bool, double, Shared<std::string>, Color, Shared<ValueArray>, Shared<ValueObject>,
                     Shared<TextCollator>, Shared<Formatted>, Shared<ResolvedImage>, Padding, Shared<NumberArray>,
                     Shared<ColorArray>, Shared<VariableAnchorOffsets>, Shared<ProjectionTransition>>;
    Content content;
};

/// A number as JavaScript writes it: the shortest digits that give the same number again.
std::string NumberText(double number);

} // namespace txmap
