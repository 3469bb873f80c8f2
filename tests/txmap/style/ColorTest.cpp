#include <gtest/gtest.h>
#include <txmap/style/Color.h>

using namespace txmap;

namespace
{

std::string Parsed(const std::string& text)
{
    const auto color = Color::Parse(text);
    return color ? color->ToString() : "none";
}

TEST(Color, is_read_as_CSS_writes_it)
{
    const std::pair<const char*, const char*> cases[] = {
        {"red", "rgba(255,0,0,1)"},
        {" RebeccaPurple ", "rgba(102,51,153,1)"},
        {"transparent", "rgba(0,0,0,0)"},
        {"#abc", "rgba(170,187,204,1)"},
        {"#abc8", "rgba(170,187,204,0.5333333333333333)"},
        {"#12345678", "rgba(18,52,86,0.47058823529411764)"},
        {"rgb(1,2,3)", "rgba(1,2,3,1)"},
        {"rgba( 1 , 2 , 3 , 50% )", "rgba(1,2,3,0.5)"},
        {"rgb(1 2 3 / 0.25)", "rgba(1,2,3,0.25)"},
        {"rgb(100% 0% -5%)", "rgba(255,0,0,1)"},
        {"rgb(1e2,.5,300)", "rgba(100,1,255,1)"},
        {"hsl(120deg 100% 25%)", "rgba(0,128,0,1)"},
        {"hsla(-120,100%,50%,30%)", "rgba(0,0,255,0.3)"},
    };
    for (const auto& [text, color] : cases)
        EXPECT_EQ(Parsed(text), color) << text;
}

TEST(Color, is_refused_where_CSS_refuses_it)
{
    for (const char* text : {"",
                             " ",
                             "reddish",
                             "#ab",
                             "#abcde",
                             "#xyz",
                             "rgb(1,2)",
                             "rgb(1 2,3)",
                             "rgb(1,2,3/4)",
                             "rgb(1 2 3 4)",
                             "rgb(10%,2,3)",
                             "rgb (1,2,3)",
                             "rgb(1,2,3",
                             "hsl(1,2,3)",
                             "rgb(1,2,3,4,5)",
                             "rgb(1e,2,3)",
                             "rgb(,,)",
                             "rgb()",
                             "cmyk(1,2,3)",
                             "rgb(nan,0,0)"})
        EXPECT_EQ(Parsed(text), "none") << text;
}

TEST(Color, without_opacity_still_has_a_hue)
{
    const Color mixed = Color::Mix(*Color::Parse("red"), *Color::Parse("#0000ff00"), 0.4, ColorSpace::Rgb);
    EXPECT_DOUBLE_EQ(mixed.Premultiplied()[0], 0.36);
    EXPECT_DOUBLE_EQ(mixed.Premultiplied()[2], 0.24);
    EXPECT_DOUBLE_EQ(mixed.alpha, 0.6);
}

TEST(Color, is_mixed_at_the_same_lightness_in_HCL_and_LAB)
{
    const Color black = *Color::Parse("black");
    const Color white = *Color::Parse("white");
    for (const ColorSpace space : {ColorSpace::Hcl, ColorSpace::Lab})
    {
        const Color grey = Color::Mix(black, white, 0.5, space);
        EXPECT_NEAR(grey.red, 0.466327, 1e-6);
        EXPECT_NEAR(grey.blue, grey.red, 1e-6);
    }
}

TEST(Color, takes_the_short_way_around_the_hues)
{
    // From a red to a violet, not through green.
    const Color mixed = Color::Mix(*Color::Parse("red"), *Color::Parse("blue"), 0.5, ColorSpace::Hcl);
    EXPECT_GT(mixed.red, mixed.green);
    EXPECT_GT(mixed.blue, mixed.green);
}

} // namespace
