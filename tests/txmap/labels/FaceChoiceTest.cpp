#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txmap/labels/FaceChoice.h>

using namespace txmap;
using ::testing::HasSubstr;

namespace
{

bool HasLatin(char32_t character) { return character < 0x250; }

} // namespace

TEST(MissingCharacters, AreNamedOnceEach)
{
    EXPECT_EQ(MissingCharacters({L"Kenya", L"S\xE3o"}, &HasLatin), "");
    const std::string message = MissingCharacters({L"\x5317\x4EAC", L"\x5317 \xE000"}, &HasLatin);
    EXPECT_THAT(message, HasSubstr("U+4EAC, U+5317, U+E000"));
    EXPECT_EQ(message.find("U+5317"), message.rfind("U+5317"));
    EXPECT_EQ(message.find('\n'), std::string::npos);
}

TEST(MissingCharacters, AreMissingWhereTheMessageSays)
{
    EXPECT_EQ(MissingCharacters({L"\x5317"}, &HasLatin, "nothing here has"),
              "nothing here has U+5317, which labels contain");
    EXPECT_EQ(MissingCharacters({L"\x5317"}, &HasLatin), "no installed font has U+5317, which labels contain");
}

TEST(MissingCharacters, AreCountedWhenTheyAreMany)
{
    std::wstring text;
    for (wchar_t c = 0x4E00; c < 0x4E00 + 30; ++c)
        text += c;
    EXPECT_THAT(MissingCharacters({text}, &HasLatin), HasSubstr("U+4E07 and 22 more"));
}

TEST(MissingCharacters, AreNotThoseWithoutAShape)
{
    EXPECT_EQ(MissingCharacters({L"a\x200D\xFE0F\x2009 \n\x200E"}, [](char32_t c) { return c == U'a'; }), "");
}
