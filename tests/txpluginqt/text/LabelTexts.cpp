#include "LabelTexts.h"

const std::vector<std::wstring>& LabelTexts()
{
    static const std::vector<std::wstring> texts = {
        // Plain text.
        L"Main Street",
        L"Wavy gjpq fj",
        L"x",
        L"low\n\u1eaag high",
        L"  spaced  out  ",
        L"tab\tbed",
        L"a longer line\nshort\nmiddle one",
        // Empty text and empty lines.
        L"",
        L"a\n\nb",
        L"trailing\n",
        L"\nleading",
        L"\n",
        L"\n\n\n",
        L" ",
        // Tags.
        L"<BOL>Bold</BOL> text",
        L"<ITA>Italic</ITA> text",
        L"<UND>Under</UND> line",
        L"<ACP>Capitals</ACP>",
        L"<SCP>SMALL Letters</SCP>",
        L"<bol>bold</bol>",
        L"<ita>italic</ita>",
        L"<und>under</und>",
        L"<acp>caps</acp>",
        L"<scp>SMALL</scp>",
        L"<BOL><ITA>both</ITA></BOL> <UND>u</UND>",
        L"<UND>a</und> b",
        L"<BOL>never closed",
        L"stray</BOL>",
        L"<BOL>first\nsecond</BOL>\nthird",
        L"<BOL>one</BOL>\nplain and longer\n<ITA>three</ITA>",
        L"<BOL></BOL>",
        L"<ITA>x</ITA>\n\n<UND>y</UND>",
        // Rich text is recognised by the first tag of the first line.
        L"Main\n<BOL>St</BOL>",
        L"a < b <BOL>c</BOL>",
        // What is no label tag.
        L"<Bol>mixed</Bol>",
        L"<boL>mixed</boL>",
        L"<b>html</b>",
        L"a<br>b",
        L"a < b",
        L"R & D &amp; more",
        L"1 > 0",
        L"<",
        L"&",
        L"<>",
        // Other scripts, combining marks, characters beyond the basic plane.
        L"\u5317\u4eac\u5e02\n\u6d77\u6dc0\u533a",
        L"<BOL>\u5317\u4eac</BOL>\u5e02",
        L"\u0645\u0631\u062d\u0628\u0627 \u0628\u0643",
        L"e\u0301a\u0308 \u00c4\u00df",
        L"\U0001F600 hi",
        L"\u05e9\u05dc\u05d5\u05dd abc",
        // Lone and paired surrogates, code points that are none, and units with a meaning to Qt.
        {L'a', wchar_t(0xd800), L'b'},
        {wchar_t(0xdc00), L'\n', L'c'},
        {wchar_t(0xd83d), wchar_t(0xde00), L'z'},
        {L'q', wchar_t(0x110000), L'r'},
        std::wstring(L"ab\0cd", 5),
        L"\ufeffmark",
        L"cut\u009chere",
        L"line\u2028separator",
        L"soft\u00adhyphen",
        L"no\u00a0break",
    };
    return texts;
}

std::wstring LongText(bool inLines)
{
    std::wstring text;
    while (text.size() < 5000)
        text += inLines && text.size() % 100 == 99 ? L'\n' : static_cast<wchar_t>(L'a' + text.size() % 26);
    return text;
}
