#include <txbase/TXString.h>

#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

using TZObjects::TXString;

namespace
{

static_assert(std::has_virtual_destructor_v<TXString>);

const std::wstring kWithNul(L"a\0b", 3);

std::vector<std::wstring> Pieces(const TXString& text, wchar_t separator)
{
    std::vector<std::wstring> pieces;
    for (const TXString& piece : text.split(separator))
        pieces.push_back(piece.toStdWString());
    return pieces;
}

using Wide = std::vector<std::wstring>;

} // namespace

TEST(TXString, IsEmptyByDefault)
{
    const TXString text;
    EXPECT_TRUE(text.isEmpty());
    EXPECT_EQ(text.length(), 0);
    EXPECT_EQ(text.toStdWString(), L"");
    EXPECT_EQ(text.toUTF8(), "");
    ASSERT_NE(text.wstr(), nullptr);
    EXPECT_EQ(text.wstr()[0], L'\0');
}

TEST(TXString, TakesNarrowAndWideLiterals)
{
    EXPECT_EQ(TXString("Main St").toStdWString(), L"Main St");
    EXPECT_EQ(TXString(L"Main St").toStdWString(), L"Main St");
    EXPECT_TRUE(TXString("").isEmpty());
    EXPECT_TRUE(TXString(L"").isEmpty());
}

TEST(TXString, ConvertsFromLiteralsWhereATextIsExpected)
{
    EXPECT_TRUE((std::is_convertible_v<const char*, TXString>));
    EXPECT_TRUE((std::is_convertible_v<const wchar_t*, TXString>));
    EXPECT_TRUE((std::is_convertible_v<std::wstring, TXString>));
    EXPECT_TRUE((std::is_convertible_v<std::string, TXString>));
}

TEST(TXString, TakesNarrowStrings)
{
    const std::string narrow = "Main St";
    EXPECT_EQ(TXString(narrow).toStdWString(), L"Main St");
    EXPECT_EQ(TXString(std::string("Main St")).toStdWString(), L"Main St");
    EXPECT_TRUE(TXString(std::string()).isEmpty());
    EXPECT_EQ(TXString(std::string("a\0b", 3)).toStdWString(), kWithNul);
    EXPECT_TRUE(TXString(L"Main St") == narrow);
    EXPECT_TRUE(narrow != TXString(L"Main Street"));
}

TEST(TXString, ReadsABracedListAsWideText)
{
    EXPECT_EQ(TXString({L'a', L'b'}).toStdWString(), L"ab");
    EXPECT_EQ(TXString({'a', 'b'}).toStdWString(), L"ab");
    TXString text;
    text = {L'a', L'b'};
    EXPECT_EQ(text.toStdWString(), L"ab");
}

TEST(TXString, ReadsNullPointersAsTheEmptyText)
{
    EXPECT_TRUE(TXString(static_cast<const char*>(nullptr)).isEmpty());
    EXPECT_TRUE(TXString(static_cast<const wchar_t*>(nullptr)).isEmpty());
    TXString text("full");
    text = static_cast<const char*>(nullptr);
    EXPECT_TRUE(text.isEmpty());
    text = L"full";
    text = static_cast<const wchar_t*>(nullptr);
    EXPECT_TRUE(text.isEmpty());
}

TEST(TXString, KeepsEmbeddedNuls)
{
    const TXString text(kWithNul);
    EXPECT_EQ(text.length(), 3);
    EXPECT_EQ(text.toStdWString(), kWithNul);
    EXPECT_EQ(std::wstring(text), kWithNul);
    EXPECT_EQ(std::wstring(text.wstr(), 4), std::wstring(L"a\0b\0", 4));
    EXPECT_EQ(text.toUTF8(), std::string("a\0b", 3));
    TXString assigned;
    assigned = kWithNul;
    EXPECT_EQ(assigned.length(), 3);
    EXPECT_FALSE(TXString(std::wstring(1, L'\0')).isEmpty());
}

TEST(TXString, CountsUnits)
{
    EXPECT_EQ(TXString(L"").length(), 0);
    EXPECT_EQ(TXString(L"a").length(), 1);
    EXPECT_EQ(TXString(L"Größe").length(), 5);
    EXPECT_EQ(TXString(std::wstring{wchar_t(0xD834), wchar_t(0xDD1E)}).length(), 2);
    EXPECT_EQ(TXString(std::wstring(100000, L'x')).length(), 100000);
}

TEST(TXString, EmptyMakesItTheEmptyText)
{
    TXString text(L"something");
    text.Empty();
    EXPECT_TRUE(text.isEmpty());
    EXPECT_EQ(text.length(), 0);
    EXPECT_EQ(text.wstr()[0], L'\0');
    text.Empty();
    EXPECT_TRUE(text.isEmpty());
}

TEST(TXString, WideTextEndsWithNul)
{
    const TXString text(L"Allee");
    EXPECT_EQ(std::wstring(text.wstr()), L"Allee");
    EXPECT_EQ(text.wstr()[5], L'\0');
}

TEST(TXString, ConvertsToAWideStringImplicitly)
{
    const TXString text(L"Weg");
    const std::wstring wide = text;
    EXPECT_EQ(wide, L"Weg");
}

