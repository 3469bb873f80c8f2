#include <txmap/symbols/text/TextDirection.h>

#include <unicode/ubidi.h>
#include <unicode/unistr.h>

#include <memory>

#include <txmap/symbols/text/LetterClasses.h>

namespace txmap
{
namespace
{

struct BidiDeleter
{
    void operator()(UBiDi* bidi) const { ubidi_close(bidi); }
};

} // namespace

bool IsRightToLeftParagraph(const std::wstring& letters, std::size_t at)
{
    const std::size_t before = at == 0 ? std::wstring::npos : letters.rfind(L'\n', at - 1);
    for (std::size_t i = before == std::wstring::npos ? 0 : before + 1; i < letters.size() && letters[i] != L'\n'; ++i)
    {
        if (IsRightToLeft(letters[i]))
            return true;
        if (IsLeftToRight(letters[i]))
            return false;
    }
    return false;
}

std::vector<DirectedRun> VisualRuns(const std::wstring& letters, std::size_t begin, std::size_t end,
                                    bool rightToLeftParagraph)
{
    icu::UnicodeString units;
    std::vector<std::size_t> letterOf; // by unit
    for (std::size_t i = begin; i < end; ++i)
    {
        units.append(static_cast<UChar32>(letters[i]));
        letterOf.resize(static_cast<std::size_t>(units.length()), i);
    }
    letterOf.push_back(end);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UBiDi, BidiDeleter> bidi(ubidi_open());
    const UBiDiLevel level = rightToLeftParagraph ? 1 : 0;
    ubidi_setPara(bidi.get(), units.getBuffer(), units.length(), level, nullptr, &status);
    const int count = ubidi_countRuns(bidi.get(), &status);
    if (U_FAILURE(status))
        return {{begin, end, rightToLeftParagraph}};
    std::vector<DirectedRun> runs;
    for (int i = 0; i < count; ++i)
    {
        int start = 0;
        int length = 0;
        const UBiDiDirection direction = ubidi_getVisualRun(bidi.get(), i, &start, &length);
        const auto first = letterOf.begin() + start;
        runs.push_back({*first, first[length], direction == UBIDI_RTL});
    }
    return runs;
}

wchar_t DirectionMark(bool rightToLeft) { return rightToLeft ? L'\x200F' : L'\x200E'; }

} // namespace txmap
