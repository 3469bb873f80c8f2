#pragma once

#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

#include <txbase/Export.h>

namespace TZObjects
{

/// A text: the type in which names, labels and messages cross the interfaces.
///
/// A text is a sequence of `wchar_t` units. Where `wchar_t` has 16 bits the units are UTF-16. Where it has 32 bits, as
/// on Linux, they are code points, and a surrogate pair counts as the character that it encodes. A NUL is a unit like
/// any other. Narrow text is UTF-8 wherever this class reads or writes it.
class TXBASE_API TXString
{
public:
    /// Makes the empty text.
    TXString();
    /// Makes a text from NUL-terminated UTF-8.
    /// @param utf8 the bytes; each malformed sequence becomes U+FFFD. Null gives the empty text.
    TXString(const char* utf8);
    /// Makes a text from NUL-terminated wide text.
    /// @param text the units; null gives the empty text.
    TXString(const wchar_t* text);
    /// Makes a text from wide text and keeps its NULs.
    /// @param text the units.
    TXString(const std::wstring& text);
    /// Makes a text from UTF-8 and keeps its NULs.
    ///
    /// A template takes a `std::string` and nothing that converts to one, so a braced list still makes wide text.
    /// @param utf8 the bytes; each malformed sequence becomes U+FFFD.
    template <class Narrow, class = std::enable_if_t<std::is_same_v<Narrow, std::string>>>
    TXString(const Narrow& utf8) : units(FromUtf8(utf8.data(), utf8.size()))
    {
    }
    /// Copies the units.
    TXString(const TXString& other);
    /// Takes the units over; the source stays valid, with any content.
    TXString(TXString&& other) noexcept;
    virtual ~TXString();

    /// Copies the units.
    TXString& operator=(const TXString& other);
    /// Takes the units over; the source stays valid, with any content.
    TXString& operator=(TXString&& other) noexcept;
    /// Assigns wide text, its NULs included.
    TXString& operator=(const std::wstring& text);
    /// Assigns UTF-8, its NULs included, as the constructor does.
    template <class Narrow, class = std::enable_if_t<std::is_same_v<Narrow, std::string>>>
    TXString& operator=(const Narrow& utf8)
    {
        units = FromUtf8(utf8.data(), utf8.size());
        return *this;
    }
    /// Assigns NUL-terminated UTF-8, as the constructor does; null gives the empty text.
    TXString& operator=(const char* utf8);
    /// Assigns NUL-terminated wide text; null gives the empty text.
    TXString& operator=(const wchar_t* text);

    /// Returns true when the text has no unit.
    bool isEmpty() const;
    /// Returns the number of units, at most the largest `int`.
    int length() const;
    /// Makes this the empty text.
    void Empty();
    /// Returns the units, followed by a NUL. The pointer is valid until the text changes or ends.
    const wchar_t* wstr() const;
    /// Returns the text in UTF-8. A surrogate pair becomes one character; a lone surrogate, or a unit above U+10FFFF,
    /// becomes U+FFFD.
    std::string toUTF8() const;
    /// Returns a copy of the units.
    std::wstring toStdWString() const;
    /// Converts to a copy of the units.
    operator std::wstring() const;
    /// Splits the text at every occurrence of a unit.
    /// @param separator the unit to split at; it is in no piece.
    /// @return the pieces in order, empty ones included: n separators give n + 1 pieces, and the empty text gives one
    /// empty piece.
    std::vector<TXString> split(wchar_t separator) const;

    /// Returns true when both texts have the same units.
    friend bool operator==(const TXString& left, const TXString& right) { return left.units == right.units; }
    /// Returns true when the texts differ in a unit or in length.
    friend bool operator!=(const TXString& left, const TXString& right) { return left.units != right.units; }
    /// Orders texts by the values of their units, so that texts can be keys of a map. The order is not a collation.
    friend bool operator<(const TXString& left, const TXString& right) { return left.units < right.units; }

private:
    static std::wstring FromUtf8(const char* utf8, std::size_t size);

    std::wstring units;
};

} // namespace TZObjects
