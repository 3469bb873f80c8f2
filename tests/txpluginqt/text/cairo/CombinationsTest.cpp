// Every label operation over many combinations of its arguments with fonts, pens and image formats.
#include "ShortLabel.h"
#include <tests/support/ImageCompare.h>
#include <tests/support/PainterState.h>
#include <tests/support/RandomSource.h>

using namespace TZObjects;

namespace
{

constexpr int kCombinations = 1000;

/// Picks parts of a label.
class Picker : public RandomSource
{
public:
    using RandomSource::RandomSource;

    bool Coin() { return Below(2) == 1; }
    /// In steps of a sixteenth.
    double Between(int low, int high) { return low + Below((high - low) * 16) / 16.0; }

    TXColor Color() { return TXColor(Below(256), Below(256), Below(256), OneOf({255, 255, 128, 40, 0})); }
};

std::wstring LongText(bool several)
{
    std::wstring text;
    for (int i = 0; i < 2000; ++i)
        text += several && i % 90 == 89 ? L'\n' : static_cast<wchar_t>(L'!' + i % 90);
    return text;
}

TXString Text(Picker& picker)
{
    static const std::wstring texts[] = {
        L"Hamburg",
        L"Ab\nlonger line\nc",
        L"Ajgy\nW\nil",
        L"",
        L"a\n\nb",
        L"end\n",
        L"\nstart",
        L"\n",
        L"<BOL>Main</BOL> <und>St</und>",
        L"<ITA>x\ny</ITA>",
        L"\u6771\u4eac\u90fd\n\u5927\u962a",
        L"\u5317\u4eac",
        L"\u0645\u0631\u062d\u0628\u0627",
        L"\U0001F600 ok",
        L"f\U0001F3E1\nh",
        std::wstring{L'x', wchar_t(0xD800), L'y'},
        std::wstring{wchar_t(0xDC00), L'\n', L'z'},
        std::wstring(L"a\0b", 3),
        L"e\u0301a\u0308",
        L"a b  c",
        L"tab\there\r\nthere",
        L".",
    };
    const int choice = picker.Below(40);
    if (choice == 0)
        return LongText(false);
    if (choice == 1)
        return LongText(true);
    return picker.OneOf(texts);
}

Look PickLook(Picker& picker)
{
    Look look;
    look.family = picker.OneOf<std::wstring>({L"DejaVu Sans", L"DejaVu Sans", L"DejaVu Serif", L"WenQuanYi Micro Hei"});
    look.height = picker.OneOf({9, 14, 20, 27});
    look.bold = picker.Coin();
    look.italic = static_cast<TXFont::TXItalicMode>(picker.Below(3));
    look.underline = picker.Coin();
    look.strikeOut = picker.Coin();
    look.halo = picker.Coin();
    look.haloWidth = picker.OneOf({1, 2, 5, 0});
    look.haloColor = picker.Color();
    look.letterSpacing = picker.OneOf({0.0, 0.0, 3.5, 1.0, -1.25, -40.0});
    look.angle = picker.OneOf({0, 30, 90, -45, 359});
    look.pen = picker.Color();
    return look;
}

ShortLabel PickCall(Picker& picker)
{
    ShortLabel call;
    call.x = picker.Between(10, 110);
    call.y = picker.Between(5, 80);
    call.left = call.dx = picker.Between(-5, 60);
    call.top = call.dy = picker.Between(-5, 60);
    call.vAlign = picker.Int(1, 3);
    call.hAlign = picker.OneOf({1, 2, 3, 0});
    call.text = Text(picker);
    call.fill = picker.Color();
    call.angle = picker.OneOf({0.0, 30.0, 90.0, -45.0, 359.5});
    call.lineSpacing = call.columnSpacing = picker.OneOf({0.0, 4.0, -3.0});
    call.charSpacing = picker.Between(0, 20);
    call.halo = picker.Coin();
    call.scale = picker.OneOf({1.0, 1.0, 0.5, 2.0, 0.001});
    return call;
}

class Combinations : public QuietTest, public ::testing::WithParamInterface<Entry>
{
};

TEST_P(Combinations, AreDrawnAsDirectly)
{
    const Entry entry = GetParam();
    CairoTwins premultiplied(Look(), TXImage::Format_ARGB32_Premultiplied);
    CairoTwins plain(Look(), TXImage::Format_ARGB32);
    int inked = 0;
    for (int i = 0; i < kCombinations && !HasFailure(); ++i)
    {
        Picker picker(static_cast<unsigned>(static_cast<int>(GetParam()) * 10000 + i));
        CairoTwins& twins = i % 2 ? plain : premultiplied;
        const Look look = PickLook(picker);
        ShortLabel call = PickCall(picker);
        call.font = look;
        twins.Select(look);
        twins.Wipe();
        const PainterState before(twins.SurfacePainter());

        EXPECT_TRUE(::Draw(twins.Surface(), entry, call));

        inked += !twins.Untouched();
        DrawDirectly(twins.Direct(), entry, call, look);
        EXPECT_TRUE(twins.Same()) << "combination " << i << ", " << entry << ": " << call << ", pen 0x" << std::hex
                                  << look.pen.GetColor();
        EXPECT_TRUE(SameState(PainterState(twins.SurfacePainter()), before));
    }
    // Otherwise the comparison would have compared backgrounds.
    EXPECT_GT(inked, kCombinations / 2);
}

INSTANTIATE_TEST_SUITE_P(Entries, Combinations, ::testing::ValuesIn(kAllEntries),
                         [](const auto& tested) { return std::string(NameOf(tested.param)); });

} // namespace
