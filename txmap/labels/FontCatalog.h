#pragma once

#include <functional>
#include <string>

namespace txmap
{

/// The fonts that are installed, as font configuration knows them. It is what drawing backends ask as well.
class FontCatalog
{
public:
    /// True when a face of this name is installed, or the name is one of those that stand for a kind of face, such as
    /// "serif".
    static bool Has(const std::string& face);
    /// The face that stands in for a name: that face itself if it is installed, else the one most like it; empty for
    /// the name when there are no fonts at all.
    static std::string Resolved(const std::string& face);
    /// True when an installed font has the character.
    static bool HasCharacter(char32_t character);
    /// Answers which characters the one font has that cairo draws in a face; empty for cairo's own.
    static std::function<bool(char32_t)> CharactersOf(const std::string& face);
};

} // namespace txmap
