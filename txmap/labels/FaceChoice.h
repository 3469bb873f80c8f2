#pragma once

#include <functional>
#include <string>
#include <vector>

namespace txmap
{

/// The face to draw with in place of the one that was asked for.
struct FaceChoice
{
    std::string face;
    std::string problem; ///< What to say where it is not the one that was asked for; empty when all is well.
};

/// Chooses a face that is installed.
/// @param wanted the name of a face; empty for the system's own.
/// @param option how the message names what asked for it.
FaceChoice ChooseFace(const std::string& wanted, const std::string& option);

/// A character as people write it, such as U+2605.
std::string CharacterName(char32_t character);

/// The message about those characters of texts that @p hasCharacter denies, each named once; empty for none.
/// @param begin how the message begins.
/// @param end how it ends.
std::string MissingCharacters(const std::vector<std::wstring>& texts, const std::function<bool(char32_t)>& hasCharacter,
                              const std::string& begin = "no installed font has",
                              const std::string& end = ", which labels contain");

} // namespace txmap
