#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/RefusalOf.h>
#include <txmap/cli/Options.h>
#include <txmap/cli/ParseLabels.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::StartsWith;

namespace
{

LabelOptions Parse(std::vector<const char*> arguments)
{
    arguments.insert(arguments.begin(), {"txmap", "in.json"});
    return ParseOptions(static_cast<int>(arguments.size()), arguments.data()).labels;
}

std::string Refusal(const std::vector<const char*>& arguments)
{
    return RefusalOf(ExitCode::Usage, [&] { Parse(arguments); });
}

} // namespace

TEST(LabelOptions, AreOffUntilAskedFor)
{
    const LabelOptions labels = Parse({});
    EXPECT_FALSE(labels.wanted);
    EXPECT_FALSE(labels.size);
    EXPECT_FALSE(labels.halo);
    EXPECT_EQ(labels.path, TextPath::Qt);
}

TEST(LabelOptions, ImplyLabels)
{
    EXPECT_TRUE(Parse({"--labels"}).wanted);
    EXPECT_TRUE(Parse({"--label-field", "name"}).wanted);
    EXPECT_TRUE(Parse({"--label-size", "12"}).wanted);
    EXPECT_TRUE(Parse({"--label-halo", "0:white"}).wanted);
    EXPECT_TRUE(Parse({"--label-font", "serif"}).wanted);
    EXPECT_TRUE(Parse({"--text", "qt"}).wanted);
    EXPECT_TRUE(Parse({"--text", "cairo"}).wanted);
}

TEST(LabelOptions, TakeValues)
{
    const LabelOptions labels = Parse({"--label-field", "name_de", "--label-size", "12", "--label-halo", "2.5:#10a0Ff",
                                       "--label-font", "DejaVu Serif"});
    EXPECT_EQ(labels.field, "name_de");
    EXPECT_EQ(labels.size, 12);
    ASSERT_TRUE(labels.halo);
    EXPECT_EQ(labels.halo->width, 2.5);
    EXPECT_EQ(labels.halo->color.GetColor(), 0xFF10A0FFu);
    EXPECT_EQ(labels.font, "DejaVu Serif");
}

TEST(LabelOptions, TakeColoursInThreeForms)
{
    EXPECT_EQ(ParseLabelHalo("1:#123").color.GetColor(), 0xFF112233u);
    EXPECT_EQ(ParseLabelHalo("1:White").color.GetColor(), 0xFFFFFFFFu);
    EXPECT_EQ(ParseLabelHalo("1:teal").color.GetColor(), 0xFF008080u);
    EXPECT_EQ(ParseLabelHalo("0:black").width, 0.0);
    EXPECT_EQ(ParseLabelHalo("32:black").width, 32.0);
}

TEST(LabelOptions, RefuseSizes)
{
    for (const char* const size : {"0", "-3", "3", "257", "100000", "99999999999999999999", "12.5", "ten", "12px", ""})
        EXPECT_THAT(Refusal({"--label-size", size}), StartsWith("--label-size")) << size;
    EXPECT_EQ(Parse({"--label-size", "4"}).size, 4);
    EXPECT_EQ(Parse({"--label-size", "256"}).size, 256);
}

TEST(LabelOptions, RefuseHalos)
{
    for (const char* const halo :
         {"",         "2",         "white",     ":",          "2:",        ":white",   "-1:white",
          "33:white", "nan:white", "inf:white", "2:pink-ish", "2:#12",     "2:#12345", "2:#1234567",
          "2:#ggg",   "2:#-12",    "2:#+12345", "2px:white",  "1,2:white", "2:white:3"})
        EXPECT_THAT(Refusal({"--label-halo", halo}), StartsWith("--label-halo")) << halo;
}

TEST(LabelOptions, TakeOneOfTwoTextPaths)
{
    EXPECT_EQ(Parse({"--labels", "--text", "qt"}).path, TextPath::Qt);
    EXPECT_EQ(Parse({"--labels", "--text", "cairo"}).path, TextPath::Cairo);
    EXPECT_EQ(Parse({"--text=cairo"}).path, TextPath::Cairo);
    for (const char* const path : {"", "Qt", "CAIRO", "pango", "qt,cairo", " cairo", "cairo ", "0"})
        EXPECT_THAT(Refusal({"--text", path}), StartsWith("--text ")) << path;
    EXPECT_NE(Refusal({"--text"}), "accepted");
    EXPECT_NE(Refusal({"--text", "qt", "--text", "cairo"}), "accepted");
}

TEST(LabelOptions, RefuseEmptyNames)
{
    EXPECT_THAT(Refusal({"--label-field", ""}), StartsWith("--label-field"));
    EXPECT_THAT(Refusal({"--label-font", ""}), StartsWith("--label-font"));
}
