// Arguments and fonts that cairo cannot survive: nothing is drawn, or something harmless, and the next label is as on a
// fresh surface.
#include <cmath>
#include <limits>
#include <vector>

#include "ShortLabel.h"
#include <tests/txpluginqt/cairo/FontDouble.h>

using namespace TZObjects;

namespace
{

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kAbsurd[] = {kNan, kInfinity, -kInfinity, 1e300, -1e300};

/// Looks that lead to every layout and every stroke.
std::vector<Look> Looks()
{
    std::vector<Look> looks(4);
    looks[1].underline = true;
    looks[1].strikeOut = true;
    looks[1].halo = true;
    looks[2].letterSpacing = 3;
    looks[3] = looks[1];
    looks[3].letterSpacing = -2;
    return looks;
}

class Hostile : public QuietTest
{
protected:
    /// An ordinary label is drawn as on a fresh surface, without anything being selected again.
    void ExpectUnharmed(CairoTwins& twins, const Look& look)
    {
        for (const Entry entry : {Entry::StringAt, Entry::VerticalAt})
        {
            twins.Wipe();
            ShortLabel call;
            call.text = L"Hag\nx";
            EXPECT_TRUE(::Draw(twins.Surface(), entry, call));
            DrawDirectly(twins.Direct(), entry, call, look);
            EXPECT_TRUE(twins.SameAndInked()) << entry;
        }
    }

    /// Draws the label with every operation, each look and one or two lines.
    /// @param refused false where drawing something harmless is an answer too.
    template <class Spoil>
    void Try(bool refused, const std::vector<Entry>& entries, Spoil spoil)
    {
        for (const Look& look : Looks())
        {
            CairoTwins twins(look);
            for (const Entry entry : entries)
                for (const wchar_t* const text : {L"Hag", L"Ha\ngx"})
                {
                    ShortLabel call;
                    call.text = text;
                    call.font = look;
                    call.halo = true;
                    spoil(call);
                    twins.Wipe();
                    const bool drawn = ::Draw(twins.Surface(), entry, call);
                    if (refused)
                    {
                        EXPECT_FALSE(drawn) << entry << ": " << call;
                        EXPECT_TRUE(twins.Untouched()) << entry << ": " << call;
                    }
                    ExpectUnharmed(twins, look);
                    if (HasFailure())
                        return;
                }
        }
    }