TEST(TXString, CopiesAreIndependent)
{
    TXString original(L"one");
    TXString copy(original);
    original = L"two";
    EXPECT_EQ(copy.toStdWString(), L"one");
    copy = original;
    original.Empty();
    EXPECT_EQ(copy.toStdWString(), L"two");
    std::wstring wide = copy.toStdWString();
    wide += L"!";
    EXPECT_EQ(copy.toStdWString(), L"two");
}

TEST(TXString, MovesItsText)
{
    TXString source(kWithNul);
    TXString constructed(std::move(source));
    EXPECT_EQ(constructed.toStdWString(), kWithNul);
    TXString assigned(L"old");
    assigned = std::move(constructed);
    EXPECT_EQ(assigned.toStdWString(), kWithNul);
}

TEST(TXString, AssignsFromEveryKindOfText)
{
    TXString text(L"old");
    EXPECT_EQ(&(text = "narrow"), &text);
    EXPECT_EQ(text.toStdWString(), L"narrow");
    EXPECT_EQ(&(text = L"wide"), &text);
    EXPECT_EQ(text.toStdWString(), L"wide");
    EXPECT_EQ(&(text = std::wstring(L"string")), &text);
    EXPECT_EQ(text.toStdWString(), L"string");
    const std::string narrow = "narrow string";
    EXPECT_EQ(&(text = narrow), &text);
    EXPECT_EQ(text.toStdWString(), L"narrow string");
    text = std::string("a\0b", 3);
    EXPECT_EQ(text.toStdWString(), kWithNul);
    const TXString other(L"other");
    EXPECT_EQ(&(text = other), &text);
    EXPECT_EQ(text.toStdWString(), L"other");
    EXPECT_EQ(other.toStdWString(), L"other");
}

TEST(TXString, SurvivesAssignmentFromItself)
{
    TXString text(L"a rather long text that does not fit into the object itself");
    const std::wstring before = text.toStdWString();
    const TXString& itself = text;
    text = itself;
    EXPECT_EQ(text.toStdWString(), before);
    text = text.wstr();
    EXPECT_EQ(text.toStdWString(), before);
    text = text.wstr() + 9;
    EXPECT_EQ(text.toStdWString(), before.substr(9));
}

TEST(TXString, SplitsAtTheSeparatorAndKeepsEmptyPieces)
{
    EXPECT_EQ(Pieces(L"a\nb\nc", L'\n'), (Wide{L"a", L"b", L"c"}));
    EXPECT_EQ(Pieces(L"abc", L'\n'), (Wide{L"abc"}));
    EXPECT_EQ(Pieces(L"\na\n\nb\n", L'\n'), (Wide{L"", L"a", L"", L"b", L""}));
    EXPECT_EQ(Pieces(L"\n", L'\n'), (Wide{L"", L""}));
    EXPECT_EQ(Pieces(L"", L'\n'), (Wide{L""}));
    EXPECT_EQ(Pieces(L"a\r\nb", L'\n'), (Wide{L"a\r", L"b"}));
}

TEST(TXString, SplitsAtNulAndKeepsItElsewhere)
{
    EXPECT_EQ(Pieces(kWithNul, L'\0'), (Wide{L"a", L"b"}));
    EXPECT_EQ(Pieces(kWithNul, L'b'), (Wide{std::wstring(L"a\0", 2), L""}));
}

TEST(TXString, SplitLeavesTheTextAlone)
{
    const TXString text(L"a|b");
    text.split(L'|');
    EXPECT_EQ(text.toStdWString(), L"a|b");
}

TEST(TXString, ComparesForEquality)
{
    EXPECT_TRUE(TXString(L"abc") == TXString("abc"));
    EXPECT_FALSE(TXString(L"abc") != TXString("abc"));
    EXPECT_FALSE(TXString(L"abc") == TXString(L"abd"));
    EXPECT_TRUE(TXString(L"abc") != TXString(L"abd"));
    EXPECT_FALSE(TXString(L"abc") == TXString(L"ABC"));
    EXPECT_FALSE(TXString(L"abc") == TXString(L"ab"));
    EXPECT_TRUE(TXString(L"ab") != TXString(L"abc"));
    EXPECT_FALSE(TXString(kWithNul) == TXString(L"a"));
    EXPECT_TRUE(TXString() == TXString(""));
}

TEST(TXString, ComparesWithLiteralsDirectly)
{
    const TXString text(L"Straße");
    EXPECT_TRUE(text == L"Straße");
    EXPECT_TRUE(text == "Stra\xC3\x9F"
                        "e");
    EXPECT_TRUE(L"Gasse" != text);
}

TEST(TXString, OrdersByUnitValue)
{
    EXPECT_TRUE(TXString(L"a") < TXString(L"b"));
    EXPECT_FALSE(TXString(L"b") < TXString(L"a"));
    EXPECT_FALSE(TXString(L"a") < TXString(L"a"));
    EXPECT_TRUE(TXString(L"Z") < TXString(L"a"));
    EXPECT_TRUE(TXString(L"ab") < TXString(L"abc"));
    EXPECT_TRUE(TXString(L"a") < TXString(kWithNul));
    EXPECT_TRUE(TXString(L"z") < TXString(L"ä"));
}

TEST(TXString, CanBeAKey)
{
    std::map<TXString, int> numbers{{L"two", 2}, {L"one", 1}, {L"", 0}};
    EXPECT_EQ(numbers.at("one"), 1);
    EXPECT_EQ(numbers.at(L"two"), 2);
    EXPECT_EQ(numbers.at(TXString()), 0);
    EXPECT_EQ(numbers.count("three"), 0u);
}
