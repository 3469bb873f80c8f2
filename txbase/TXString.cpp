#include <txbase/TXString.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <type_traits>

#include <boost/locale/utf.hpp>

namespace TZObjects
{
namespace
{

using Utf8 = boost::locale::utf::utf_traits<char>;
using boost::locale::utf::code_point;

constexpr code_point kReplacement = 0xFFFD;

bool IsHighSurrogate(code_point unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(code_point unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

code_point Unit(wchar_t unit) { return static_cast<std::make_unsigned_t<wchar_t>>(unit); }

void AppendWide(std::wstring& text, code_point c)
{
    if (sizeof(wchar_t) == 2 && c > 0xFFFF)
    {
        text += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
        text += static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        return;
    }
    text += static_cast<wchar_t>(c);
}

std::size_t LengthOf(const char* text) { return text ? std::strlen(text) : 0; }

} // namespace

TXString::TXString() = default;
TXString::TXString(const char* utf8) : units(FromUtf8(utf8, LengthOf(utf8))) {}
TXString::TXString(const wchar_t* text) : units(text ? text : L"") {}
TXString::TXString(const std::wstring& text) : units(text) {}
TXString::TXString(const TXString& other) = default;
TXString::TXString(TXString&& other) noexcept = default;
TXString::~TXString() = default;
TXString& TXString::operator=(const TXString& other) = default;
TXString& TXString::operator=(TXString&& other) noexcept = default;

TXString& TXString::operator=(const std::wstring& text)
{
    units = text;
    return *this;
}

TXString& TXString::operator=(const char* utf8)
{
    units = FromUtf8(utf8, LengthOf(utf8));
    return *this;
}

TXString& TXString::operator=(const wchar_t* text)
{
    // A copy first: the pointer may come from this very text.
    units = std::wstring(text ? text : L"");
    return *this;
}

std::wstring TXString::FromUtf8(const char* utf8, std::size_t size)
{
    std::wstring text;
    const char* const end = utf8 + size;
    while (utf8 != end)
    {
        const char* const start = utf8;
        const code_point c = Utf8::decode(utf8, end);
        if (boost::locale::utf::is_valid_codepoint(c))
        {
            AppendWide(text, c);
            continue;
        }
        AppendWide(text, kReplacement);
        // The decoder also takes the character that cut the sequence short.
        utf8 = start + 1;
        while (utf8 != end && Utf8::is_trail(*utf8))
            ++utf8;
    }
    return text;
}

bool TXString::isEmpty() const { return units.empty(); }

int TXString::length() const
{
    constexpr std::size_t largest = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(units.size(), largest));
}

void TXString::Empty() { units.clear(); }

const wchar_t* TXString::wstr() const { return units.c_str(); }

std::string TXString::toUTF8() const
{
    std::string utf8;
    utf8.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i)
    {
        code_point c = Unit(units[i]);
        if (IsHighSurrogate(c) && i + 1 < units.size() && IsLowSurrogate(Unit(units[i + 1])))
        {
            const code_point low = Unit(units[++i]);
            c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
        }
        else if (!boost::locale::utf::is_valid_codepoint(c))
            c = kReplacement;
        Utf8::encode(c, std::back_inserter(utf8));
    }
    return utf8;
}

std::wstring TXString::toStdWString() const { return units; }

TXString::operator std::wstring() const { return units; }

std::vector<TXString> TXString::split(wchar_t separator) const
{
    std::vector<TXString> pieces;
    std::size_t start = 0;
    for (;;)
    {
        const std::size_t end = units.find(separator, start);
        pieces.emplace_back(units.substr(start, end == std::wstring::npos ? end : end - start));
        if (end == std::wstring::npos)
            return pieces;
        start = end + 1;
    }
}

} // namespace TZObjects
