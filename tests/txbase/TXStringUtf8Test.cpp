#include <txbase/TXString.h>

#include <algorithm>
#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

using TZObjects::TXString;

namespace
{

constexpr wchar_t kReplacement = 0xFFFD;
constexpr char kReplacementUtf8[] = "\xEF\xBF\xBD";

static_assert(sizeof(wchar_t) == 4, "these expectations are for code points, not for UTF-16 units");

std::string Utf8(std::initializer_list<unsigned int> units)
{
    std::wstring wide;
    for (const unsigned int unit : units)
        wide += static_cast<wchar_t>(unit);
    return TXString(wide).toUTF8();
}

/// A string and its bytes up to the NUL must read the same.
std::wstring Wide(const std::string& utf8)
{
    const std::wstring wide = TXString(utf8).toStdWString();
    EXPECT_EQ(TXString(utf8.c_str()).toStdWString(), wide);
    return wide;
}

/// How many malformed sequences one run of broken bytes counts as is a matter of taste. What surrounds them must
/// survive, something must show that they were there, and there cannot be more of it than there were bytes.
void ExpectReplaced(const std::string& broken)
{
    SCOPED_TRACE(::testing::PrintToString(broken));
    const std::wstring wide = Wide("a" + broken + "z");
    ASSERT_GE(wide.size(), 3u);
    EXPECT_LE(wide.size(), 2 + broken.size());
    EXPECT_EQ(wide.front(), L'a');
    EXPECT_EQ(wide.back(), L'z');
    EXPECT_TRUE(std::all_of(wide.begin() + 1, wide.end() - 1, [](wchar_t unit) { return unit == kReplacement; }));
}

} // namespace

