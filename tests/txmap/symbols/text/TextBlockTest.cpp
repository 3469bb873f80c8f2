#include <txmap/symbols/text/TextBlock.h>

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "TextPicture.h"

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class TextBlockTest : public TextPicture
{
protected:
    /// The advance of a letter of the fixed face, in ems.
    double Advance() { return fonts.Find({"DejaVu Sans Mono"}, TextPath::Qt).Advance(L"n"); }

    std::vector<std::wstring> Broken(const std::string& text, double maxWidth)
    {
        TextStyle style = Mono(20.0);
        style.maxWidth = maxWidth;
        return Lines(text, style);
    }
};

} // namespace

TEST_F(TextBlockTest, ALineIsAsWideAsItsLettersAndAsHighAsTheStyleSays)
{
    const TextBlock block = LayOut("name", Mono(20.0));
    ASSERT_EQ(block.pieces.size(), 1U);
    EXPECT_EQ(block.lines, 1U);
    EXPECT_NEAR(block.width, 4.0 * Advance() * 20.0, 1e-9);
    EXPECT_DOUBLE_EQ(block.height, 24.0);
    EXPECT_DOUBLE_EQ(block.pieces[0].origin.x, 0.0);
    EXPECT_DOUBLE_EQ(block.pieces[0].origin.y, 12.0 + 20.0 * 10.5 / 24.0);
    EXPECT_DOUBLE_EQ(block.pieces[0].width, block.width);
    EXPECT_DOUBLE_EQ(block.size, 20.0);
}

TEST_F(TextBlockTest, SizesMayBeFractions)
{
    const TextBlock whole = LayOut("name", Mono(10.0));
    const TextBlock part = LayOut("name", Mono(11.25));
    EXPECT_DOUBLE_EQ(part.width, whole.width * 1.125);
    EXPECT_DOUBLE_EQ(part.height, whole.height * 1.125);
}

TEST_F(TextBlockTest, LinesAreOfAboutTheSameWidth)
{
    EXPECT_THAT(Broken("aaa bbb ccc ddd", 10.0), ElementsAre(L"aaa bbb ccc ddd"));
    EXPECT_THAT(Broken("aaa bbb ccc ddd", 6.0), ElementsAre(L"aaa bbb", L"ccc ddd"));
    EXPECT_THAT(Broken("aaa bbb ccc ddd", 3.0), ElementsAre(L"aaa", L"bbb", L"ccc", L"ddd"));
    // The last line is rather too short than too long.
    EXPECT_THAT(Broken("aaaaaaa bbbbbbb aaaaaa", 7.0), ElementsAre(L"aaaaaaa bbbbbbb", L"aaaaaa"));
    EXPECT_THAT(Broken("unbreakable", 1.0), ElementsAre(L"unbreakable"));
}

TEST_F(TextBlockTest, TheWidthMayBeNothingOrWithoutLimit)
{
    EXPECT_THAT(Broken("a b c", 0.0), ElementsAre(L"a", L"b", L"c"));
    EXPECT_THAT(Broken("a b c", -1.0), ElementsAre(L"a b c"));
    EXPECT_THAT(Broken("a b\nc", kInfinity), ElementsAre(L"a b", L"c"));
    EXPECT_THAT(Broken("a b c", kNaN), ElementsAre(L"a b c"));
}

TEST_F(TextBlockTest, TextsSayWhereTheyBreak)
{
    EXPECT_THAT(Broken("a\nb", 10.0), ElementsAre(L"a", L"b"));
    EXPECT_THAT(Broken("aaaa bbbb\ncccc dddd", 9.0), ElementsAre(L"aaaa bbbb", L"cccc dddd"));
    EXPECT_THAT(Broken("a\nbbbb bbbb bbbb", 5.0), ElementsAre(L"a", L"bbbb bbbb", L"bbbb"));
    EXPECT_THAT(Broken("a\r\nb\xE2\x80\xA8"
                       "c",
                       10.0),
                ElementsAre(L"a", L"b", L"c"));
    const TextBlock block = LayOut("a\n\nb", Mono(20.0));
    EXPECT_EQ(block.lines, 3U);
    EXPECT_DOUBLE_EQ(block.height, 72.0);
    ASSERT_EQ(block.pieces.size(), 2U);
    EXPECT_DOUBLE_EQ(block.pieces[1].origin.y - block.pieces[0].origin.y, 48.0);
}

