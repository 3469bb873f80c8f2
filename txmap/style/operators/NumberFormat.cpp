#include <algorithm>
#include <cmath>

#include <unicode/decimfmt.h>
#include <unicode/measunit.h>
#include <unicode/numberformatter.h>

#include <txmap/style/operators/OperatorTable.h>
#include <txmap/style/operators/TextCollator.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

/// The options of a formatted number, each an expression or null.
struct NumberOptions
{
    NodePtr locale;
    NodePtr currency;
    NodePtr unit;
    NodePtr minimumDigits; ///< Behind the point.
    NodePtr maximumDigits;
};

int Digits(double number) { return std::isnan(number) ? 0 : static_cast<int>(std::clamp(number, 0.0, 100.0)); }

class NumberFormatNode : public ExpressionNode
{
public:
    NumberFormatNode(NodePtr number, NumberOptions options, const std::string& key)
        : ExpressionNode(Kind::String, key), number(std::move(number)), options(std::move(options))
    {
    }

    Value Evaluate(const EvaluationContext& context) const override
    {
        using namespace icu::number;
        UErrorCode status = U_ZERO_ERROR;
        const std::string tag = options.locale ? options.locale->Evaluate(context).String() : std::string();
        LocalizedNumberFormatter formatter =
            NumberFormatter::withLocale(icu::Locale::forLanguageTag(SupportedLocale(tag), status));
        int standardMinimum = 0;
        int standardMaximum = 3;
        if (options.currency)
        {
            const icu::CurrencyUnit currency = Currency(options.currency->Evaluate(context).String());
            standardMinimum = ucurr_getDefaultFractionDigits(currency.getISOCurrency(), &status);
            standardMaximum = standardMinimum;
            formatter = formatter.unit(currency);
        }
        else if (options.unit)
            formatter = formatter.unit(Unit(options.unit->Evaluate(context).String())).unitWidth(UNUM_UNIT_WIDTH_SHORT);
        const auto [minimum, maximum] = FractionDigits(standardMinimum, standardMaximum, context);
        formatter = formatter.precision(Precision::minMaxFraction(minimum, maximum)).roundingMode(UNUM_ROUND_HALFUP);
        std::string text;
        formatter.formatDouble(NumberOf(*number, context), status).toString(status).toUTF8String(text);
        if (U_FAILURE(status))
            Fail(std::string("The number cannot be formatted: ") + u_errorName(status));
        return text;
    }
    void ForEachChild(const Visitor& visit) const override
    {
        visit(*number);
        for (const NodePtr& option :
             {options.locale, options.currency, options.unit, options.minimumDigits, options.maximumDigits})
            if (option)
                visit(*option);
    }

private:
    icu::CurrencyUnit Currency(const std::string& code) const
    {
        UErrorCode status = U_ZERO_ERROR;
        const bool letters = code.size() == 3 && std::all_of(code.begin(), code.end(),
                                                             [](char letter) {
                                                                 return (letter >= 'A' && letter <= 'Z') ||
                                                                        (letter >= 'a' && letter <= 'z');
                                                             });
        if (!letters)
            Fail("Invalid currency code : " + code);
        icu::CurrencyUnit currency(icu::StringPiece(code), status);
        if (U_FAILURE(status))
            Fail("Invalid currency code : " + code);
        return currency;
    }
    icu::MeasureUnit Unit(const std::string& name) const
    {
        UErrorCode status = U_ZERO_ERROR;
        icu::MeasureUnit unit = icu::MeasureUnit::forIdentifier(name, status);
        if (U_FAILURE(status))
            Fail("Invalid unit argument for Intl.NumberFormat() '" + name + "'");
        return unit;
    }
    // A limit that is given moves the other one, which then is only the standard.
    std::pair<int, int> FractionDigits(int standardMinimum, int standardMaximum, const EvaluationContext& context) const
    {
        int minimum = standardMinimum;
        int maximum = standardMaximum;
        if (options.minimumDigits)
        {
            minimum = Digits(NumberOf(*options.minimumDigits, context));
            maximum = std::max(maximum, minimum);
        }
        if (options.maximumDigits)
        {
            maximum = Digits(NumberOf(*options.maximumDigits, context));
            if (options.minimumDigits && minimum > maximum)
                Fail("maximumFractionDigits value is out of range.");
            minimum = std::min(minimum, maximum);
        }
        return {minimum, maximum};
    }

    NodePtr number;
    NumberOptions options;
};

// An option that is given and counts as true, as an expression. False after an error.
bool ParseOption(const Json& options, const char* name, const ExpressionType& type, NodePtr& option,
                 ParsingContext& context)
{
    const auto found = options.find(name);
    if (found == options.end() || !Value::FromJson(*found).IsTruthy())
        return true;
    option = context.Parse(*found, 1, type);
    return option != nullptr;
}

} // namespace

NodePtr ParseNumberFormat(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 3)
        return context.Error("Expected two arguments.");
    NodePtr number = context.Parse(arguments[1], 1, Kind::Number);
    if (!number)
        return nullptr;
    const Json& json = arguments[2];
    if (!json.is_object())
        return context.Error("NumberFormat options argument must be an object.");
    NumberOptions options;
    const bool good = ParseOption(json, "locale", Kind::String, options.locale, context) &&
                      ParseOption(json, "currency", Kind::String, options.currency, context) &&
                      ParseOption(json, "unit", Kind::String, options.unit, context) &&
                      ParseOption(json, "min-fraction-digits", Kind::Number, options.minimumDigits, context) &&
                      ParseOption(json, "max-fraction-digits", Kind::Number, options.maximumDigits, context);
    if (!good)
        return nullptr;
    if (options.currency && options.unit)
        return context.Error("NumberFormat options `currency` and `unit` are mutually exclusive");
    return std::make_shared<NumberFormatNode>(std::move(number), std::move(options), context.Key());
}

} // namespace txmap