    const std::vector<Entry> all{std::begin(kAllEntries), std::end(kAllEntries)};
    const std::vector<Entry> withAngle{Entry::StringInBox,  Entry::StringAt,  Entry::StringMoved,
                                       Entry::OutlineAbout, Entry::OutlineAt, Entry::VerticalAbout,
                                       Entry::VerticalAt};
    const std::vector<Entry> withSecondPair{Entry::StringInBox, Entry::StringMoved, Entry::StringByFontAngle,
                                            Entry::OutlineAbout, Entry::VerticalAbout};
    const std::vector<Entry> withSpacing{Entry::StringAt, Entry::OutlineAbout, Entry::OutlineAt, Entry::VerticalAbout,
                                         Entry::VerticalAt};
};

TEST_F(Hostile, AnchorsThatAreNotFiniteAreRefused)
{
    for (const double value : {kNan, kInfinity, -kInfinity})
    {
        Try(true, all, [&](ShortLabel& call) { call.x = value; });
        Try(true, all, [&](ShortLabel& call) { call.y = value; });
        Try(true, withSecondPair, [&](ShortLabel& call) { call.left = call.dx = value; });
        Try(true, withSecondPair, [&](ShortLabel& call) { call.top = call.dy = value; });
    }
}

TEST_F(Hostile, AnchorsBeyondAllImagesDoNoHarm)
{
    for (const double value : {1e300, -1e300, 1e12, -1e12, 1e9, -1e9, 32768.0})
    {
        Try(false, all, [&](ShortLabel& call) { call.x = value; });
        Try(false, all, [&](ShortLabel& call) { call.y = value; });
        Try(false, withSecondPair, [&](ShortLabel& call) { call.left = call.dx = value; });
        Try(false, withSecondPair, [&](ShortLabel& call) { call.top = call.dy = value; });
    }
}

TEST_F(Hostile, AnglesThatAreNotFiniteAreRefused)
{
    for (const double value : {kNan, kInfinity, -kInfinity})
        Try(true, withAngle, [&](ShortLabel& call) { call.angle = value; });
    Try(false, withAngle, [](ShortLabel& call) { call.angle = 1e300; });
}

TEST_F(Hostile, ScalesThatAreNotFiniteAreRefused)
{
    for (const double value : {kNan, kInfinity, -kInfinity})
        Try(true, all, [&](ShortLabel& call) { call.scale = value; });
}

TEST_F(Hostile, ScalesAtTheEndsOfTheRangeDoNoHarm)
{
    for (const double value : {0.0, 1e-320, 1e-300, -1e-300, 1e-20, -1.0, 1e300, -1e300})
        Try(false, all, [&](ShortLabel& call) { call.scale = value; });
}

TEST_F(Hostile, LineSpacingsThatAreNotFiniteAreRefused)
{
    for (const double value : {kNan, kInfinity, -kInfinity})
        Try(true, withSpacing, [&](ShortLabel& call) { call.lineSpacing = call.columnSpacing = value; });
    for (const double value : {1e300, 1e12, -1e9})
        Try(false, withSpacing, [&](ShortLabel& call) { call.lineSpacing = call.columnSpacing = value; });
}

TEST_F(Hostile, AnArgumentThatIsNotUsedDoesNotMatter)
{
    for (const double value : kAbsurd)
    {
        CairoTwins twins;
        ShortLabel call;
        call.charSpacing = value;
        EXPECT_TRUE(::Draw(twins.Surface(), Entry::VerticalAt, call));
        DrawDirectly(twins.Direct(), Entry::VerticalAt, call, Look());
        EXPECT_TRUE(twins.SameAndInked());
    }
}

TEST_F(Hostile, SizesBeyondTheLargestDoNoHarm)
{
    // A size of 70,000 by the scale: FreeType would refuse the face in this whole process from then on.
    Try(false, {Entry::StringAt, Entry::VerticalAt}, [](ShortLabel& call) { call.scale = 3500.0; });

    Look look;
    look.height = 70000;
    CairoTwins twins(look);
    ::Draw(twins.Surface(), Entry::StringAt, ShortLabel());
    ::Draw(twins.Surface(), Entry::VerticalAt, ShortLabel());
    twins.Select(Look());
    ExpectUnharmed(twins, Look());
}

TEST_F(Hostile, WordSpacingsDoNoHarm)
{
    for (const double value : {kNan, kInfinity, -kInfinity, 1e9, -1e9})
    {
        Look look;
        look.letterSpacing = value;
        look.halo = true;
        look.underline = true;
        CairoTwins twins(look);
        for (const Entry entry : kAllEntries)
            for (const wchar_t* const text : {L"Hag", L"Ha\ngx"})
            {
                ShortLabel call;
                call.text = text;
                ::Draw(twins.Surface(), entry, call);
            }
        twins.Select(Look());
        ExpectUnharmed(twins, Look());
    }
}

TEST_F(Hostile, OddFaceNamesDoNoHarm)
{
    const TXString names[] = {
        TXString("\xff\xfe\x80"),
        TXString(std::wstring{wchar_t(0xD800), L'x', wchar_t(0xDFFF)}),
        TXString(std::wstring{wchar_t(0x7fffffff), wchar_t(0x110000)}),
        TXString(std::wstring(L"a\0b", 3)),
        TXString(std::wstring(100000, L'n')),
        TXString(L"DejaVu Sans:size=900000:weight=nan"),
        TXString(L"@cairo:"),
        TXString(L"No Such Face"),
        TXString(L"\uFEFF"),
        TXString(L" "),
    };
    CairoTwins twins;
    for (const TXString& name : names)
    {
        TXRefPtr<TXFont> font = MakeFont(Look());
        font->SetFontName(name);
        twins.Surface().SelectFont(font);
        for (const Entry entry : kAllEntries)
            EXPECT_TRUE(::Draw(twins.Surface(), entry, ShortLabel())) << entry;
        twins.Select(Look());
        ExpectUnharmed(twins, Look());
    }
}

TEST_F(Hostile, FontsOfTheHostsDoNoHarm)
{
    Look looks[2];
    looks[1].underline = true;
    looks[1].halo = true;
    constexpr int largest = std::numeric_limits<int>::max();
    for (const Look& look : looks)
        for (int i = 0; i < 12; ++i)
        {
            CairoTwins twins;
            TXRefPtr<FontDouble> font = NewFontDouble(look);
            const double spacings[] = {kNan, kInfinity, 1e300, -1e300};
            const int heights[] = {0, -5, largest, -largest - 1};
            const int haloWidths[] = {0, -7, 1000000, largest};
            if (i < 4)
                font->spacing = spacings[i];
            else if (i < 8)
                font->height = heights[i - 4];
            else
                font->haloWidth = haloWidths[i - 8];
            twins.Surface().SelectFont(font.get());
            for (const Entry entry : kAllEntries)
                for (const wchar_t* const text : {L"Hag", L"Ha\ngx"})
                {
                    ShortLabel call;
                    call.text = text;
                    call.halo = true;
                    ::Draw(twins.Surface(), entry, call);
                }
            // The same font comes to its senses, without being selected again.
            font->spacing.reset();
            font->height.reset();
            font->haloWidth.reset();
            ExpectUnharmed(twins, look);
            if (HasFailure())
                FAIL() << "with answer " << i;
        }
}

TEST_F(Hostile, LongAndOddTextsDoNoHarm)
{
    std::wstring odd;
    for (int i = 0; i < 3000; ++i)
        odd += static_cast<wchar_t>(i * 7919 % 0x120000 - 40);
    const std::wstring texts[] = {odd, std::wstring(20000, L'x'), std::wstring(3000, L'\n'), std::wstring(1, L'\0')};
    for (const Look& look : Looks())
    {
        CairoTwins twins(look);
        for (const std::wstring& text : texts)
            for (const Entry entry : {Entry::StringAt, Entry::VerticalAt})
            {
                ShortLabel call;
                call.text = text;
                EXPECT_TRUE(::Draw(twins.Surface(), entry, call)) << entry;
                ExpectUnharmed(twins, look);
            }
    }
}

TEST_F(Hostile, AlignmentsOutsideTheEnumerationsAreOrdinaryOnes)
{
    CairoTwins twins;
    ShortLabel call;
    call.text = L"Hag\nx";
    for (const int align : {-2000000000, -1, 4, 2000000000})
        for (const Entry entry : kAllEntries)
        {
            call.hAlign = call.vAlign = align;
            twins.Wipe();
            EXPECT_TRUE(::Draw(twins.Surface(), entry, call)) << entry;
            DrawDirectly(twins.Direct(), entry, call, Look());
            EXPECT_TRUE(twins.SameAndInked()) << entry << ", alignment " << align;
        }
}

} // namespace
