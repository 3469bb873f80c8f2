#include "MeasureTest.h"

using namespace TZObjects;

std::vector<FontChoice> MeasureTest::ManyFonts()
{
    std::vector<FontChoice> fonts;
    for (const wchar_t* const family : {L"DejaVu Sans", L"DejaVu Serif", L"WenQuanYi Micro Hei", L"No Such Face"})
        for (const int height : {1, 9, 18, 33})
            for (const int style : {0, 1, 2})
            {
                FontChoice font;
                font.family = family;
                font.height = height;
                font.bold = style != 0;
                font.italic = static_cast<TXFont::TXItalicMode>((style + height) % 3);
                font.underline = style == 2;
                font.letterSpacing = (style - 1) * 1.75;
                fonts.push_back(font);
            }
    return fonts;
}

std::vector<std::wstring> MeasureTest::AllTexts()
{
    std::vector<std::wstring> texts = LabelTexts();
    texts.push_back(LongText(false));
    texts.push_back(LongText(true));
    texts.push_back(L"<BOL>" + LongText(true));
    return texts;
}
