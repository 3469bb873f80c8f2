#include <algorithm>
#include <cmath>

#include <txmap/style/operators/OperatorTable.h>
#include <txmap/style/operators/Utf8.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

std::string TypeName(const Value& value) { return ExpressionType::Of(value).ToString(); }

/// What takes two parts and perhaps one or two more.
class LookupNode : public ExpressionNode
{
public:
    LookupNode(const ExpressionType& type, std::vector<NodePtr> parts, const std::string& key)
        : ExpressionNode(type, key), parts(std::move(parts))
    {
    }

    void ForEachChild(const Visitor& visit) const override
    {
        for (const NodePtr& part : parts)
            visit(*part);
    }

protected:
    std::vector<NodePtr> parts;
};

class AtNode : public LookupNode
{
public:
    using LookupNode::LookupNode;

    Value Evaluate(const EvaluationContext& context) const override
    {
        const double index = NumberOf(*parts[0], context);
        Value scratch;
        const ValueArray& items = parts[1]->Refer(context, scratch).Array();
        if (index < 0.0)
            Fail("Array index out of bounds: " + NumberText(index) + " < 0.");
        if (index >= static_cast<double>(items.size()))
            Fail("Array index out of bounds: " + NumberText(index) + " > " +
                 NumberText(static_cast<double>(items.size()) - 1.0) + ".");
        if (index != std::floor(index))
            Fail("Array index must be an integer, but found " + NumberText(index) + " instead.");
        return items[static_cast<std::size_t>(index)];
    }
};

// What `in` and `index-of` look for, and where.
class SearchNode : public LookupNode
{
public:
    using LookupNode::LookupNode;

protected:
    void Check(const Value& needle, const Value& haystack) const
    {
        const bool searchable = needle.Is(Value::Kind::Boolean) || needle.Is(Value::Kind::String) ||
                                needle.Is(Value::Kind::Number) || needle.IsNull();
        if (!searchable)
            Fail("Expected first argument to be of type boolean, string, number or null, but found " +
                 TypeName(needle) + " instead.");
        if (!haystack.Is(Value::Kind::String) && !haystack.Is(Value::Kind::Array))
            Fail("Expected second argument to be of type array or string, but found " + TypeName(haystack) +
                 " instead.");
    }
    // Of what is looked for in a text, even null has one.
    static std::string SearchText(const Value& needle) { return needle.IsNull() ? "null" : needle.ToString(); }
};

class InNode : public SearchNode
{
public:
    using SearchNode::SearchNode;

    Value Evaluate(const EvaluationContext& context) const override
    {
        Value needleScratch;
        Value haystackScratch;
        const Value& needle = parts[0]->Refer(context, needleScratch);
        const Value& haystack = parts[1]->Refer(context, haystackScratch);
        if (!haystack.IsTruthy())
            return false;
        Check(needle, haystack);
        if (haystack.Is(Value::Kind::String))
            return haystack.String().find(SearchText(needle)) != std::string::npos;
        const ValueArray& items = haystack.Array();
        return std::find(items.begin(), items.end(), needle) != items.end();
    }
};

class IndexOfNode : public SearchNode
{
public:
    using SearchNode::SearchNode;

    Value Evaluate(const EvaluationContext& context) const override
    {
        Value needleScratch;
        Value haystackScratch;
        const Value& needle = parts[0]->Refer(context, needleScratch);
        const Value& haystack = parts[1]->Refer(context, haystackScratch);
        double from = parts.size() > 2 ? std::trunc(NumberOf(*parts[2], context)) : 0.0;
        Check(needle, haystack);
        if (std::isnan(from))
            from = 0.0;
        if (haystack.Is(Value::Kind::String))
            return InText(haystack.String(), SearchText(needle), from);
        const ValueArray& items = haystack.Array();
        const double count = static_cast<double>(items.size());
        const double first = std::clamp(from < 0.0 ? from + count : from, 0.0, count);
        const auto found = std::find(items.begin() + static_cast<std::ptrdiff_t>(first), items.end(), needle);
        return found == items.end() ? -1.0 : static_cast<double>(found - items.begin());
    }

private:
    // The place is counted in characters, but searched from in units of UTF-16, as in the reference.
    static double InText(const std::string& text, const std::string& needle, double from)
    {
        const std::size_t found = text.find(needle, Utf16Offset(text, from));
        if (found == std::string::npos)
            return -1.0;
        return static_cast<double>(CountCharacters(std::string_view(text).substr(0, found)));
    }
};

// A place within `count` things as given: behind the end is the end, before the beginning counts from the end.
std::size_t SliceIndex(double index, std::size_t count)
{
    const double size = static_cast<double>(count);
    const double whole = std::isnan(index) ? 0.0 : std::trunc(index);
    return static_cast<std::size_t>(std::clamp(whole < 0.0 ? whole + size : whole, 0.0, size));
}

class SliceNode : public LookupNode
{
public:
    using LookupNode::LookupNode;

