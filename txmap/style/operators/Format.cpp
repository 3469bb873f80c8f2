#include <txmap/style/operators/OperatorTable.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

/// A section of a label; everything but the content may be null.
struct SectionExpression
{
    NodePtr content;
    NodePtr scale;
    NodePtr font;
    NodePtr color;
    NodePtr verticalAlign;
};

class FormatNode : public ExpressionNode
{
public:
    FormatNode(std::vector<SectionExpression> sections, const std::string& key)
        : ExpressionNode(Kind::Formatted, key), sections(std::move(sections))
    {
    }

    Value Evaluate(const EvaluationContext& context) const override
    {
        Formatted formatted;
        for (const SectionExpression& section : sections)
            formatted.sections.push_back(EvaluateSection(section, context));
        return formatted;
    }
    void ForEachChild(const Visitor& visit) const override
    {
        for (const SectionExpression& section : sections)
            for (const NodePtr& part :
                 {section.content, section.scale, section.font, section.color, section.verticalAlign})
                if (part)
                    visit(*part);
    }

private:
    static FormattedSection EvaluateSection(const SectionExpression& section, const EvaluationContext& context)
    {
        FormattedSection result;
        const Value content = section.content->Evaluate(context);
        if (section.verticalAlign)
            result.verticalAlign = section.verticalAlign->Evaluate(context).String();
        if (content.Is(Value::Kind::Image))
        {
            result.image = content.Image();
            return result;
        }
        result.text = content.ToString();
        if (section.scale)
            result.scale = section.scale->Evaluate(context).Number();
        if (section.font)
            result.fontStack = FontStack(section.font->Evaluate(context));
        if (section.color)
            result.textColor = section.color->Evaluate(context).GetColor();
        return result;
    }
    static std::string FontStack(const Value& fonts)
    {
        std::string stack;
        for (const Value& font : fonts.Array())
            stack += (stack.empty() ? "" : ",") + font.ToString();
        return stack;
    }

    std::vector<SectionExpression> sections;
};

// An option that is given and counts as true. All options have the place of the first argument. False after an error.
bool ParseOption(const Json& options, const char* name, const ExpressionType& type, NodePtr& option,
                 ParsingContext& context)
{
    option = nullptr;
    const auto found = options.find(name);
    if (found == options.end() || !Value::FromJson(*found).IsTruthy())
        return true;
    option = context.Parse(*found, 1, type);
    return option != nullptr;
}

bool ParseOptions(const Json& options, SectionExpression& section, ParsingContext& context)
{
    if (!ParseOption(options, "font-scale", Kind::Number, section.scale, context) ||
        !ParseOption(options, "text-font", ExpressionType::ArrayOf(Kind::String), section.font, context) ||
        !ParseOption(options, "text-color", Kind::Color, section.color, context))
        return false;
    const auto align = options.find("vertical-align");
    const bool named = align != options.end() && align->is_string() && !align->get_ref<const std::string&>().empty();
    if (named && *align != "bottom" && *align != "center" && *align != "top")
    {
        context.Error("'vertical-align' must be one of: 'bottom', 'center', 'top' but found '" +
                      align->get<std::string>() + "' instead.");
        return false;
    }
    return ParseOption(options, "vertical-align", Kind::String, section.verticalAlign, context);
}

class ImageNode : public ExpressionNode
{
public:
    ImageNode(NodePtr name, const std::string& key) : ExpressionNode(Kind::Image, key), name(std::move(name)) {}

    Value Evaluate(const EvaluationContext& context) const override
    {
        Value scratch;
        const std::string& text = name->Refer(context, scratch).String();
        if (text.empty())
            return nullptr;
        return ResolvedImage{text, context.availableImages && context.availableImages->count(text) > 0};
    }
    void ForEachChild(const Visitor& visit) const override { visit(*name); }

private:
    NodePtr name;
};

} // namespace

NodePtr ParseFormat(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() < 2)
        return context.Error("Expected at least one argument.");
    if (arguments[1].is_object() || arguments[1].is_null())
        return context.Error("First argument must be an image or text section.");
    std::vector<SectionExpression> sections;
    bool mayBeOptions = false;
    for (std::size_t i = 1; i < arguments.size(); ++i)
    {
        if (mayBeOptions && arguments[i].is_object())
        {
            mayBeOptions = false;
            if (!ParseOptions(arguments[i], sections.back(), context))
                return nullptr;
            continue;
        }
        NodePtr content = context.Parse(arguments[i], 1, Kind::Value);
        if (!content)
            return nullptr;
        const ExpressionType& type = content->Type();
        if (!type.Is(Kind::String) && !type.Is(Kind::Value) && !type.Is(Kind::Null) && !type.Is(Kind::Image))
            return context.Error("Formatted text type must be 'string', 'value', 'image' or 'null'.");
        mayBeOptions = true;
        sections.push_back({std::move(content), nullptr, nullptr, nullptr, nullptr});
    }
    return std::make_shared<FormatNode>(std::move(sections), context.Key());
}

NodePtr ParseImage(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 2)
        return context.Error("Expected two arguments.");
    NodePtr name = context.Parse(arguments[1], 1, Kind::String);
    if (!name)
        return context.Error("No image name provided.");
    return std::make_shared<ImageNode>(std::move(name), context.Key());
}

} // namespace txmap
