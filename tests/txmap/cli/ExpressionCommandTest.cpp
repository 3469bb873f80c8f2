#include <sstream>

#include <gtest/gtest.h>
#include <txmap/cli/ExpressionCommand.h>
#include <txmap/support/Failure.h>

using namespace txmap;

namespace
{

TEST(ExpressionCommand, prints_what_compiles_and_what_it_gives)
{
    EXPECT_EQ(EvaluateExpressionText(R"({"expression": ["to-color", ["get", "c"]],
        "inputs": [[{}, {"properties": {"c": "red"}}], [{}, {"properties": {"c": "oops"}}]]})"),
              R"({"compiled":{"result":"success","isFeatureConstant":false,"isZoomConstant":true,"type":"color"},)"
              R"("outputs":[[1,0,0,1],)"
              R"({"error":"layers[0].paint.some-property: Could not parse color from value 'oops'"}]})"
              "\n");
}

TEST(ExpressionCommand, prints_what_does_not_compile)
{
    EXPECT_EQ(EvaluateExpressionText(R"({"expression": ["+", 1, "a"], "inputs": [[{}, {}]]})"),
              R"({"compiled":{"result":"error","errors":[{"key":"[2]",)"
              R"("error":"Expected number but found string instead."}]}})"
              "\n");
}

TEST(ExpressionCommand, gives_zoom_state_images_and_geometry)
{
    const auto outputs = [](const std::string& text)
    {
        const std::string result = EvaluateExpressionText(text);
        return result.substr(result.find("\"outputs\":") + 10);
    };
    EXPECT_EQ(outputs(R"({"expression": ["step", ["zoom"], 1, 5, 2], "inputs": [[{"zoom": 6}, {}]]})"), "[2]}\n");
    EXPECT_EQ(outputs(R"({"expression": ["global-state", "a"], "globalState": {"a": 3}, "inputs": [[{}, {}]]})"),
              "[3]}\n");
    EXPECT_EQ(outputs(R"({"expression": ["image", "a"], "inputs": [[{"availableImages": ["a"]}, {}]]})"),
              "[{\"name\":\"a\",\"available\":true}]}\n");
    EXPECT_EQ(outputs(R"({"expression": ["geometry-type"], "inputs": [
        [{}, {"geometry": {"type": "MultiPoint", "coordinates": []}}],
        [{"canonicalID": {"z": 1, "x": 0, "y": 0}}, {"geometry": {"type": "MultiPoint", "coordinates": []}}]]})"),
              "[\"MultiPoint\",\"Point\"]}\n");
}

TEST(ExpressionCommand, refuses_what_it_cannot_read)
{
    for (const char* text : {"", "{", "[]", "{}", R"({"expression": 1, "inputs": [3]})"})
        EXPECT_THROW(EvaluateExpressionText(text), Failure) << text;
    std::istringstream input;
    std::ostringstream output;
    const char* const twoFiles[] = {"expression", "a", "b"};
    EXPECT_THROW(RunExpressionCommand(3, twoFiles, input, output), Failure);
    const char* const missing[] = {"expression", "/nowhere/at/all.json"};
    EXPECT_THROW(RunExpressionCommand(2, missing, input, output), Failure);
}

} // namespace
