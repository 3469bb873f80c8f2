#include <txmap/symbols/text/LetterClasses.h>

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <utility>

namespace txmap
{
namespace
{

int LineBreakOf(wchar_t c) { return u_getIntPropertyValue(static_cast<UChar32>(c), UCHAR_LINE_BREAK); }

struct ColumnPair
{
    wchar_t line;
    wchar_t column;
};

// Unicode has these forms for columns, in the block of compatibility forms; in the order of the first ones.
constexpr std::array<ColumnPair, 40> kColumnForms = {{
    {L'!', 0xFE15},   {L'(', 0xFE35},   {L')', 0xFE36},   {L',', 0xFE10},   {L':', 0xFE13},   {L';', 0xFE14},
    {L'?', 0xFE16},   {L'[', 0xFE47},   {L']', 0xFE48},   {L'_', 0xFE33},   {L'{', 0xFE37},   {L'}', 0xFE38},
    {0x2013, 0xFE32}, {0x2014, 0xFE31}, {0x2026, 0xFE19}, {0x3001, 0xFE11}, {0x3002, 0xFE12}, {0x3008, 0xFE3F},
    {0x3009, 0xFE40}, {0x300A, 0xFE3D}, {0x300B, 0xFE3E}, {0x300C, 0xFE41}, {0x300D, 0xFE42}, {0x300E, 0xFE43},
    {0x300F, 0xFE44}, {0x3010, 0xFE3B}, {0x3011, 0xFE3C}, {0x3014, 0xFE39}, {0x3015, 0xFE3A}, {0x3016, 0xFE17},
    {0x3017, 0xFE18}, {0xFF01, 0xFE15}, {0xFF08, 0xFE35}, {0xFF09, 0xFE36}, {0xFF0C, 0xFE10}, {0xFF1A, 0xFE13},
    {0xFF1B, 0xFE14}, {0xFF1F, 0xFE16}, {0xFF3B, 0xFE47}, {0xFF3D, 0xFE48},
}};

} // namespace

bool IsRightToLeft(wchar_t c)
{
    if (c < 0x590)
        return false;
    const UCharDirection direction = u_charDirection(static_cast<UChar32>(c));
    return direction == U_RIGHT_TO_LEFT || direction == U_RIGHT_TO_LEFT_ARABIC;
}

bool IsLeftToRight(wchar_t c) { return u_charDirection(static_cast<UChar32>(c)) == U_LEFT_TO_RIGHT; }

bool JoinsNeighbours(wchar_t c)
{
    if (c < 0x600)
        return false;
    const int joining = u_getIntPropertyValue(static_cast<UChar32>(c), UCHAR_JOINING_TYPE);
    return joining == U_JT_DUAL_JOINING || joining == U_JT_LEFT_JOINING || joining == U_JT_RIGHT_JOINING;
}

bool StandsAlone(wchar_t c)
{
    constexpr std::array<std::pair<wchar_t, wchar_t>, 12> ranges = {{{0x20, 0x2FF},
                                                                     {0x370, 0x482},
                                                                     {0x48A, 0x58F},
                                                                     {0x5D0, 0x5EA},
                                                                     {0x1E00, 0x1FFF},
                                                                     {0x2010, 0x2027},
                                                                     {0x2030, 0x205E},
                                                                     {0x2E80, 0x3029},
                                                                     {0x3030, 0x3098},
                                                                     {0x309B, 0xA4CF},
                                                                     {0xAC00, 0xD7A3},
                                                                     {0xFF01, 0xFF9D}}};
    return std::any_of(ranges.begin(), ranges.end(),
                       [c](const auto& range) { return c >= range.first && c <= range.second; });
}

bool BreaksAnywhere(wchar_t c)
{
    if (c < 0x2E80)
        return false;
    const bool hangul =
        u_getIntPropertyValue(static_cast<UChar32>(c), UCHAR_HANGUL_SYLLABLE_TYPE) != U_HST_NOT_APPLICABLE;
    if (hangul || (c >= 0x1F000 && c < 0x20000))
        return false;
    const int width = u_getIntPropertyValue(static_cast<UChar32>(c), UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH || width == U_EA_HALFWIDTH;
}

bool MayBeginLine(wchar_t c)
{
    switch (LineBreakOf(c))
    {
    case U_LB_CLOSE_PUNCTUATION:
    case U_LB_CLOSE_PARENTHESIS:
    case U_LB_EXCLAMATION:
    case U_LB_INFIX_NUMERIC:
    case U_LB_NONSTARTER:
    case U_LB_CONDITIONAL_JAPANESE_STARTER:
    case U_LB_COMBINING_MARK:
    case U_LB_ZWJ:
    case U_LB_GLUE:
    case U_LB_WORD_JOINER:
        return false;
    default:
        return true;
    }
}

bool MayEndLine(wchar_t c) { return LineBreakOf(c) != U_LB_OPEN_PUNCTUATION; }

bool StandsUpright(wchar_t c)
{
    if (c < 0x1100)
        return false;
    const int orientation = u_getIntPropertyValue(static_cast<UChar32>(c), UCHAR_VERTICAL_ORIENTATION);
    // Brackets are turned where there is no form of theirs for columns.
    return orientation == U_VO_UPRIGHT || orientation == U_VO_TRANSFORMED_UPRIGHT;
}

wchar_t ColumnForm(wchar_t c)
{
    const auto found = std::lower_bound(kColumnForms.begin(), kColumnForms.end(), c,
                                        [](const ColumnPair& pair, wchar_t letter) { return pair.line < letter; });
    return found != kColumnForms.end() && found->line == c ? found->column : c;
}

} // namespace txmap
