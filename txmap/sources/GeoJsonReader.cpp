#include <txmap/sources/GeoJsonReader.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <system_error>

#include <nlohmann/json.hpp>
#include <rapidjson/reader.h>

#include <txmap/sources/GeoJsonEvents.h>

namespace txmap
{
namespace
{

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Texts and numbers stay where they are, and numbers are left to the standard library, which is exact and faster.
constexpr unsigned kParsing =
    rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseValidateEncodingFlag;

/// Numbers without an exponent whose digits and whose power of ten a double holds exactly: one division is as exact as
/// it can be then. Nothing for others.
std::optional<double> ShortNumber(const char* text, std::size_t length)
{
    constexpr std::size_t kMostCharacters = 17; // 15 digits, a sign and a point.
    constexpr double kPowers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    if (length > kMostCharacters)
        return std::nullopt;
    const char* const end = text + length;
    const bool isNegative = *text == '-';
    std::int64_t digits = 0;
    std::size_t count = 0;
    const char* point = end;
    for (const char* at = text + (isNegative ? 1 : 0); at != end; ++at)
    {
        if (*at == '.')
            point = at + 1;
        else if (*at < '0' || *at > '9' || ++count >= std::size(kPowers))
            return std::nullopt;
        else
            digits = digits * 10 + (*at - '0');
    }
    const double number = static_cast<double>(digits) / kPowers[end - point];
    return isNegative ? -number : number;
}

/// Hands over what a reader of text comes across.
class TextEvents : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, TextEvents>
{
public:
    explicit TextEvents(GeoJsonEvents& events) : events(events) {}

    bool Null() { return events.Null(); }
    bool Bool(bool value) { return events.Boolean(value); }
    bool RawNumber(const char* text, rapidjson::SizeType length, bool /*copy*/)
    {
        if (const std::optional<double> number = ShortNumber(text, length))
            return events.Number(*number);
        double number = 0.0;
        if (std::from_chars(text, text + length, number).ec != std::errc())
        {
            // Too small, or too large.
            number = std::strtod(std::string(text, length).c_str(), nullptr);
            if (!std::isfinite(number))
            {
                isOutOfRange = true;
                return false;
            }
        }
        return events.Number(number);
    }
    bool String(const char* text, rapidjson::SizeType length, bool /*copy*/)
    {
        return events.Text(std::string(text, length));
    }
    bool Key(const char* text, rapidjson::SizeType length, bool /*copy*/) { return events.Key({text, length}); }
    bool StartObject() { return events.Begin(true); }
    bool EndObject(rapidjson::SizeType /*members*/) { return events.End(); }
    bool StartArray() { return events.Begin(false); }
    bool EndArray(rapidjson::SizeType /*items*/) { return events.End(); }

    /// True if a number ended the reading.
    bool IsOutOfRange() const { return isOutOfRange; }

private:
    GeoJsonEvents& events;
    bool isOutOfRange = false;
};

/// Tells of a tree of JSON what a reader of its text would. The tree must be shallow: it is walked on the stack.
bool Walk(const Json& json, GeoJsonEvents& events)
{
    if (json.is_object())
    {
        if (!events.Begin(true))
            return false;
        for (const auto& [name, value] : json.items())
            if (!events.Key(name) || !Walk(value, events))
                return false;
        return events.End();
    }
    if (json.is_array())
    {
        if (!events.Begin(false))
            return false;
        for (const Json& value : json)
            if (!Walk(value, events))
                return false;
        return events.End();
    }
    if (json.is_string())
        return events.Text(json.get<std::string>());
    if (json.is_boolean())
        return events.Boolean(json.get<bool>());
    return json.is_number() ? events.Number(json.get<double>()) : events.Null();
}

} // namespace

GeoJsonResult ReadGeoJsonText(std::string text, const GeoJsonOptions& options, FeatureSetBuilder& builder,
                              FeatureSet& set)
{
    // A vector that grows copies a coastline as often as it doubles. Memory that is never written costs nothing.
    constexpr std::size_t kBytesOfPosition = 24;
    set.points.reserve(set.points.size() + text.size() / kBytesOfPosition);
    GeoJsonEvents events(options, builder, set);
    TextEvents handler(events);
    const std::size_t mark = text.compare(0, kByteOrderMark.size(), kByteOrderMark) == 0 ? kByteOrderMark.size() : 0;
    rapidjson::InsituStringStream stream(text.data() + mark);
    rapidjson::Reader reader;
    reader.Parse<kParsing>(stream, handler);
    GeoJsonResult& result = events.result;
    if (!result.problem.empty())
        return result;
    if (reader.HasParseError())
    {
        const bool isOutOfRange =
            handler.IsOutOfRange() || reader.GetParseErrorCode() == rapidjson::kParseErrorNumberTooBig;
        result.problem = (isOutOfRange ? "has a number out of range at byte " : "is no valid JSON at byte ") +
                         std::to_string(mark + reader.GetErrorOffset() + 1);
        // A sequence of features fails behind the first, or before it. Others are more lenient with what stands in
        // texts.
        result.isOther = events.IsOutside() || !isOutOfRange;
    }
    else if (mark + stream.Tell() < text.size())
    {
        // Where a text ends for the reader, a zero stands.
        result.problem = "is no valid JSON at byte " + std::to_string(mark + stream.Tell() + 1);
        result.isOther = true;
    }
    return result;
}

GeoJsonResult ReadGeoJson(const Json& json, const GeoJsonOptions& options, FeatureSetBuilder& builder, FeatureSet& set)
{
    GeoJsonEvents events(options, builder, set);
    if (json.is_object())
        Walk(json, events);
    else
        events.result.problem = "is no GeoJSON";
    return events.result;
}

Value FeatureId(const Value& given)
{
    double number = std::nan("");
    if (given.Is(Value::Kind::Number))
        number = given.Number();
    else if (given.Is(Value::Kind::String) && !given.String().empty())
    {
        char* end = nullptr;
        number = std::strtod(given.String().c_str(), &end);
        if (*end != '\0')
            return {};
    }
    return std::isfinite(number) ? Value(std::trunc(number)) : Value();
}

} // namespace txmap