TEST(TXStringUtf8, ReadsSequencesOfEveryLength)
{
    EXPECT_EQ(Wide("A\x7F"), L"A\x7F");
    EXPECT_EQ(Wide("\xC2\x80\xDF\xBF"), (std::wstring{wchar_t(0x80), wchar_t(0x7FF)}));
    EXPECT_EQ(Wide("\xE0\xA0\x80\xEF\xBF\xBF"), (std::wstring{wchar_t(0x800), wchar_t(0xFFFF)}));
    EXPECT_EQ(Wide("\xED\x9F\xBF\xEE\x80\x80"), (std::wstring{wchar_t(0xD7FF), wchar_t(0xE000)}));
    EXPECT_EQ(Wide("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), (std::wstring{wchar_t(0x10000), wchar_t(0x10FFFF)}));
}

TEST(TXStringUtf8, WritesSequencesOfEveryLength)
{
    EXPECT_EQ(Utf8({'A', 0x7F}), "A\x7F");
    EXPECT_EQ(Utf8({0x80, 0x7FF}), "\xC2\x80\xDF\xBF");
    EXPECT_EQ(Utf8({0x800, 0xFFFF}), "\xE0\xA0\x80\xEF\xBF\xBF");
    EXPECT_EQ(Utf8({0xD7FF, 0xE000}), "\xED\x9F\xBF\xEE\x80\x80");
    EXPECT_EQ(Utf8({0x10000, 0x10FFFF}), "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(TXStringUtf8, RoundTripsEveryCharacter)
{
    std::wstring all;
    for (unsigned int c = 1; c <= 0x10FFFF; ++c)
        if (c < 0xD800 || c > 0xDFFF)
            all += static_cast<wchar_t>(c);
    const std::string utf8 = TXString(all).toUTF8();
    // 127 of one byte, 1,920 of two, 61,440 of three, 1,048,576 of four.
    EXPECT_EQ(utf8.size(), 127u + 1920u * 2 + 61440u * 3 + 1048576u * 4);
    EXPECT_TRUE(Wide(utf8) == all);
}

TEST(TXStringUtf8, KeepsAByteOrderMark)
{
    EXPECT_EQ(Wide("\xEF\xBB\xBFx"), (std::wstring{wchar_t(0xFEFF), L'x'}));
    EXPECT_EQ(Utf8({0xFEFF, 'x'}), "\xEF\xBB\xBFx");
}

TEST(TXStringUtf8, AssignmentReadsUtf8AsConstructionDoes)
{
    TXString text;
    text = "K\xC3\xB6ln \xF0\x9D\x84\x9E \xFF.";
    EXPECT_EQ(text.toStdWString(), (std::wstring(L"Köln ") + wchar_t(0x1D11E) + L" " + kReplacement + L"."));
}

TEST(TXStringUtf8, ReplacesBytesThatStartNothing)
{
    ExpectReplaced("\x80");
    ExpectReplaced("\xBF\xBF\xBF");
    ExpectReplaced("\xFE");
    ExpectReplaced("\xFF");
    ExpectReplaced("\xF8\x88\x80\x80\x80");
    ExpectReplaced("\xFC\x84\x80\x80\x80\x80");
}

TEST(TXStringUtf8, ReplacesOverlongForms)
{
    ExpectReplaced("\xC0\x80");
    ExpectReplaced("\xC0\xAF");
    ExpectReplaced("\xC1\xBF");
    ExpectReplaced("\xE0\x80\x80");
    ExpectReplaced("\xE0\x9F\xBF");
    ExpectReplaced("\xF0\x80\x80\x80");
    ExpectReplaced("\xF0\x8F\xBF\xBF");
}

TEST(TXStringUtf8, ReplacesEncodedSurrogates)
{
    ExpectReplaced("\xED\xA0\x80");
    ExpectReplaced("\xED\xBF\xBF");
    ExpectReplaced("\xED\xA0\xB4\xED\xB4\x9E");
}

TEST(TXStringUtf8, ReplacesWhatLiesAboveUnicode)
{
    ExpectReplaced("\xF4\x90\x80\x80");
    ExpectReplaced("\xF5\x80\x80\x80");
    ExpectReplaced("\xF7\xBF\xBF\xBF");
}

TEST(TXStringUtf8, ReplacesSequencesCutShortByTheEnd)
{
    for (const char* const cut : {"\xC3", "\xE2", "\xE2\x82", "\xF0", "\xF0\x9D", "\xF0\x9D\x84"})
    {
        SCOPED_TRACE(::testing::PrintToString(std::string(cut)));
        const std::wstring wide = Wide(std::string("a") + cut);
        ASSERT_GE(wide.size(), 2u);
        EXPECT_EQ(wide.front(), L'a');
        EXPECT_TRUE(std::all_of(wide.begin() + 1, wide.end(), [](wchar_t unit) { return unit == kReplacement; }));
    }
}

TEST(TXStringUtf8, KeepsTheCharacterAfterASequenceCutShort)
{
    for (const char* const cut : {"\xC3", "\xE2", "\xE2\x82", "\xF0", "\xF0\x9D", "\xF0\x9D\x84"})
        ExpectReplaced(cut);
    // A character of several bytes survives as well as a letter does.
    EXPECT_EQ(Wide("\xC3\xC3\xB6"), (std::wstring{kReplacement, L'ö'}));
    EXPECT_EQ(Wide("\xE2\x82\xE2\x82\xAC").back(), L'€');
}

TEST(TXStringUtf8, ReplacesEachMalformedSequenceSeparately)
{
    EXPECT_EQ(Wide("a\xFF"
                   "b\xFF"
                   "c"),
              (std::wstring{L'a', kReplacement, L'b', kReplacement, L'c'}));
}

TEST(TXStringUtf8, CombinesSurrogatePairs)
{
    EXPECT_EQ(Utf8({0xD834, 0xDD1E}), "\xF0\x9D\x84\x9E");
    EXPECT_EQ(Utf8({0xD800, 0xDC00}), "\xF0\x90\x80\x80");
    EXPECT_EQ(Utf8({0xDBFF, 0xDFFF}), "\xF4\x8F\xBF\xBF");
    EXPECT_EQ(Utf8({'a', 0xD834, 0xDD1E, 'z'}), "a\xF0\x9D\x84\x9Ez");
}

TEST(TXStringUtf8, ReplacesLoneSurrogates)
{
    const std::string bad = kReplacementUtf8;
    EXPECT_EQ(Utf8({0xD800}), bad);
    EXPECT_EQ(Utf8({0xDBFF}), bad);
    EXPECT_EQ(Utf8({0xDC00}), bad);
    EXPECT_EQ(Utf8({0xDFFF}), bad);
    EXPECT_EQ(Utf8({0xD834, 'x'}), bad + "x");
    EXPECT_EQ(Utf8({'x', 0xDD1E}), "x" + bad);
    EXPECT_EQ(Utf8({0xDD1E, 0xD834}), bad + bad);
    EXPECT_EQ(Utf8({0xD834, 0xD834, 0xDD1E}), bad + "\xF0\x9D\x84\x9E");
    EXPECT_EQ(Utf8({0xD834, 0xDD1E, 0xDD1E}), "\xF0\x9D\x84\x9E" + bad);
    EXPECT_EQ(Utf8({0xD834, 0xE000}), bad + "\xEE\x80\x80");
    EXPECT_EQ(Utf8({0xD834, 0xDBFF}), bad + bad);
}

TEST(TXStringUtf8, ReplacesUnitsAboveUnicode)
{
    EXPECT_EQ(Utf8({'a', 0x110000, 'z'}), std::string("a") + kReplacementUtf8 + "z");
    EXPECT_EQ(Utf8({0x7FFFFFFF}), kReplacementUtf8);
    EXPECT_EQ(Utf8({0x80000000}), kReplacementUtf8);
    EXPECT_EQ(Utf8({0xFFFFFFFF}), kReplacementUtf8);
}

TEST(TXStringUtf8, WritingLeavesTheUnitsAsTheyAre)
{
    const std::wstring odd{wchar_t(0xD834), wchar_t(0xDD1E), wchar_t(0xDC00), wchar_t(0x110000)};
    const TXString text(odd);
    text.toUTF8();
    EXPECT_EQ(text.toStdWString(), odd);
}
