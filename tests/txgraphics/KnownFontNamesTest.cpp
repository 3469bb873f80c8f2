#include <utility>

#include <gtest/gtest.h>
#include <txgraphics/TXFont.h>

using TZObjects::TXFont;
using TZObjects::TXString;

namespace
{

TXString English(const TXString& name) { return TXFont::GetEnglishNameForKnownFont(name); }

} // namespace

TEST(KnownFontNames, ChineseFaces)
{
    EXPECT_EQ(English(L"宋体"), TXString(L"SimSun"));
    EXPECT_EQ(English(L"黑体"), TXString(L"SimHei"));
    EXPECT_EQ(English(L"楷体"), TXString(L"KaiTi"));
    EXPECT_EQ(English(L"仿宋"), TXString(L"FangSong"));
    EXPECT_EQ(English(L"微软雅黑"), TXString(L"Microsoft YaHei"));
    EXPECT_EQ(English(L"新細明體"), TXString(L"PMingLiU"));
    EXPECT_EQ(English(L"細明體"), TXString(L"MingLiU"));
    EXPECT_EQ(English(L"標楷體"), TXString(L"DFKai-SB"));
    EXPECT_EQ(English(L"微軟正黑體"), TXString(L"Microsoft JhengHei"));
}

TEST(KnownFontNames, JapaneseFaces)
{
    EXPECT_EQ(English(L"ＭＳ ゴシック"), TXString(L"MS Gothic"));
    EXPECT_EQ(English(L"ＭＳ 明朝"), TXString(L"MS Mincho"));
    EXPECT_EQ(English(L"メイリオ"), TXString(L"Meiryo"));
    EXPECT_EQ(English(L"游ゴシック"), TXString(L"Yu Gothic"));
}

TEST(KnownFontNames, KoreanFaces)
{
    EXPECT_EQ(English(L"맑은 고딕"), TXString(L"Malgun Gothic"));
    EXPECT_EQ(English(L"굴림"), TXString(L"Gulim"));
    EXPECT_EQ(English(L"바탕"), TXString(L"Batang"));
    EXPECT_EQ(English(L"돋움"), TXString(L"Dotum"));
}

TEST(KnownFontNames, NamesMayComeAsUtf8) { EXPECT_EQ(English("\xE5\xAE\x8B\xE4\xBD\x93"), TXString("SimSun")); }

TEST(KnownFontNames, OthersHaveNone)
{
    EXPECT_TRUE(English("").isEmpty());
    EXPECT_TRUE(English("DejaVu Sans").isEmpty());
    EXPECT_TRUE(English("SimSun").isEmpty());
    EXPECT_TRUE(English(L"宋体 ").isEmpty());
    EXPECT_TRUE(English(L"宋").isEmpty());
    EXPECT_TRUE(English(std::wstring(L"宋体\0", 3)).isEmpty());
}

TEST(KnownFontNames, TheAnswerOutlivesTheQuestion)
{
    const TXString* found = nullptr;
    const TXString* missing = nullptr;
    {
        const TXString name(L"宋体");
        found = &TXFont::GetEnglishNameForKnownFont(name);
        missing = &TXFont::GetEnglishNameForKnownFont(TXString(L"unknown"));
    }
    TXFont::GetEnglishNameForKnownFont(L"굴림");
    EXPECT_EQ(*found, TXString("SimSun"));
    EXPECT_TRUE(missing->isEmpty());
    EXPECT_EQ(&TXFont::GetEnglishNameForKnownFont(L"宋体"), found);
}
