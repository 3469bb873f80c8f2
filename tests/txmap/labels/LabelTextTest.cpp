#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txmap/labels/LabelText.h>

using namespace txmap;

namespace
{

std::wstring Plain(const std::string& name)
{
    const LabelText label = MakeLabelText(name);
    EXPECT_FALSE(label.rich) << name;
    return label.text.toStdWString();
}

/// A rich label without the mark at its beginning.
std::wstring Rich(const std::string& name)
{
    const LabelText label = MakeLabelText(name);
    EXPECT_TRUE(label.rich) << name;
    const std::wstring text = label.text.toStdWString();
    const std::wstring mark = L"<BOL></BOL>";
    EXPECT_EQ(text.substr(0, mark.size()), mark) << name;
    return text.substr(std::min(text.size(), mark.size()));
}

std::wstring Visible(const std::string& name) { return VisibleText(MakeLabelText(name)); }

} // namespace

TEST(LabelText, LeavesOrdinaryNamesAlone)
{
    EXPECT_EQ(Plain("Kenya"), L"Kenya");
    EXPECT_EQ(Plain("A & B"), L"A & B");
    EXPECT_EQ(Plain("AT&T > all"), L"AT&T > all");
    EXPECT_EQ(Plain("A &amp; B &nbsp;"), L"A &amp; B &nbsp;");
    EXPECT_EQ(Plain("São Tomé"), L"S\xE3o Tom\xE9");
    EXPECT_EQ(Plain("42"), L"42");
}

TEST(LabelText, EscapesEverythingButLabelTags)
{
    EXPECT_EQ(Rich("a < b"), L"a &lt; b");
    EXPECT_EQ(Rich("<b>x</b>"), L"&lt;b&gt;x&lt;/b&gt;");
    EXPECT_EQ(Rich("<img src='a&b'>"), L"&lt;img src='a&amp;b'&gt;");
    EXPECT_EQ(Rich("<Bol>x</BOL>"), L"&lt;Bol&gt;x</BOL>");
    EXPECT_EQ(Rich("< BOL>"), L"&lt; BOL&gt;");
    EXPECT_EQ(Rich("<BOL >x"), L"&lt;BOL &gt;x");
    EXPECT_EQ(Rich("<!doctype html>"), L"&lt;!doctype html&gt;");
    EXPECT_EQ(Rich("<<BOL>BOL>x"), L"&lt;<BOL>BOL&gt;x");
}

TEST(LabelText, KeepsLabelTagsInBothCases)
{
    for (const std::string tag : {"BOL", "ITA", "UND", "ACP", "SCP", "bol", "ita", "und", "acp", "scp"})
    {
        const std::string name = "<" + tag + ">A & B</" + tag + ">";
        const std::wstring wide(tag.begin(), tag.end());
        EXPECT_EQ(Rich(name), L"<" + wide + L">A &amp; B</" + wide + L">");
        EXPECT_EQ(Visible(name), L"A & B");
    }
    EXPECT_EQ(Visible("</BOL>x"), L"x");
    EXPECT_EQ(Visible("Main\n<BOL>St</BOL>"), L"Main St");
}

TEST(LabelText, EscapesWhatAReaderWouldTakeForAnEscape)
{
    // This alone makes a label rich, in which it would be decoded.
    EXPECT_EQ(Rich("&lt;"), L"&amp;lt;");
    EXPECT_EQ(Rich("&lt;b&gt;"), L"&amp;lt;b&amp;gt;");
    EXPECT_EQ(Visible("&lt;b&gt; &amp;lt;"), L"&lt;b&gt; &amp;lt;");
}

TEST(LabelText, ShowsEveryCharacterOfTheName)
{
    for (const std::string name : {"a < b", "<b>x</b>", "<img src=x>", "&lt;", "&amp;lt;", "a & b", "<", "x <BO L>"})
        EXPECT_EQ(Visible(name), std::wstring(name.begin(), name.end()));
}

TEST(LabelText, IsEmptyWhenNothingWouldBeSeen)
{
    for (const char* const name : {"", " ", "\n\t", "<BOL></BOL>", "<BOL> </BOL>", "\xE2\x80\xAE", "\xEF\xBB\xBF"})
        EXPECT_TRUE(MakeLabelText(name).text.isEmpty()) << name;
}