TEST_F(TextBlockTest, LinesBreakBehindHyphensAndBetweenIdeographs)
{
    EXPECT_THAT(Broken("aaaa-bbbb", 3.0), ElementsAre(L"aaaa-", L"bbbb"));
    EXPECT_THAT(Broken("aaaa/bbbb", 3.0), ElementsAre(L"aaaa/", L"bbbb"));
    EXPECT_THAT(Broken("aaaa(bbb)", 3.0), ElementsAre(L"aaaa", L"(bbb)"));
    EXPECT_THAT(Broken("aaaa-)bbbb", 3.5), ElementsAre(L"aaaa-)", L"bbbb"));
    EXPECT_THAT(Broken("aaaa\xC2\xAD"
                       "bbbb",
                       3.0),
                ElementsAre(L"aaaa-", L"bbbb"));
    EXPECT_THAT(Broken("aaaa\xC2\xAD"
                       "bbbb",
                       9.0),
                ElementsAre(L"aaaabbbb"));
    EXPECT_THAT(Broken("北京市朝阳区", 3.0), ElementsAre(L"北京市", L"朝阳区"));
    // No comma begins a line.
    EXPECT_THAT(Broken("北京市，朝阳区", 4.0), ElementsAre(L"北京市，", L"朝阳区"));
    // Hangul breaks at spaces alone.
    EXPECT_THAT(Broken("서울특별시", 3.0), ElementsAre(L"서울특별시"));
}

TEST_F(TextBlockTest, ZeroWidthSpacesAreBetterPlacesThanIdeographs)
{
    EXPECT_THAT(Broken("渋谷\xE2\x80\x8B"
                       "駅前交差点",
                       4.0),
                ElementsAre(L"渋谷\x200B", L"駅前交差点"));
}

TEST_F(TextBlockTest, SpacesAtTheEndsOfLinesDoNotCount)
{
    const TextBlock block = LayOut("  name  ", Mono(20.0));
    EXPECT_NEAR(block.width, 4.0 * Advance() * 20.0, 1e-9);
    EXPECT_TRUE(LayOut("   ", Mono(20.0)).IsEmpty());
    EXPECT_TRUE(LayOut("", Mono(20.0)).IsEmpty());
}

TEST_F(TextBlockTest, LinesMeetWhereTheStyleSays)
{
    TextStyle style = Mono(20.0);
    const double room = 2.0 * Advance() * 20.0;
    const std::pair<TextJustify, double> cases[] = {
        {TextJustify::Left, 0.0}, {TextJustify::Center, room / 2.0}, {TextJustify::Right, room}};
    for (const auto& [justify, left] : cases)
    {
        style.justify = justify;
        const TextBlock block = LayOut("four\nto", style);
        EXPECT_DOUBLE_EQ(block.pieces[0].origin.x, 0.0);
        EXPECT_NEAR(block.pieces[1].origin.x, left, 1e-9);
    }
}

TEST_F(TextBlockTest, LetterSpacingStandsBetweenLetters)
{
    TextStyle style = Mono(20.0);
    style.letterSpacing = 0.5;
    const TextBlock block = LayOut("name", style);
    EXPECT_NEAR(block.width, 4.0 * Advance() * 20.0 + 3.0 * 10.0, 1e-9);
    EXPECT_NEAR(block.pieces[0].letters[1].left, Advance() * 20.0 + 10.0, 1e-9);
    EXPECT_DOUBLE_EQ(LayOut("שלום", style).pieces[0].spacing, 0.5);
    // Letters that join would fall apart.
    EXPECT_DOUBLE_EQ(LayOut("شارع", style).pieces[0].spacing, 0.0);
    style.engine = TextPath::Cairo;
    EXPECT_EQ(LayOut("name", style).pieces.size(), 4U);
}

TEST_F(TextBlockTest, SectionsHaveTheirOwnLook)
{
    TextSection big = Section("big");
    big.scale = 2.0;
    TextSection red = Section("red");
    red.color = Color{1.0, 0.0, 0.0, 1.0};
    red.fontStack = {"DejaVu Serif Bold"};
    const TextBlock block = LayOutText({big, red}, Mono(10.0), fonts);
    ASSERT_EQ(block.pieces.size(), 2U);
    EXPECT_DOUBLE_EQ(block.pieces[0].size, 20.0);
    EXPECT_DOUBLE_EQ(block.pieces[1].size, 10.0);
    EXPECT_DOUBLE_EQ(block.pieces[1].origin.x, block.pieces[0].width);
    EXPECT_EQ(block.pieces[1].origin.y, block.pieces[0].origin.y);
    EXPECT_EQ(block.pieces[1].face->Name(), (FontName{"DejaVu Serif", 700, false}));
    EXPECT_FALSE(block.pieces[0].color);
    EXPECT_EQ(block.pieces[1].color, red.color);
    EXPECT_DOUBLE_EQ(block.height, 24.0);
    EXPECT_DOUBLE_EQ(block.pieces[0].origin.y, 2.0 * 27.5 / 24.0 * 10.0);
}

