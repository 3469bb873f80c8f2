#pragma once

#include <string>
#include <vector>

#include <txbase/Export.h>

namespace TZObjects
{

/// Text as it crosses every interface of the system: a sequence of `wchar_t` units.
///
/// Embedded NUL units are content like any other. On platforms with a 16-bit `wchar_t` the units are UTF-16; with a
/// 32-bit `wchar_t` they are code points, and a surrogate pair found among them is understood as the character that it
/// encodes. Null pointers are read as the empty text.
class TXBASE_API TXString
{
public:
    /// The empty text.
    TXString();
    /// From UTF-8. Each malformed sequence becomes U+FFFD. Null gives the empty text.
    TXString(const char* utf8);
    /// From null-terminated wide text. Null gives the empty text.
    TXString(const wchar_t* text);
    /// From wide text, embedded NULs included.
    TXString(const std::wstring& text);
    TXString(const TXString& other);
    TXString(TXString&& other) noexcept;
    virtual ~TXString();

    TXString& operator=(const TXString& other);
    TXString& operator=(TXString&& other) noexcept;
    TXString& operator=(const std::wstring& text);
    /// From UTF-8, as the constructor does.
    TXString& operator=(const char* utf8);
    /// From null-terminated wide text, as the constructor does.
    TXString& operator=(const wchar_t* text);

    /// True when the text has no unit.
    bool isEmpty() const;
    /// Number of `wchar_t` units, saturating at the largest `int`.
    int length() const;
    /// Makes this the empty text.
    void Empty();
    /// The units, followed by a NUL. Valid until the text changes or ends.
    const wchar_t* wstr() const;
    /// The text in UTF-8. Surrogate pairs combine; a lone surrogate or a unit above U+10FFFF becomes U+FFFD.
    std::string toUTF8() const;
    /// A copy of the units.
    std::wstring toStdWString() const;
    /// A copy of the units.
    operator std::wstring() const;
    /// The pieces between occurrences of @p separator, in order. Empty pieces are kept, so a text with n separators
    /// gives n + 1 pieces, and the empty text gives one empty piece.
    std::vector<TXString> split(wchar_t separator) const;

    /// True when both texts have the same units.
    friend bool operator==(const TXString& left, const TXString& right) { return left.units == right.units; }
    /// True when the texts differ in a unit or in length.
    friend bool operator!=(const TXString& left, const TXString& right) { return left.units != right.units; }
    /// Orders by unit value, so that texts can be keys of a map. This is not a collation.
    friend bool operator<(const TXString& left, const TXString& right) { return left.units < right.units; }

private:
    std::wstring units;
};

} // namespace TZObjects
