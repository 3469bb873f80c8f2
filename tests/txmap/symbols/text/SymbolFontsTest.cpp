#include <txmap/symbols/text/SymbolFonts.h>

#include <gmock/gmock.h>

#include "TextPicture.h"

using namespace txmap;
using ::testing::ElementsAre;

using SymbolFontsTest = TextPicture;

TEST(FontNameTest, NamesAreFamilyWeightAndSlant)
{
    const auto expect = [](const char* name, const char* family, int weight, bool italic)
    {
        const std::optional<FontName> font = FindFont(name);
        ASSERT_TRUE(font) << name;
        EXPECT_EQ(font->family, family) << name;
        EXPECT_EQ(font->weight, weight) << name;
        EXPECT_EQ(font->italic, italic) << name;
    };
    expect("DejaVu Sans", "DejaVu Sans", 400, false);
    expect("DejaVu Sans Regular", "DejaVu Sans", 400, false);
    expect("DejaVu Sans Bold", "DejaVu Sans", 700, false);
    expect("DejaVu Sans Semibold Italic", "DejaVu Sans", 600, true);
    expect("DejaVu Sans Semi Bold", "DejaVu Sans", 600, false);
    expect("DejaVu Sans Extra Light Oblique", "DejaVu Sans", 200, true);
    expect("dejavu sans mono BLACK", "dejavu sans mono", 900, false);
    expect("DejaVu Sans Mono", "DejaVu Sans Mono", 400, false);
    expect("DejaVu Sans Condensed Bold", "DejaVu Sans Condensed", 700, false);
    expect("  DejaVu   Serif  ", "DejaVu Serif", 400, false);
    expect("sans-serif Italic", "DejaVu Sans", 400, true);
}

TEST(FontNameTest, NamesOfOthersAreNone)
{
    EXPECT_FALSE(FindFont(""));
    EXPECT_FALSE(FindFont("Bold"));
    EXPECT_FALSE(FindFont("No Such Face Bold"));
    EXPECT_FALSE(FindFont("DejaVu Sans Purple"));
    EXPECT_FALSE(FindFont("DejaVu Sans" + std::string(1000000, ' ') + "Bold"));
}

TEST(FontNameTest, AFaceInsteadKeepsWeightAndSlant)
{
    EXPECT_EQ(FontInstead("No Such Face Semibold Italic", "F"), (FontName{"F", 600, true}));
    EXPECT_EQ(FontInstead("Bold", "F"), (FontName{"F", 400, false}));
    EXPECT_EQ(FontInstead("", "F"), (FontName{"F", 400, false}));
}

TEST_F(SymbolFontsTest, TheFirstFaceThatIsInstalledCounts)
{
    EXPECT_EQ(fonts.Find({"Nothing Regular", "DejaVu Serif Bold", "DejaVu Sans"}, TextPath::Qt).Name(),
              (FontName{"DejaVu Serif", 700, false}));
    EXPECT_THAT(missing, ElementsAre("Nothing Regular"));
}

TEST_F(SymbolFontsTest, EachMissingNameIsReportedOnce)
{
    const SymbolFace& face = fonts.Find({"Nothing Bold"}, TextPath::Qt);
    fonts.Find({"Nothing Bold"}, TextPath::Qt);
    fonts.Find({"Nothing Bold"}, TextPath::Cairo);
    fonts.Find({"Nothing Bold", "Neither"}, TextPath::Qt);
    EXPECT_THAT(missing, ElementsAre("Nothing Bold", "Neither"));
    EXPECT_EQ(face.Name(), (FontName{"DejaVu Sans", 700, false}));
}

TEST_F(SymbolFontsTest, AFaceIsMadeOnceAndLastsForAllStacks)
{
    const SymbolFace* const face = &fonts.Find({"DejaVu Sans"}, TextPath::Qt);
    for (int i = 0; i < 100; ++i)
        fonts.Find({"Missing " + std::to_string(i)}, TextPath::Qt);
    EXPECT_EQ(&fonts.Find({"DejaVu Sans Regular"}, TextPath::Qt), face);
    EXPECT_NE(&fonts.Find({"DejaVu Sans"}, TextPath::Cairo), face);
}

TEST_F(SymbolFontsTest, AThousandNamesAreTried)
{
    std::vector<std::string> stack(1000, "No Such Face");
    stack.emplace_back("DejaVu Serif");
    EXPECT_EQ(fonts.Find(stack, TextPath::Qt).Name().family, "DejaVu Serif");
    EXPECT_THAT(missing, ElementsAre("No Such Face"));
    EXPECT_EQ(fonts.Find({}, TextPath::Qt).Name().family, "DejaVu Sans");
}

TEST_F(SymbolFontsTest, AdvancesAreInEmsAndAddUp)
{
    const SymbolFace& face = fonts.Find({"DejaVu Sans Mono"}, TextPath::Qt);
    EXPECT_EQ(face.Advance(L""), 0.0);
    const double one = face.Advance(L"n");
    EXPECT_NEAR(one, 1233.0 / 2048.0, 0.002);
    EXPECT_NEAR(face.Advance(L"nnnnnnnnnn"), 10.0 * one, 1e-9);
    EXPECT_EQ(face.KeptAdvance(L"n"), one);
    EXPECT_EQ(face.KeptAdvance(L"n"), one);
    const SymbolFace& bold = fonts.Find({"DejaVu Sans Bold"}, TextPath::Qt);
    EXPECT_GT(bold.Advance(L"Berlin"), fonts.Find({"DejaVu Sans"}, TextPath::Qt).Advance(L"Berlin"));
    EXPECT_NEAR(fonts.Find({"DejaVu Sans Mono"}, TextPath::Cairo).Advance(L"nn"), 2.0 * one, 0.01);
}