TEST_F(TextBlockTest, SmallSectionsStandWhereTheyAreAligned)
{
    TextSection big = Section("big");
    big.scale = 2.0;
    TextSection small = Section("small");
    const std::pair<SectionAlign, double> cases[] = {
        {SectionAlign::Bottom, 0.0}, {SectionAlign::Center, 5.0}, {SectionAlign::Top, 10.0}};
    for (const auto& [align, raised] : cases)
    {
        small.align = align;
        const TextBlock block = LayOutText({big, small}, Mono(10.0), fonts);
        EXPECT_NEAR(block.pieces[0].origin.y - block.pieces[1].origin.y, raised, 1e-9);
    }
}

TEST_F(TextBlockTest, PicturesStandAmongLetters)
{
    const TextBlock block = LayOutText({Section("a"), Image("shield", 30.0, 20.0), Section("b")}, Mono(10.0), fonts);
    ASSERT_EQ(block.images.size(), 1U);
    const double letter = Advance() * 10.0;
    EXPECT_EQ(block.images[0].image, "shield");
    EXPECT_NEAR(block.images[0].topLeft.x, letter, 1e-9);
    EXPECT_DOUBLE_EQ(block.images[0].width, 30.0);
    EXPECT_DOUBLE_EQ(block.images[0].height, 20.0);
    EXPECT_NEAR(block.pieces[1].origin.x, letter + 30.0, 1e-9);
    EXPECT_NEAR(block.width, 2.0 * letter + 30.0, 1e-9);
    // It is higher than a line by 10 pixels, and its bottom stands in the line.
    EXPECT_DOUBLE_EQ(block.height, 22.0);
    EXPECT_DOUBLE_EQ(block.images[0].topLeft.y, 0.0);
}

TEST_F(TextBlockTest, SectionsOfTextsFromRightToLeftStandInTheirOrder)
{
    const TextBlock block = LayOutText({Section("שלום "), Section("12 "), Section("עולם")}, Mono(10.0), fonts);
    ASSERT_EQ(block.pieces.size(), 3U);
    EXPECT_EQ(block.pieces[0].text.toStdWString(), L"\x200F"
                                                   L"עולם");
    EXPECT_EQ(block.pieces[1].text.toStdWString(), L"\x200E"
                                                   L"12");
    EXPECT_EQ(block.pieces[2].text.toStdWString(), L"\x200F"
                                                   L"שלום ");
    const TextBlock mixed = LayOutText({Section("Rue שלום "), Section("עולם 12")}, Mono(10.0), fonts);
    ASSERT_GE(mixed.pieces.size(), 3U);
    EXPECT_EQ(mixed.pieces[0].text.toStdWString(), L"\x200E"
                                                   L"Rue ");
}

TEST_F(TextBlockTest, ALineKeepsTheDirectionOfItsParagraph)
{
    EXPECT_THAT(Lines("רחוב\nKing", Mono(10.0)), ElementsAre(L"\x200F"
                                                             L"רחוב",
                                                             L"\x200E"
                                                             L"King"));
    TextStyle style = Mono(10.0);
    style.maxWidth = 3.0;
    EXPECT_THAT(Lines("שלום King", style), ElementsAre(L"\x200F"
                                                       L"שלום",
                                                       L"\x200F"
                                                       L"King"));
}

TEST_F(TextBlockTest, NumbersThatMeanNothingGiveNoLetters)
{
    for (const double bad : {0.0, -1.0, kNaN, kInfinity, 1e9})
        EXPECT_TRUE(LayOut("name", Mono(bad)).IsEmpty()) << bad;
    for (const double bad : {kNaN, kInfinity, -kInfinity})
    {
        TextStyle style = Mono(10.0);
        style.letterSpacing = bad;
        EXPECT_TRUE(LayOut("name", style).IsEmpty());
        style = Mono(10.0);
        style.lineHeight = bad;
        EXPECT_TRUE(LayOut("name", style).IsEmpty());
        TextSection section = Section("name");
        section.scale = bad;
        EXPECT_TRUE(LayOutText({section}, Mono(10.0), fonts).IsEmpty());
        EXPECT_TRUE(LayOutText({Image("i", bad, 1.0)}, Mono(10.0), fonts).IsEmpty());
    }
}

