#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/RefusalOf.h>
#include <tests/txmap/support/SymbolShapes.h>
#include <txmap/cli/ParseSymbol.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace
{

std::string Refusal(const std::string& text)
{
    return RefusalOf(ExitCode::Usage, [&] { ParseSymbol(text); });
}

} // namespace

TEST(SymbolOption, KnowsShapes)
{
    for (const auto& [name, shape] : kSymbolShapes)
    {
        EXPECT_EQ(ParseSymbol(name).shape, shape);
        EXPECT_FALSE(ParseSymbol(name).size);
    }
}

TEST(SymbolOption, NamesAllShapesWhenItDoesNotKnowOne)
{
    for (const char* const name : {"blob", "", "Circle", "circle ", "font", "fonts:a:b", "circle:5"})
    {
        const std::string refusal = Refusal(name);
        EXPECT_THAT(refusal, StartsWith(std::string("--symbol ") + name + ": "));
        for (const auto& [known, shape] : kSymbolShapes)
            EXPECT_THAT(refusal, HasSubstr(known));
        EXPECT_THAT(refusal, HasSubstr("font:FACE:CHARACTER"));
    }
}

TEST(SymbolOption, TakesACharacterOfAFont)
{
    const PlaceSymbol symbol = ParseSymbol("font:DejaVu Sans:U+2605");
    EXPECT_EQ(symbol.shape, PlaceSymbol::Shape::Character);
    EXPECT_EQ(symbol.face, "DejaVu Sans");
    EXPECT_EQ(symbol.character, u'\u2605');
    EXPECT_FALSE(symbol.size);
    EXPECT_EQ(ParseSymbol("font:X:★").character, u'\u2605');
    EXPECT_EQ(ParseSymbol("font:X:u+2f").character, u'/');
    EXPECT_EQ(ParseSymbol("font:X:U").character, u'U');
    EXPECT_EQ(ParseSymbol("font:X:2").character, u'2');
    EXPECT_EQ(ParseSymbol("font:X::").character, u':');
    EXPECT_EQ(ParseSymbol("font:X:U+FFFD").character, u'\uFFFD');
    EXPECT_EQ(ParseSymbol("font:北:U+F021").character, u'\uF021');
}

TEST(SymbolOption, TakesASizeOfTheCharacter)
{
    EXPECT_EQ(ParseSymbol("font:X:★:14.5").size, 14.5);
    EXPECT_EQ(ParseSymbol("font:X:::9").size, 9.0);
    EXPECT_EQ(ParseSymbol("font:X:::9").character, u':');
}

TEST(SymbolOption, RefusesCharactersThatAreNone)
{
    for (const char* const text : {"font:",
                                   "font:X",
                                   "font::★",
                                   "font:X:",
                                   "font:X:AB",
                                   "font:X:U+",
                                   "font:X:U+XYZ",
                                   "font:X:U+110000",
                                   "font:X:U+1F600",
                                   "font:X:😀",
                                   "font:X:U+D800",
                                   "font:X:U+DFFF",
                                   "font:X:U+0",
                                   "font:X:U+A",
                                   "font:X:U+20",
                                   "font:X: ",
                                   "font:X:U+200D",
                                   "font:X:U+3000",
                                   "font:X:U+99999999999",
                                   "font:X:\xFF",
                                   "font:X:U+2605:",
                                   "font:X:U+2605:0",
                                   "font:X:U+2605:257",
                                   "font:X:U+2605:nan",
                                   "font:X:U+2605:-3",
                                   "font:X:U+2605:9:9",
                                   "font:X:U+-41"})
        EXPECT_THAT(Refusal(text), StartsWith(std::string("--symbol ") + text + ": ")) << text;
}

TEST(SymbolSizeOption, IsANumberOfPixels)
{
    EXPECT_EQ(ParseSymbolSize("1"), 1.0);
    EXPECT_EQ(ParseSymbolSize("12.5"), 12.5);
    EXPECT_EQ(ParseSymbolSize("256"), 256.0);
    for (const char* const text : {"0", "0.9", "257", "-5", "nan", "inf", "1e9", "12px", "big", "1,2", ""})
        EXPECT_THROW(ParseSymbolSize(text), Failure) << text;
}
