#include "Random.h"

#include <string>

namespace
{

Name Both(const std::wstring& text) { return {TZObjects::TXString(text), QString::fromStdWString(text)}; }

} // namespace

std::vector<Name> Names(int count, unsigned seed)
{
    std::vector<Name> names;
    for (int i = 0; i < count; ++i)
        names.push_back(DistinctName(static_cast<int>(seed) * 100000 + i));
    return names;
}

Name DistinctName(int number)
{
    static const wchar_t* const kSyllables[] = {L"ba", L"ler",  L"ster", L"mon", L"vil", L"ga",  L"ton", L"rei",
                                                L"ka", L"sund", L"bor",  L"hal", L"nor", L"dor", L"e",   L"wick"};
    std::wstring name;
    // The number in digits to the base 16, each a syllable, with a second word for some.
    unsigned rest = static_cast<unsigned>(number);
    for (int i = 0; i < 4 || rest; ++i, rest /= 16)
        name += kSyllables[rest % 16];
    name[0] = static_cast<wchar_t>(name[0] - L'a' + L'A');
    if (number % 3 == 0)
        name.insert(0, L"Port ");
    return Both(name);
}