TEST_F(TextBlockTest, AMebibyteOfTextIsCut)
{
    for (const std::string& unit : {std::string("a"), std::string("a "), std::string("\n"), std::string("北"),
                                    std::string("ش"), std::string("\xCC\x81"), std::string("\xFF")})
    {
        std::string text;
        while (text.size() < (1U << 20U))
            text += unit;
        const TextBlock block = LayOut(text, Mono(10.0));
        std::size_t letters = 0;
        for (const TextPiece& piece : block.pieces)
            letters += piece.text.toStdWString().size();
        EXPECT_LE(letters, kLongestText + block.lines + 1) << unit;
        EXPECT_TRUE(std::isfinite(block.width) && std::isfinite(block.height));
    }
    const TextBlock cut = LayOut(std::string(2000, 'a'), Mono(10.0));
    EXPECT_EQ(cut.pieces.back().text.toStdWString().back(), L'\x2026');
    EXPECT_EQ(cut.pieces.back().text.toStdWString().size(), kLongestText);
}

TEST_F(TextBlockTest, BrokenTextShowsReplacements)
{
    EXPECT_THAT(Lines("a\xFF"
                      "b",
                      Mono(10.0)),
                ElementsAre(L"a\xFFFD"
                            L"b"));
    EXPECT_THAT(Lines(std::string("a\0b\tc", 5), Mono(10.0)), ElementsAre(L"a b c"));
    EXPECT_THAT(Lines("a\xE2\x80\xAE"
                      "b",
                      Mono(10.0)),
                ElementsAre(L"ab"));
}

TEST_F(TextBlockTest, ColumnsHaveIdeographsUprightAndTheRestTurned)
{
    TextStyle style = Mono(20.0);
    style.mode = WritingMode::Vertical;
    const TextBlock block = LayOut("東京A1駅", style);
    ASSERT_EQ(block.pieces.size(), 4U);
    const double angles[] = {0.0, 0.0, 90.0, 0.0};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(block.pieces[i].angle, angles[i]);
    EXPECT_DOUBLE_EQ(block.width, 24.0);
    EXPECT_NEAR(block.height, 3.0 * 20.0 + 2.0 * Advance() * 20.0, 1e-9);
    EXPECT_DOUBLE_EQ(block.pieces[1].origin.y - block.pieces[0].origin.y, 20.0);
    EXPECT_DOUBLE_EQ(block.pieces[0].origin.x + block.pieces[0].width / 2.0, 12.0);
    EXPECT_DOUBLE_EQ(block.pieces[2].origin.y, 40.0);
}

TEST_F(TextBlockTest, ColumnsGoFromRightToLeft)
{
    TextStyle style = Mono(20.0);
    style.mode = WritingMode::Vertical;
    style.justify = TextJustify::Right;
    const TextBlock block = LayOut("東京\n駅", style);
    ASSERT_EQ(block.pieces.size(), 3U);
    EXPECT_DOUBLE_EQ(block.width, 48.0);
    EXPECT_NEAR(block.pieces[0].origin.x - block.pieces[2].origin.x, 24.0, 1e-9);
    EXPECT_DOUBLE_EQ(block.pieces[2].origin.y, block.pieces[1].origin.y);
}

TEST_F(TextBlockTest, BracketsOfColumnsHaveTheirOwnForms)
{
    TextStyle style = Mono(20.0);
    style.mode = WritingMode::Vertical;
    const TextBlock block = LayOut("(港)", style);
    ASSERT_EQ(block.pieces.size(), 3U);
    EXPECT_EQ(block.pieces[0].text.toStdWString(), L"\xFE35");
    EXPECT_EQ(block.pieces[2].text.toStdWString(), L"\xFE36");
    EXPECT_EQ(LayOut("(a)港", style).pieces[0].text.toStdWString(), L"(a)");
}

TEST_F(TextBlockTest, TextsWithIdeographsCanBeColumns)
{
    EXPECT_TRUE(CanBeVertical({Section("A 東")}));
    EXPECT_TRUE(CanBeVertical({Section("서울")}));
    EXPECT_FALSE(CanBeVertical({Section("Tokyo"), Section("שלום")}));
    EXPECT_FALSE(CanBeVertical({}));
}