    Value Evaluate(const EvaluationContext& context) const override
    {
        Value scratch;
        const Value& input = parts[0]->Refer(context, scratch);
        const double begin = NumberOf(*parts[1], context);
        const std::optional<double> end =
            parts.size() > 2 ? std::optional<double>(NumberOf(*parts[2], context)) : std::nullopt;
        if (input.Is(Value::Kind::String))
            return SliceText(input.String(), begin, end);
        if (!input.Is(Value::Kind::Array))
            Fail("Expected first argument to be of type array or string, but found " + TypeName(input) + " instead.");
        const ValueArray& items = input.Array();
        const std::size_t first = SliceIndex(begin, items.size());
        const std::size_t last = std::max(first, end ? SliceIndex(*end, items.size()) : items.size());
        return ValueArray(items.begin() + static_cast<std::ptrdiff_t>(first),
                          items.begin() + static_cast<std::ptrdiff_t>(last));
    }

private:
    static Value SliceText(const std::string& text, double begin, const std::optional<double>& end)
    {
        const std::size_t count = CountCharacters(text);
        const std::size_t first = SliceIndex(begin, count);
        const std::size_t last = std::max(first, end ? SliceIndex(*end, count) : count);
        const std::size_t offset = CharacterOffset(text, first);
        return text.substr(offset, CharacterOffset(text, last) - offset);
    }
};

class LengthNode : public LookupNode
{
public:
    using LookupNode::LookupNode;

    Value Evaluate(const EvaluationContext& context) const override
    {
        Value scratch;
        const Value& input = parts[0]->Refer(context, scratch);
        if (input.Is(Value::Kind::String))
            return static_cast<double>(CountCharacters(input.String()));
        if (input.Is(Value::Kind::Array))
            return static_cast<double>(input.Array().size());
        Fail("Expected value to be of type string or array, but found " + TypeName(input) + " instead.");
    }
};

std::string Count(const char* expected, const Json& arguments)
{
    return std::string("Expected ") + expected + ", but found " + std::to_string(arguments.size() - 1) + " instead.";
}

bool IsSearchable(const ExpressionType& type)
{
    return type.Is(Kind::Boolean) || type.Is(Kind::String) || type.Is(Kind::Number) || type.Is(Kind::Null) ||
           type.Is(Kind::Value);
}

bool IsSequence(const ExpressionType& type)
{
    return type.Is(Kind::Array) || type.Is(Kind::String) || type.Is(Kind::Value);
}

// The first two arguments of a search, or nothing after an error.
std::vector<NodePtr> ParseSearch(const Json& arguments, ParsingContext& context)
{
    NodePtr needle = context.Parse(arguments[1], 1, Kind::Value);
    NodePtr haystack = context.Parse(arguments[2], 2, Kind::Value);
    if (!needle || !haystack)
        return {};
    if (!IsSearchable(needle->Type()))
    {
        context.Error("Expected first argument to be of type boolean, string, number or null, but found " +
                      needle->Type().ToString() + " instead");
        return {};
    }
    return {std::move(needle), std::move(haystack)};
}

} // namespace

NodePtr ParseAt(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 3)
        return context.Error(Count("2 arguments", arguments));
    NodePtr index = context.Parse(arguments[1], 1, Kind::Number);
    NodePtr input = context.Parse(arguments[2], 2,
                                  ExpressionType::ArrayOf(context.Expected().value_or(ExpressionType(Kind::Value))));
    if (!index || !input)
        return nullptr;
    const ExpressionType item = input->Type().Item();
    return std::make_shared<AtNode>(item, std::vector<NodePtr>{std::move(index), std::move(input)}, context.Key());
}

NodePtr ParseIn(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 3)
        return context.Error(Count("2 arguments", arguments));
    std::vector<NodePtr> parts = ParseSearch(arguments, context);
    return parts.empty() ? nullptr : std::make_shared<InNode>(Kind::Boolean, std::move(parts), context.Key());
}

NodePtr ParseIndexOf(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() < 3 || arguments.size() > 4)
        return context.Error(Count("2 or 3 arguments", arguments));
    std::vector<NodePtr> parts = ParseSearch(arguments, context);
    if (parts.empty())
        return nullptr;
    if (arguments.size() == 4)
    {
        NodePtr from = context.Parse(arguments[3], 3, Kind::Number);
        if (!from)
            return nullptr;
        parts.push_back(std::move(from));
    }
    return std::make_shared<IndexOfNode>(Kind::Number, std::move(parts), context.Key());
}

NodePtr ParseSlice(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() < 3 || arguments.size() > 4)
        return context.Error(Count("2 or 3 arguments", arguments));
    NodePtr input = context.Parse(arguments[1], 1, Kind::Value);
    NodePtr begin = context.Parse(arguments[2], 2, Kind::Number);
    if (!input || !begin)
        return nullptr;
    const ExpressionType type = input->Type();
    if (!IsSequence(type))
        return context.Error("Expected first argument to be of type array or string, but found " + type.ToString() +
                             " instead");
    std::vector<NodePtr> parts = {std::move(input), std::move(begin)};
    if (arguments.size() == 4)
    {
        NodePtr end = context.Parse(arguments[3], 3, Kind::Number);
        if (!end)
            return nullptr;
        parts.push_back(std::move(end));
    }
    return std::make_shared<SliceNode>(type, std::move(parts), context.Key());
}

NodePtr ParseLength(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 2)
        return context.Error(Count("1 argument", arguments));
    NodePtr input = context.Parse(arguments[1], 1);
    if (!input)
        return nullptr;
    if (!IsSequence(input->Type()))
        return context.Error("Expected argument of type string or array, but found " + input->Type().ToString() +
                             " instead.");
    return std::make_shared<LengthNode>(Kind::Number, std::vector<NodePtr>{std::move(input)}, context.Key());
}

} // namespace txmap
