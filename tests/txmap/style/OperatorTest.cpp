// Operators of expressions: what they give, and what they say where they cannot.
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <tests/txmap/style/ExpressionRun.h>
#include <txmap/style/operators/OperatorTable.h>
#include <txmap/style/operators/OverloadedOperator.h>

using namespace txmap;

namespace
{

struct Case
{
    const char* expression;
    const char* result;
};

// The feature that all of these cases are about.
constexpr const char* kFeature = R"({"id": 7, "type": "LineString", "properties": {
    "name": "Zürich", "population": 434000, "capital": false, "nothing": null, "tags": ["a", "b", "c"],
    "nested": {"deep": 1}, "digits": "12", "red": "#f00", "half": 0.5},
    "geometry": {"type": "LineString", "coordinates": [[1, 1], [3, 3]]}})";

void Expect(const std::vector<Case>& cases)
{
    for (const Case& one : cases)
        EXPECT_EQ(Evaluated(one.expression, kFeature, 5.0), one.result) << one.expression;
}

/// Operators of a kind.
struct Kind
{
    const char* name;
    std::vector<Case> cases;
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }

const std::vector<Kind> kKinds = {
    {"read_the_feature",
     {
         {R"(["get", "name"])", R"("Zürich")"},
         {R"(["get", "missing"])", "null"},
         {R"(["get", "deep", ["get", "nested"]])", "1"},
         {R"(["get", "x", ["get", "name"]])", "[2] Expected value to be of type object, but found string instead."},
         {R"(["has", "nothing"])", "true"},
         {R"(["has", "missing"])", "false"},
         {R"(["has", "deep", ["get", "nested"]])", "true"},
         {R"(["id"])", "7"},
         {R"(["geometry-type"])", R"("LineString")"},
         {R"(["length", ["to-string", ["properties"]]])", "147"},
         {R"(["feature-state", "hover"])", "null"},
         {R"(["global-state", "theme"])", "null"},
         {R"(["get"])", " Expected arguments of type (string) | (string, object), but found () instead."},
         {R"(["accumulated"])", R"("sum")"},
         {R"(["elevation"])", "321"},
         {R"(["heatmap-density"])", "0.75"},
         {R"(["line-progress"])", "0.25"},
     }},
    {"assert_types",
     {
         {R"(["number", ["get", "half"]])", "0.5"},
         {R"(["number", ["get", "name"]])", " Expected value to be of type number, but found string instead."},
         {R"(["number", ["get", "name"], ["get", "half"]])", "0.5"},
         {R"(["string", ["get", "half"], "other"])", R"("other")"},
         {R"(["boolean", ["get", "capital"]])", "false"},
         {R"(["object", ["get", "nested"]])", R"({"deep":1})"},
         {R"(["array", "string", 3, ["get", "tags"]])", R"(["a","b","c"])"},
         {R"(["array", "number", ["get", "tags"]])",
          " Expected value to be of type array<number>, but found array<string, 3> instead."},
         {R"(["array", 0, ["get", "tags"]])",
          "[1] The item type argument of \"array\" must be one of string, number, boolean"},
         {R"(["array", "string", -1, ["get", "tags"]])",
          "[2] The length argument to \"array\" must be a positive integer literal"},
         {R"(["literal", [1, "a"]])", R"([1,"a"])"},
         {R"(["semiliteral", [["get", "half"], "a"]])", R"([0.5,"a"])"},
     }},
    {"convert_types",
     {
         {R"(["to-number", ["get", "digits"]])", "12"},
         {R"(["to-number", ["get", "nothing"]])", "0"},
         {R"(["to-number", "0x1F"])", "31"},
         {R"(["to-number", ["get", "name"], 3])", "3"},
         {R"(["to-number", ["get", "tags"]])", " Could not convert [\"a\",\"b\",\"c\"] to number."},
         {R"(["to-string", ["get", "nested"]])", R"("{\"deep\":1}")"},
         {R"(["to-string", 1e21])", R"("1e+21")"},
         {R"(["to-string", 0.000001])", R"("0.000001")"},
         {R"(["to-string", 1e-7])", R"("1e-7")"},
         {R"(["to-string", ["rgba", 1, 2, 3, 0.5]])", "\"rgba(1,2,3,0.5)\""},
         {R"(["to-boolean", ["get", "nothing"]])", "false"},
         {R"(["to-boolean", "false"])", "true"},
         {R"(["to-color", ["get", "red"]])", "rgba(255,0,0,1)"},
         {R"(["to-color", ["get", "name"]])", " Could not parse color from value 'Zürich'"},
         {R"(["to-rgba", "lime"])", "[0,255,0,1]"},
         {R"(["rgb", 0, 0, 300])", " Invalid rgba value [0, 0, 300, 1]: 'r', 'g', and 'b' must be between 0 and 255."},
         {R"(["typeof", ["get", "tags"]])", R"("array<string, 3>")"},
         {R"(["to-string", 1, 2])", " Expected one argument."},
     }},
    {"look_up",
     {
         {R"(["at", 1, ["array", ["get", "tags"]]])", R"("b")"},
         {R"(["at", 3, ["array", ["get", "tags"]]])", " Array index out of bounds: 3 > 2."},
         {R"(["at", -1, ["literal", [1]]])", " Array index out of bounds: -1 < 0."},
         {R"(["in", "b", ["get", "tags"]])", "true"},
         {R"(["in", "ric", ["get", "name"]])", "true"},
         {R"(["in", 1, ["get", "half"]])",
          " Expected second argument to be of type array or string, but found number instead."},
         {R"(["index-of", "c", ["get", "tags"]])", "2"},
         {R"(["index-of", "r", ["get", "name"]])", "2"},
         {R"(["index-of", 2, ["literal", [0, 1, 2, 0, 1, 2]], -1])", "5"},
         {R"(["slice", ["get", "name"], 1, 3])", R"("ür")"},
         {R"(["slice", ["get", "tags"], -2])", R"(["b","c"])"},
         {R"(["slice", ["get", "half"], 1])",
          " Expected first argument to be of type array or string, but found number instead."},
         {R"(["length", ["get", "name"]])", "6"},
         {R"(["length", 0])", " Expected argument of type string or array, but found number instead."},
     }},
    {"decide",
     {
         {R"(["case", ["get", "capital"], 1, [">", ["get", "population"], 1000], 2, 3])", "2"},
         {R"(["case", ["get", "name"], 1, 2])", "[1] Expected value to be of type boolean, but found string instead."},
         {R"(["match", ["get", "name"], ["Bern", "Zürich"], "city", "other"])", R"("city")"},
         {R"(["match", ["get", "name"], 1, "city", "other"])", R"("other")"},
         {R"(["match", ["get", "half"], 0.5, "a", "b"])", "[2] Numeric branch labels must be integer values."},
         {R"(["match", ["get", "half"], [1, 1], "a", "b"])", "[2] Branch labels must be unique."},
         {R"(["coalesce", ["get", "missing"], ["get", "name"]])", R"("Zürich")"},
         {R"(["coalesce", ["get", "missing"], ["get", "nothing"]])", "null"},
         {R"(["coalesce", ["image", "a"], ["image", "b"]])", R"("a")"},
         {R"(["any", true, ["error", "unreachable"]])", "true"},
         {R"(["all", true, ["!", ["get", "capital"]]])", "true"},
         {R"(["error", "my reason"])", " my reason"},
         {R"(["step", ["zoom"], ["get", "half"], 5, ["get", "population"]])", "434000"},
         {R"(["within", {"type": "Polygon", "coordinates": [[[0, 0], [4, 0], [4, 4], [0, 4], [0, 0]]]}])", "true"},
         {R"(["within", {"type": "Polygon", "coordinates": [[[0, 0], [2, 0], [2, 2], [0, 2], [0, 0]]]}])", "false"},
         {R"(["<", ["distance", {"type": "Point", "coordinates": [3, 3]}], 0.001])", "true"},
         {R"(["round", ["/", ["distance", {"type": "Point", "coordinates": [3, 4]}], 1000]])", "111"},
     }},
    {"compare",
     {
         {R"(["==", ["get", "half"], 0.5])", "true"},
         {R"(["==", ["get", "half"], "0.5"])", "false"},
         {R"(["!=", ["get", "tags"], ["get", "nested"]])", "true"},
         {R"(["==", ["literal", [1]], 1])", "[1] \"==\" comparisons are not supported for type 'array<number, 1>'."},
         {R"(["<", "a", 1])", " Cannot compare types 'string' and 'number'."},
         {R"(["<", ["get", "name"], 1])", " Expected value to be of type number, but found string instead."},
         {R"(["<", ["get", "name"], ["get", "half"]])", " Expected arguments for \"<\" to be (string, string) or "
                                                        "(number, number), but found (string, number) instead."},
         {R"([">", ["get", "name"], "Zug"])", "true"},
         {R"(["==", ["get", "name"], "zurich", ["collator", {"locale": "en"}]])", "true"},
         {R"(["==", ["get", "name"], "zuerich", ["collator", {"locale": "de"}]])", "true"},
         {R"(["==", ["get", "name"], "zürich", ["collator", {"case-sensitive": true}]])", "false"},
         {R"(["<", "ä", "z", ["collator", {"locale": "sv"}]])", "false"},
         {R"(["==", 1, 2, ["collator", {}]])", " Cannot use collator to compare non-string types."},
         {R"(["resolved-locale", ["collator", {"locale": "de-XX"}]])", R"("de")"},
         {R"(["resolved-locale", ["collator", {"locale": "tlh"}]])", R"("en-US")"},
         {R"(["<=", ["get", "half"], 0.5])", "true"},
         {R"([">=", ["get", "half"], 0.6])", "false"},
     }},
    {"draw_curves",
     {
         {R"(["step", ["zoom"], "a", 5, "b", 6, "c"])", R"("b")"},
         {R"(["interpolate", ["linear"], ["zoom"], 0, 0, 10, 100])", "50"},
         {R"(["interpolate", ["exponential", 2], ["zoom"], 4, 0, 6, 3])", "1"},
         {R"(["interpolate", ["cubic-bezier", 0.25, 0, 0.75, 1], ["zoom"], 0, 0, 10, 1])", "0.5"},
         {R"(["interpolate", ["linear"], ["zoom"], 0, "red", 10, "blue"])", " Type string is not interpolatable."},
         {R"(["interpolate", ["linear"], ["zoom"], 0, ["to-color", "red"], 10, ["to-color", "blue"]])",
          "rgba(128,0,128,1)"},
         {R"(["interpolate", ["linear"], ["zoom"], 0, ["literal", [0, 2]], 10, ["literal", [1, 4]]])", "[0.5,3]"},
         {R"(["interpolate", ["linear"], ["zoom"], 0, 1, 0, 2])",
          "[5] Input/output pairs for \"interpolate\" expressions must be arranged with input values in strictly "
          "ascending order."},
         {R"(["interpolate", ["cubic-bezier", 0, 2, 1, 1], ["zoom"], 0, 1, 2, 2])",
          "[1] Cubic bezier interpolation requires four numeric arguments with values between 0 and 1."},
         {R"(["interpolate", ["linear"], ["get", "name"], 0, 1, 2, 2])",
          "[2] Expected value to be of type number, but found string instead."},
         {R"(["interpolate", ["linear"], ["/", 0, 0], 0, 1, 2, 2])", " Input is not a number."},
         {R"(["interpolate-lab", ["linear"], ["zoom"], 0, "red", 10, "blue"])", "rgba(193,0,136,1)"},
         {R"(["interpolate-hcl", ["linear"], ["zoom"], 0, "red", 10, "blue"])", "rgba(245,0,134,1)"},
     }},
    {"calculate",
     {
         {R"(["+", 1, 2, 3])", "6"},
         {R"(["-", 5])", "-5"},
         {R"(["-", 1, 2, 3])",
          " Expected arguments of type (number, number) | (number), but found (number, number, number) instead."},
         {R"(["/", 1, 0])", "null"},
         {R"(["%", -5, 3])", "-2"},
         {R"(["^", 2, 10])", "1024"},
         {R"(["round", -2.5])", "-3"},
         {R"(["floor", -2.5])", "-3"},
         {R"(["ceil", 2.1])", "3"},
         {R"(["abs", -2])", "2"},
         {R"(["min", 3, ["get", "half"]])", "0.5"},
         {R"(["max"])", "null"},
         {R"(["log2", 8])", "3"},
         {R"(["let", "a", 2, ["let", "b", ["*", ["var", "a"], 3], ["+", ["var", "a"], ["var", "b"]]]])", "8"},
         {R"(["let", "a", 2, ["var", "b"]])", "[3][1] Unknown variable \"b\". Make sure \"b\" has been bound in an "
                                              "enclosing \"let\" expression before using "
                                              "it."},
         {R"(["*", 2, 3, 4])", "24"},
         {R"(["sin", ["/", ["pi"], 2]])", "1"},
         {R"(["sin", 0])", "0"},
         {R"(["cos", 0])", "1"},
         {R"(["cos", ["pi"]])", "-1"},
         {R"(["round", ["*", 1000, ["tan", 1]]])", "1557"},
         {R"(["round", ["*", 1000, ["asin", 1]]])", "1571"},
         {R"(["round", ["*", 1000, ["acos", 0.5]]])", "1047"},
         {R"(["round", ["*", 1000, ["atan", 1]]])", "785"},
         {R"(["ln", ["e"]])", "1"},
         {R"(["round", ["*", 1000000, ["ln2"]]])", "693147"},
         {R"(["log10", 1000])", "3"},
         {R"(["sqrt", 9])", "3"},
     }},
    {"work_on_texts",
     {
         {R"(["upcase", "straße"])", R"("STRASSE")"},
         {R"(["downcase", ["get", "name"]])", R"("zürich")"},
         {R"(["concat", ["get", "name"], " ", ["get", "half"], ["get", "nothing"], true])", R"("Zürich 0.5true")"},
         {R"(["split", "a-b-c", "-"])", R"(["a","b","c"])"},
         {R"(["join", ["get", "tags"], "/"])", R"("a/b/c")"},
         {R"(["number-format", 1234.5678, {"locale": "de", "max-fraction-digits": 1}])", R"("1.234,6")"},
         {R"(["number-format", 1234.5, {"currency": "JPY"}])", R"("¥1,235")"},
         {R"(["number-format", 5, {"unit": "kilometer", "min-fraction-digits": 1}])", R"("5.0 km")"},
         {R"(["number-format", 5, {"currency": "nonsense"}])", " Invalid currency code : nonsense"},
         {R"(["format", "a", {"font-scale": 2}, ["image", "b"]])",
          R"({"sections":[{"text":"a","image":null,"scale":2,"fontStack":null,"textColor":null,"verticalAlign":null},)"
          R"({"text":"","image":{"name":"b","available":false},"scale":null,"fontStack":null,"textColor":null,)"
          R"("verticalAlign":null}]})"},
         {R"(["format", 3])", " Formatted text type must be 'string', 'value', 'image' or 'null'."},
         {R"(["image", ""])", "null"},
         {R"(["is-supported-script", "a"])", "true"},
         {R"(["is-supported-script", "\u0e01"])", "true"},
     }},
    {"filter_features",
     {
         {R"(["filter-==", "half", 0.5])", "true"},
         {R"(["filter-<", "half", 0.5])", "false"},
         {R"(["filter->", "half", 0.4])", "true"},
         {R"(["filter-<=", "half", 0.5])", "true"},
         {R"(["filter->=", "half", 0.6])", "false"},
         {R"(["filter-id-==", 7])", "true"},
         {R"(["filter-id-<", 7])", "false"},
         {R"(["filter-id->", 6])", "true"},
         {R"(["filter-id-<=", 7])", "true"},
         {R"(["filter-id->=", 8])", "false"},
         {R"(["filter-type-==", "LineString"])", "true"},
         {R"(["filter-has", "nothing"])", "true"},
         {R"(["filter-has-id"])", "true"},
         {R"(["filter-in", "half", ["literal", [0.5, 1]]])", "true"},
         {R"(["filter-id-in", ["literal", [6, 8]]])", "false"},
         {R"(["filter-type-in", ["literal", ["Point", "LineString"]]])", "true"},
     }},
};

class Operators : public ::testing::TestWithParam<Kind>
{
};

TEST_P(Operators, GiveWhatTheyShould) { Expect(GetParam().cases); }

INSTANTIATE_TEST_SUITE_P(All, Operators, ::testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

/// The names of all operators that an expression calls.
void Collect(const Json& json, std::set<std::string>& names)
{
    if (!json.is_array() || json.empty() || !json[0].is_string())
        return;
    names.insert(json[0].get<std::string>());
    if (json[0] != "literal")
        for (const Json& item : json)
            Collect(item, names);
}

TEST(OperatorNames, EachHasARowAbove)
{
    std::set<std::string> names;
    for (const Kind& kind : kKinds)
        for (const Case& one : kind.cases)
            Collect(Json::parse(one.expression), names);
    for (const OverloadedOperator& one : OverloadedOperators())
        EXPECT_EQ(names.count(one.name), 1u) << one.name;
    // Those with rules of their own stand in a table of the source, in lines like {"at", ParseAt},
    std::ifstream source(TX_TEST_OPERATORS);
    std::size_t found = 0;
    for (std::string line; std::getline(source, line);)
    {
        const std::size_t begin = line.find("{\"");
        const std::size_t end = line.find("\", Parse");
        if (begin == std::string::npos || end == std::string::npos)
            continue;
        ++found;
        const std::string name = line.substr(begin + 2, end - begin - 2);
        EXPECT_NE(FindOperator(name), nullptr) << name;
        EXPECT_EQ(names.count(name), 1u) << name;
    }
    EXPECT_GT(found, 30u);
}

TEST(OperatorMistakes, AreSaidWithTheirPlace)
{
    Expect({
        {R"([])",
         " Expected an array with at least one element. If you wanted a literal array, use [\"literal\", []]."},
        {R"([1, 2])",
         "[0] Expression name must be a string, but found number instead. If you wanted a literal array, use "
         "[\"literal\", [...]]."},
        {R"(["+", 1, ["oops"]])",
         "[2][0] Unknown expression \"oops\". If you wanted a literal array, use [\"literal\", [...]]."},
        {R"(["get", "a", {"a": 1}])", "[2] Bare objects invalid. Use [\"literal\", {...}] instead."},
        {R"(["+", ["zoom"], 0])",
         " \"zoom\" expression may only be used as input to a top-level \"step\" or \"interpolate\" expression."},
        {R"(["coalesce", ["step", ["zoom"], 1, 2, 3], ["step", ["zoom"], 1, 2, 3]])",
         " Only one zoom-based \"step\" or \"interpolate\" subexpression may be used in an expression."},
    });
    std::string deep;
    for (int i = 0; i < 100000; ++i)
        deep += "[\"-\",";
    deep += "1" + std::string(100000, ']');
    EXPECT_NE(Compiled(deep).find("Expressions must not be nested deeper than 256 levels."), std::string::npos);
}

} // namespace