TEST(LabelText, TidiesSpaceAndControlCharacters)
{
    EXPECT_EQ(Plain("  a \t b\x01 "), L"a b");
    EXPECT_EQ(Plain("\na\r\n\r\n b \nc\n"), L"a\nb\nc");
    EXPECT_EQ(Plain("a\xC2\x9C"
                    "b"),
              L"a b");
    EXPECT_EQ(Plain("\xEF\xBB\xBF"
                    "a\xE2\x80\xAE"
                    "b\xE2\x81\xA6"),
              L"ab");
    EXPECT_EQ(Plain("a\xE2\x80\xA8"
                    "b"),
              L"a\nb");
}

TEST(LabelText, ReplacesWhatIsNoText) { EXPECT_EQ(Plain("a\xFF"), L"a\xFFFD"); }

TEST(LabelText, CutsLongNames)
{
    EXPECT_EQ(Plain(std::string(500, 'x')), std::wstring(500, L'x'));
    EXPECT_EQ(Plain(std::string(501, 'x')), std::wstring(499, L'x') + L"\x2026");
    EXPECT_EQ(Plain(std::string(5000, 'x')), std::wstring(499, L'x') + L"\x2026");
    EXPECT_EQ(Plain(std::string(498, 'x') + " " + std::string(100, 'y')), std::wstring(498, L'x') + L"\x2026");
}

TEST(LabelText, CutsBetweenCharactersNotInTagsOrEscapes)
{
    std::string name;
    for (int i = 0; i < 600; ++i)
        name += "&";
    EXPECT_EQ(Visible(name + "<"), std::wstring(499, L'&') + L"\x2026");
    name = "<BOL>" + std::string(499, '<') + "</BOL>z";
    EXPECT_EQ(Visible(name), std::wstring(499, L'<') + L"z");
    name.clear();
    for (int i = 0; i < 100000; ++i)
        name += "<BOL>";
    EXPECT_LT(MakeLabelText(name + "x").text.length(), 4000);
    EXPECT_EQ(Visible(name + "x"), L"x");
}

TEST(LabelText, BreaksNearTheMiddle)
{
    const auto broken = [](const char* name) { return InTwoLines(MakeLabelText(name)).text.toStdWString(); };
    EXPECT_EQ(broken("Dem. Rep. Congo"), L"Dem. Rep.\nCongo");
    EXPECT_EQ(broken("United States of America"), L"United States\nof America");
    EXPECT_EQ(broken("Chad"), L"");
    EXPECT_EQ(broken("two\nlines already"), L"");
    EXPECT_EQ(broken("a < b"), L"");
}

TEST(LabelTextForCairo, HasLettersAndOrdinarySpacesOnly)
{
    for (const auto& [name, text] : {std::pair{"Kenya", L"Kenya"},
                                     {"<BOL>a</BOL> b", L"a b"},
                                     {"a <ITA> </ITA> <und>b", L"a b"},
                                     {"<BOL>a\nb</BOL>", L"a\nb"},
                                     {"<b>a</b> <Bol>", L"<b>a</b> <Bol>"},
                                     {"a < b &lt;", L"a < b &lt;"},
                                     {"a\u200Db\u00ADc\uFE0F\u2060", L"abc"},
                                     {"a\u2009\u3000b", L"a b"},
                                     {"a\u202Fb\u2007c\u00A0d", L"a\xA0"
                                                                L"b\xA0"
                                                                L"c\xA0"
                                                                L"d"},
                                     {"<BO<BOL>L>x", L"<BOL>x"}})
    {
        const LabelText label = MakeLabelText(name, TextPath::Cairo);
        EXPECT_FALSE(label.rich) << name;
        EXPECT_EQ(label.text.toStdWString(), text) << name;
        EXPECT_EQ(VisibleText(label), text) << name;
    }
}

TEST(LabelTextForCairo, IsEmptyWhereNothingWouldBeSeen)
{
    for (const char* const name : {"", " ", "<BOL></BOL>", "\u200D\uFE0F", "<ITA>\u3000</ITA>"})
        EXPECT_TRUE(MakeLabelText(name, TextPath::Cairo).text.isEmpty()) << name;
}

TEST(LabelTextForCairo, IsCutByWhatIsSeenOfIt)
{
    std::string tagged;
    for (int i = 0; i < 600; ++i)
        tagged += "<BOL>x</BOL>";
    EXPECT_EQ(MakeLabelText(tagged, TextPath::Cairo).text.toStdWString(), std::wstring(499, L'x') + L'\x2026');
}
