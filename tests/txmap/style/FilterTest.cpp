#include <gtest/gtest.h>
#include <tests/txmap/style/ExpressionRun.h>
#include <txmap/style/Filter.h>

using namespace txmap;

namespace
{

// What passes a filter, of three features: a 1 for each that does.
std::string Passing(const std::string& filter)
{
    const char* const features[] = {
        R"({"properties": {"a": 1, "b": "x", "c": null, "d": true}, "id": 7, "type": "Point"})",
        R"({"properties": {"a": "1", "b": "y"}, "id": "s", "type": "LineString"})",
        R"({"properties": {}, "type": "Polygon"})",
    };
    std::string passing;
    const CompiledExpression compiled = CompileFilter(Json::parse(filter));
    if (!std::holds_alternative<Expression>(compiled))
        return "does not compile";
    for (const char* text : features)
    {
        const TestFeature feature(text);
        EvaluationContext context;
        context.feature = &feature;
        passing += std::get<Expression>(compiled).EvaluateOrDefault(context).Boolean() ? '1' : '0';
    }
    return passing;
}

TEST(Filter, passes_what_browsers_pass)
{
    const std::pair<const char*, const char*> cases[] = {
        {R"(null)", "111"},
        {R"(["==","a",1])", "100"},
        {R"(["==","a","1"])", "010"},
        {R"(["!=","a",1])", "011"},
        {R"(["<","a",2])", "100"},
        {R"(["<","b","y"])", "100"},
        {R"(["<=","b","x"])", "100"},
        {R"([">","a","0"])", "010"},
        {R"([">=","a",1])", "100"},
        {R"(["==","c",null])", "100"},
        {R"(["!=","c",null])", "011"},
        {R"(["==","d",true])", "100"},
        {R"(["in","a",1,2])", "100"},
        {R"(["in","a"])", "000"},
        {R"(["in","b","x","y"])", "110"},
        {R"(["!in","b","x"])", "011"},
        {R"(["in","a","1",1])", "110"},
        {R"(["has","a"])", "110"},
        {R"(["!has","a"])", "001"},
        {R"(["has","c"])", "100"},
        {R"(["has","$id"])", "110"},
        {R"(["has","$type"])", "111"},
        {R"(["!has","$id"])", "001"},
        {R"(["==","$type","Point"])", "100"},
        {R"(["!=","$type","Point"])", "011"},
        {R"(["in","$type","LineString","Polygon"])", "011"},
        {R"(["==","$id",7])", "100"},
        {R"(["<","$id",10])", "100"},
        {R"(["in","$id",7,"s"])", "110"},
        {R"(["!in","$id",7])", "011"},
        {R"(["all"])", "111"},
        {R"(["any"])", "000"},
        {R"(["none"])", "111"},
        {R"(["all",["==","a",1],["has","b"]])", "100"},
        {R"(["any",["==","a",1],["==","b","y"]])", "110"},
        {R"(["none",["==","a",1],["==","b","y"]])", "001"},
        {R"(["any",["has","a"],false])", "110"},
        {R"(true)", "111"},
        {R"(false)", "000"},
        {R"([])", "111"},
        {R"(["all",["==","$type","Polygon"],["none",["has","a"]]])", "001"},
        {R"(["==",["geometry-type"],"Point"])", "100"},
        {R"(["<","a",["get","x"]])", "000"},
        {R"(["in","x",["get","b"]])", "100"},
        {R"(["has",["get","b"]])", "000"},
        {R"(["!=","$type","Poly"])", "111"},
        {R"(["in","b",["literal",["x"]]])", "000"},
    };
    for (const auto& [filter, passing] : cases)
        EXPECT_EQ(Passing(filter), passing) << filter;
}

TEST(Filter, with_one_expression_is_one_altogether)
{
    EXPECT_TRUE(IsExpressionFilter(Json::parse(R"(["all", ["==", ["get", "b"], "x"], ["has", "a"]])")));
    EXPECT_TRUE(IsExpressionFilter(Json::parse(R"(["all", ["==", "a", 1], ["==", ["get", "b"], "x"]])")));
    EXPECT_TRUE(IsExpressionFilter(Json::parse(R"(["all", ["has", "a"], true])")));
    EXPECT_FALSE(IsExpressionFilter(Json::parse(R"(["all", ["has", "a"], ["==", "a", 1]])")));
    EXPECT_FALSE(IsExpressionFilter(Json::parse(R"(["none", ["has", "a"]])")));
}

TEST(Filter, takes_many_points_for_points)
{
    EXPECT_EQ(Filtered(R"(["==", "$type", "Polygon"])", R"({"type": "MultiPolygon"})"), "true");
    EXPECT_EQ(Filtered(R"(["==", ["geometry-type"], "Polygon"])", R"({"type": "MultiPolygon"})"), "false");
}

TEST(Filter, that_fails_lets_nothing_pass) { EXPECT_EQ(Passing(R"(["<", ["number", ["get", "a"]], 5])"), "100"); }

} // namespace
