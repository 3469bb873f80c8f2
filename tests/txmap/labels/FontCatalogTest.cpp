#include <gtest/gtest.h>
#include <txmap/labels/FontCatalog.h>

using namespace txmap;

TEST(FontCatalog, KnowsTheFontsThatAreInstalled)
{
    EXPECT_TRUE(FontCatalog::Has("DejaVu Sans"));
    EXPECT_TRUE(FontCatalog::Has("dejavu sans"));
    EXPECT_TRUE(FontCatalog::Has("sans-serif"));
    EXPECT_FALSE(FontCatalog::Has("No Such Face"));
    EXPECT_FALSE(FontCatalog::Has("DejaVu"));
    EXPECT_EQ(FontCatalog::Resolved("DejaVu Sans"), "DejaVu Sans");
    EXPECT_TRUE(FontCatalog::Has(FontCatalog::Resolved("No Such Face")));
}

TEST(FontCatalog, KnowsTheirCharacters)
{
    EXPECT_TRUE(FontCatalog::HasCharacter(U'A'));
    EXPECT_TRUE(FontCatalog::HasCharacter(0x5317));
    EXPECT_FALSE(FontCatalog::HasCharacter(0x12000));
}

TEST(FontCatalog, KnowsTheCharactersOfOneFace)
{
    const auto latin = FontCatalog::CharactersOf("DejaVu Sans");
    EXPECT_TRUE(latin(U'A'));
    EXPECT_TRUE(latin(0x416));
    EXPECT_FALSE(latin(0x5317));
    EXPECT_FALSE(latin(0x12000));
    EXPECT_TRUE(FontCatalog::CharactersOf("WenQuanYi Micro Hei")(0x5317));
    // Cairo draws in another face where there is none of the name.
    EXPECT_TRUE(FontCatalog::CharactersOf("No Such Face")(U'A'));
    EXPECT_FALSE(FontCatalog::CharactersOf("No Such Face")(0x12000));
}
