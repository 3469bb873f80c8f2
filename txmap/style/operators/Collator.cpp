#include <mutex>
#include <tuple>

#include <txmap/style/operators/OperatorTable.h>
#include <txmap/style/operators/TextCollator.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

class CollatorNode : public ExpressionNode
{
public:
    CollatorNode(NodePtr caseSensitive, NodePtr diacriticSensitive, NodePtr locale, const std::string& key)
        : ExpressionNode(Kind::Collator, key), caseSensitive(std::move(caseSensitive)),
          diacriticSensitive(std::move(diacriticSensitive)), locale(std::move(locale))
    {
    }

    Value Evaluate(const EvaluationContext& context) const override
    {
        const bool minds = caseSensitive->Evaluate(context).Boolean();
        const bool mindsMarks = diacriticSensitive->Evaluate(context).Boolean();
        return Collator(minds, mindsMarks, locale ? locale->Evaluate(context).String() : std::string());
    }
    void ForEachChild(const Visitor& visit) const override
    {
        visit(*caseSensitive);
        visit(*diacriticSensitive);
        if (locale)
            visit(*locale);
    }
    unsigned OwnUses() const override { return UsesRuntime; }

private:
    // The tables of a language take long to load, and features seldom name many languages.
    std::shared_ptr<const TextCollator> Collator(bool minds, bool mindsMarks, const std::string& tag) const
    {
        const std::lock_guard<std::mutex> guard(mutex);
        if (!last || std::tie(lastMinds, lastMindsMarks, lastTag) != std::tie(minds, mindsMarks, tag))
        {
            last = std::make_shared<const TextCollator>(minds, mindsMarks, tag);
            lastMinds = minds;
            lastMindsMarks = mindsMarks;
            lastTag = tag;
        }
        return last;
    }

    NodePtr caseSensitive;
    NodePtr diacriticSensitive;
    NodePtr locale;
    mutable std::mutex mutex;
    mutable std::shared_ptr<const TextCollator> last;
    mutable bool lastMinds = false;
    mutable bool lastMindsMarks = false;
    mutable std::string lastTag;
};

} // namespace

NodePtr ParseCollator(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 2)
        return context.Error("Expected one argument.");
    const Json& options = arguments[1];
    if (!options.is_object())
        return context.Error("Collator options argument must be an object.");
    const auto parseFlag = [&](const char* name)
    {
        const auto found = options.find(name);
        return context.Parse(found == options.end() ? Json(false) : *found, 1, Kind::Boolean);
    };
    NodePtr caseSensitive = parseFlag("case-sensitive");
    NodePtr diacriticSensitive = caseSensitive ? parseFlag("diacritic-sensitive") : nullptr;
    if (!diacriticSensitive)
        return nullptr;
    NodePtr locale;
    if (const auto found = options.find("locale"); found != options.end() && Value::FromJson(*found).IsTruthy())
    {
        locale = context.Parse(*found, 1, Kind::String);
        if (!locale)
            return nullptr;
    }
    return std::make_shared<CollatorNode>(std::move(caseSensitive), std::move(diacriticSensitive), std::move(locale),
                                          context.Key());
}

} // namespace txmap
