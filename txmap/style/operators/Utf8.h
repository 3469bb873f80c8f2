#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace txmap
{

/// How many characters a UTF-8 text has.
std::size_t CountCharacters(std::string_view text);
/// The byte at which a character begins, or the length of the text.
std::size_t CharacterOffset(std::string_view text, std::size_t character);
/// The byte that a number of UTF-16 units lies before. Within a pair, it is the next character's.
std::size_t Utf16Offset(std::string_view text, double units);
std::string Upcase(const std::string& text);
std::string Downcase(const std::string& text);
/// The parts of a text between the separators; its characters where the separator is empty.
std::vector<std::string> Split(const std::string& text, const std::string& separator);

} // namespace txmap
