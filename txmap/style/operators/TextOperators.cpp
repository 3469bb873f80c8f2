#include <txmap/style/operators/OverloadedOperator.h>
#include <txmap/style/operators/TextCollator.h>
#include <txmap/style/operators/Utf8.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;
using Node = OverloadedNode;
using Context = EvaluationContext;

Value Concat(const Node& node, const Context& context)
{
    std::string text;
    for (std::size_t i = 0; i < node.Arguments().size(); ++i)
    {
        Value scratch;
        text += node.Argument(i, context, scratch).ToString();
    }
    return text;
}

Value ToUpper(const Node& node, const Context& context)
{
    Value scratch;
    return Upcase(node.Argument(0, context, scratch).String());
}

Value ToLower(const Node& node, const Context& context)
{
    Value scratch;
    return Downcase(node.Argument(0, context, scratch).String());
}

Value TypeOf(const Node& node, const Context& context)
{
    Value scratch;
    return ExpressionType::Of(node.Argument(0, context, scratch)).ToString();
}

// Labels are laid out by a full text engine, which knows every script.
Value IsSupportedScript(const Node&, const Context&) { return true; }

Value ResolvedLocale(const Node& node, const Context& context)
{
    Value scratch;
    return node.Argument(0, context, scratch).Collator().Locale();
}

Value SplitText(const Node& node, const Context& context)
{
    Value textScratch;
    Value separatorScratch;
    const std::string& text = node.Argument(0, context, textScratch).String();
    const std::string& separator = node.Argument(1, context, separatorScratch).String();
    ValueArray parts;
    for (std::string& part : Split(text, separator))
        parts.emplace_back(std::move(part));
    return parts;
}

Value Join(const Node& node, const Context& context)
{
    Value itemsScratch;
    Value separatorScratch;
    const ValueArray& items = node.Argument(0, context, itemsScratch).Array();
    const std::string& separator = node.Argument(1, context, separatorScratch).String();
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i)
        text += (i == 0 ? "" : separator) + items[i].ToString();
    return text;
}

} // namespace

void AddTextOperators(std::vector<OverloadedOperator>& operators)
{
    const ExpressionType text = Kind::String;
    const ExpressionType texts = ExpressionType::ArrayOf(text);
    operators.push_back({"concat", text, {{{Kind::Value}, Concat, UsesNothing, true}}});
    operators.push_back({"upcase", text, {{{text}, ToUpper, UsesNothing, false}}});
    operators.push_back({"downcase", text, {{{text}, ToLower, UsesNothing, false}}});
    operators.push_back({"typeof", text, {{{Kind::Value}, TypeOf, UsesNothing, false}}});
    operators.push_back({"is-supported-script", Kind::Boolean, {{{text}, IsSupportedScript, UsesNothing, false}}});
    operators.push_back({"resolved-locale", text, {{{Kind::Collator}, ResolvedLocale, UsesNothing, false}}});
    operators.push_back({"split", texts, {{{text, text}, SplitText, UsesNothing, false}}});
    operators.push_back({"join", text, {{{texts, text}, Join, UsesNothing, false}}});
}

} // namespace txmap
