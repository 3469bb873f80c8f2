#include <gtest/gtest.h>
#include <tests/txmap/style/ExpressionRun.h>
#include <txmap/style/LegacyFunction.h>

using namespace txmap;

namespace
{

std::string Converted(const std::string& function, const std::string& spec)
{
    return ConvertLegacyFunction(Json::parse(function), Spec(spec)).dump();
}

TEST(LegacyFunction, of_the_zoom_mixes_or_steps)
{
    const PropertySpec number = Spec(R"({"type": "number"})");
    EXPECT_EQ(Evaluated(R"({"stops": [[0, 0], [10, 100]]})", "{}", 5.0, number), "50");
    EXPECT_EQ(Evaluated(R"({"stops": [[0, 0], [2, 3]], "base": 2})", "{}", 1.0, number), "1");
    EXPECT_EQ(Evaluated(R"({"type": "interval", "stops": [[0, 1], [10, 2]]})", "{}", 9.9, number), "1");
    const PropertySpec text =
        Spec(R"({"type": "string", "expression": {"interpolated": false, "parameters": ["zoom", "feature"]}})");
    EXPECT_EQ(Evaluated(R"({"stops": [[0, "a"], [10, "b"]]})", "{}", 10.0, text), "\"b\"");
}

TEST(LegacyFunction, of_an_attribute_takes_the_default_for_other_types)
{
    const PropertySpec number = Spec(R"({"type": "number"})");
    const std::string function = R"({"property": "p", "stops": [[0, 0], [10, 100]], "default": -1})";
    EXPECT_EQ(Evaluated(function, R"({"properties": {"p": 5}})", 0.0, number), "50");
    EXPECT_EQ(Evaluated(function, R"({"properties": {"p": "5"}})", 0.0, number), "-1");
    EXPECT_EQ(Evaluated(function, "{}", 0.0, number), "-1");
}

TEST(LegacyFunction, of_categories_tells_numbers_from_texts)
{
    const PropertySpec color = Spec(R"({"type": "color"})");
    const std::string function =
        R"({"type": "categorical", "property": "p", "stops": [["1", "red"], ["2", "lime"]], "default": "blue"})";
    EXPECT_EQ(Evaluated(function, R"({"properties": {"p": "1"}})", 0.0, color), "rgba(255,0,0,1)");
    EXPECT_EQ(Evaluated(function, R"({"properties": {"p": 1}})", 0.0, color), "rgba(0,0,255,1)");
    const std::string flags =
        R"({"type": "categorical", "property": "p", "stops": [[true, 1], [false, 2]], "default": 3})";
    EXPECT_EQ(Evaluated(flags, R"({"properties": {"p": false}})"), "2");
    EXPECT_EQ(Evaluated(flags, R"({"properties": {"p": "no"}})"), "3");
}

TEST(LegacyFunction, of_categories_needs_a_default)
{
    const std::string function = R"({"type": "categorical", "property": "p", "stops": [["a", "x"]]})";
    EXPECT_EQ(Compiled(function, Spec(R"({"type": "string"})")), "[4] 'undefined' value invalid. Use null instead.");
    EXPECT_EQ(Compiled(function, Spec(R"({"type": "string", "default": "y"})")), "string");
}

TEST(LegacyFunction, of_zoom_and_attribute_is_a_curve_of_curves)
{
    const std::string function = R"({"property": "p", "base": 2, "stops": [
        [{"zoom": 0, "value": 0}, 0], [{"zoom": 0, "value": 10}, 100],
        [{"zoom": 10, "value": 0}, 50], [{"zoom": 10, "value": 10}, 150]]})";
    EXPECT_EQ(Evaluated(function, R"({"properties": {"p": 5}})", 5.0, Spec(R"({"type": "number"})")), "75");
}

TEST(LegacyFunction, of_identity_asserts_texts_and_converts_with_a_default)
{
    const std::string identity = R"({"type": "identity", "property": "p"})";
    EXPECT_EQ(Converted(identity, R"({"type": "string"})"), R"(["string",["get","p"]])");
    EXPECT_EQ(Converted(identity, R"({"type": "color"})"), R"(["get","p"])");
    EXPECT_EQ(Converted(R"({"type": "identity", "property": "p", "default": [1]})",
                        R"({"type": "array", "value": "number", "length": 1})"),
              R"(["array","number",1,["get","p"],["literal",[1]]])");
}

TEST(LegacyFunction, mixes_colors_in_the_space_that_is_named)
{
    EXPECT_EQ(Converted(R"({"stops": [[0, "red"], [1, "blue"]], "colorSpace": "hcl"})", R"({"type": "color"})"),
              R"(["interpolate-hcl",["linear"],["zoom"],0,"red",1,"blue"])");
}

TEST(LegacyFunction, keeps_the_first_of_two_stops_at_one_place)
{
    EXPECT_EQ(Evaluated(R"({"stops": [[0, 10], [1, 20], [1, 25], [2, 30]]})", "{}", 1.0), "20");
}

TEST(LegacyFunction, of_one_stop_is_that_everywhere)
{
    EXPECT_EQ(Evaluated(R"({"type": "interval", "stops": [[3, 7]]})", "{}", 0.0), "7");
    EXPECT_EQ(Evaluated(R"({"type": "interval", "stops": [[3, 7]]})", "{}", 9.0), "7");
}

TEST(LegacyFunction, replaces_tokens_in_texts_by_zoom)
{
    EXPECT_EQ(ConvertTokens("plain").dump(), "\"plain\"");
    EXPECT_EQ(ConvertTokens("{name}").dump(), R"(["to-string",["get","name"]])");
    EXPECT_EQ(ConvertTokens("a {b} {} {c").dump(), R"(["concat","a ",["get","b"]," {} {c"])");
    const PropertySpec text = Spec(R"({"type": "string", "tokens": true})");
    EXPECT_EQ(Evaluated(R"({"type": "interval", "stops": [[0, "x {a}"], [5, "y"]]})", R"({"properties": {"a": 1}})",
                        1.0, text),
              "\"x 1\"");
}

TEST(LegacyFunction, that_makes_no_sense_does_not_compile)
{
    for (const char* function : {R"({"stops": []})", R"({"stops": 3})", R"({"stops": [[1]]})", R"({"stops": [1, 2]})",
                                 R"({"stops": [[{}, 1]]})", R"({"type": 3, "stops": [[[1], 2]]})"})
        EXPECT_NE(Compiled(function, Spec(R"({"type": "number"})")), "number") << function;
}

} // namespace
