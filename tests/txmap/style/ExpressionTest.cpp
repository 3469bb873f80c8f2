#include <gtest/gtest.h>
#include <tests/txmap/style/ExpressionRun.h>

using namespace txmap;

namespace
{

Expression Make(const std::string& text, const std::string& spec = "{}")
{
    return std::get<Expression>(CompileProperty(Json::parse(text), Spec(spec)));
}

TEST(Expression, of_constant_parts_is_a_value_after_compilation)
{
    ASSERT_TRUE(Make(R"(["+", 1, ["*", 2, 3]])").Constant());
    EXPECT_EQ(Make(R"(["+", 1, ["*", 2, 3]])").Constant()->Number(), 7.0);
    EXPECT_TRUE(Make("\"red\"", R"({"type": "color"})").Constant()->Is(Value::Kind::Color));
    EXPECT_TRUE(Make(R"(["let", "a", 1, ["+", ["var", "a"], 1]])").Constant());
    EXPECT_FALSE(Make(R"(["get", "a"])").Constant());
    EXPECT_FALSE(Make(R"(["global-state", "a"])").Constant());
    EXPECT_EQ(Compiled(R"(["number", ["literal", "a"]])"),
              " Expected value to be of type number, but found string instead.");
}

TEST(Expression, knows_what_it_depends_on)
{
    EXPECT_TRUE(Make(R"(["step", ["zoom"], 1, 5, 2])").IsFeatureConstant());
    EXPECT_FALSE(Make(R"(["step", ["zoom"], 1, 5, 2])").IsZoomConstant());
    EXPECT_FALSE(Make(R"(["step", ["zoom"], 1, 5, ["get", "a"]])").IsFeatureConstant());
    EXPECT_TRUE(Make(R"(["get", "a", ["literal", {"a": 1}]])").IsFeatureConstant());
}

TEST(Expression, names_the_attributes_that_it_reads)
{
    const UsedProperties used =
        Make(R"(["case", ["has", "a"], ["get", "b"], ["get", "c", ["get", "d"]]])").Properties();
    EXPECT_FALSE(used.all);
    EXPECT_EQ(used.names, (std::set<std::string>{"a", "b", "d"}));
    EXPECT_TRUE(Make(R"(["get", ["get", "a"]])").Properties().all);
    EXPECT_TRUE(Make(R"(["properties"])").Properties().all);
}

TEST(Expression, gives_the_same_at_one_zoom)
{
    const TestFeature feature(R"({"properties": {"a": 3}})");
    for (const char* text : {R"(["interpolate", ["exponential", 1.5], ["zoom"], 2, 1, 8, ["get", "a"], 9, 10])",
                             R"(["step", ["zoom"], 1, 5, ["get", "a"], 7, 9])",
                             R"(["let", "x", 1, ["interpolate", ["linear"], ["zoom"], 0, ["var", "x"], 10, 20]])"})
        for (const double zoom : {0.0, 2.0, 5.0, 6.5, 8.0, 8.5, 9.0, 22.0})
        {
            const Expression expression = Make(text);
            EvaluationContext context;
            context.zoom = zoom;
            context.feature = &feature;
            EXPECT_EQ(expression.AtZoom(zoom).Evaluate(context).Number(), expression.Evaluate(context).Number())
                << text << " at " << zoom;
        }
    EXPECT_TRUE(Make(R"(["step", ["zoom"], 1, 5, 2])").AtZoom(6.0).Constant());
}

TEST(Expression, falls_back_to_the_default_of_its_property)
{
    const Expression number = Make(R"(["get", "a"])", R"({"type": "number", "default": 4})");
    std::string problem;
    EXPECT_EQ(number.EvaluateOrDefault(EvaluationContext(), &problem).Number(), 4.0);
    EXPECT_EQ(problem, "Expected value to be of type number, but found null instead.");

    const TestFeature feature(R"({"properties": {"a": "diagonal"}})");
    EvaluationContext context;
    context.feature = &feature;
    const Expression choice =
        Make(R"(["get", "a"])", R"({"type": "enum", "values": {"left": {}, "right": {}}, "default": "left"})");
    EXPECT_EQ(choice.EvaluateOrDefault(context, &problem).String(), "left");
    EXPECT_EQ(problem, "Expected value to be one of \"left\", \"right\", but found \"diagonal\" instead.");
}

TEST(Expression, keeps_to_what_its_property_allows)
{
    EXPECT_EQ(Compiled(R"(["get", "a"])", Spec(R"({"type": "number", "property-type": "data-constant"})")),
              " data expressions not supported");
    EXPECT_EQ(Compiled(R"(["step", ["zoom"], 1, 2, 3])", Spec(R"({"expression": {"parameters": ["feature"]}})")),
              " zoom expressions not supported");
    EXPECT_EQ(Compiled(R"(["interpolate", ["linear"], ["zoom"], 1, 2, 3, 4])",
                       Spec(R"({"expression": {"parameters": ["zoom"], "interpolated": false}})")),
              " \"interpolate\" expressions cannot be used with this property");
}

TEST(Expression, takes_the_type_of_its_property)
{
    EXPECT_EQ(Compiled(R"(["get", "a"])", Spec(R"({"type": "array", "value": "number", "length": 2})")),
              "array<number, 2>");
    EXPECT_EQ(Compiled("[]", Spec(R"({"type": "array", "value": "number"})")),
              " Expected an array with at least one element. If you wanted a literal array, use [\"literal\", []].");
    EXPECT_EQ(Compiled("1", Spec(R"({"type": "color"})")), " Expected color but found number instead.");
    const std::string anyText = R"({"properties": {"a": [1, 2, 3]}})";
    EXPECT_EQ(Evaluated(R"(["get", "a"])", anyText, 0.0, Spec(R"({"type": "padding"})")), R"({"values":[1,2,3,2]})");
    EXPECT_EQ(Evaluated(R"(["get", "a"])", anyText, 0.0, Spec(R"({"type": "numberArray"})")), R"({"values":[1,2,3]})");
    EXPECT_EQ(Evaluated(R"(["get", "a"])", anyText, 0.0, Spec(R"({"type": "string"})")), R"("[1,2,3]")");
    EXPECT_EQ(Evaluated(R"(["get", "a"])", anyText, 0.0, Spec(R"({"type": "colorArray"})")),
              " Could not parse colorArray from value '[1,2,3]'");
    EXPECT_EQ(
        Evaluated(R"(["literal", ["top", [1, 2]]])", "{}", 0.0, Spec(R"({"type": "variableAnchorOffsetCollection"})")),
        R"({"values":["top",[1,2]]})");
}

TEST(Expression, within_leaves_out_the_outline)
{
    const std::string within =
        R"(["within", {"type": "Polygon", "coordinates": [[[0, 0], [0, 5], [5, 5], [5, 0], [0, 0]]]}])";
    const auto feature = [](const std::string& type, const std::string& coordinates)
    { return R"({"geometry": {"type": ")" + type + R"(", "coordinates": )" + coordinates + "}}"; };
    EXPECT_EQ(Evaluated(within, feature("Point", "[1, 4]")), "true");
    EXPECT_EQ(Evaluated(within, feature("Point", "[361, 4]")), "true") << "the next world";
    EXPECT_EQ(Evaluated(within, feature("Point", "[5, 5]")), "false");
    EXPECT_EQ(Evaluated(within, feature("Point", "[0, 3]")), "false");
    EXPECT_EQ(Evaluated(within, feature("MultiPoint", "[[1, 1], [6, 1]]")), "false");
    EXPECT_EQ(Evaluated(within, feature("LineString", "[[1, 1], [4, 4]]")), "true");
    EXPECT_EQ(Evaluated(within, feature("LineString", "[[1, 1], [6, 4]]")), "false");
    EXPECT_EQ(Evaluated(within, feature("Polygon", "[[[1, 1], [2, 2], [2, 1], [1, 1]]]")), "false");
    EXPECT_EQ(Evaluated(within, "{}"), "false");
}

TEST(Expression, distance_is_in_metres)
{
    const std::string distance = R"(["round", ["distance", {"type": "LineString", "coordinates": [[3, 3], [3, 4]]}]])";
    const auto feature = [](const std::string& type, const std::string& coordinates)
    { return R"({"geometry": {"type": ")" + type + R"(", "coordinates": )" + coordinates + "}}"; };
    EXPECT_EQ(Evaluated(distance, feature("Point", "[3, 2.99]")), "1106");
    EXPECT_EQ(Evaluated(distance, feature("Point", "[3, 3.5]")), "0");
    EXPECT_EQ(Evaluated(distance, feature("Point", "[363.01, 3]")), "1112") << "the next world";
    EXPECT_EQ(Evaluated(distance, feature("LineString", "[[2, 3.5], [4, 3.5]]")), "0") << "they cross";
    EXPECT_EQ(Evaluated(distance, feature("Polygon", "[[[0, 0], [0, 5], [5, 5], [5, 0], [0, 0]]]")), "0");
    EXPECT_EQ(Evaluated(distance, "{}"), "null");
}

TEST(Value, copies_share_what_they_hold)
{
    const Value list = ValueArray{1, "a"};
    const Value copy = list;
    EXPECT_EQ(&copy.Array(), &list.Array());
    EXPECT_TRUE(copy == list);
    EXPECT_FALSE(list == Value(ValueArray{1, "a"}));
    EXPECT_EQ(Value::FromJson(Json::parse(R"({"b": [null, 1.50], "a": "é\""})")).ToJsonText(),
              R"({"b":[null,1.5],"a":"é\""})");
}

} // namespace
