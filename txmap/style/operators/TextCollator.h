#pragma once

#include <memory>
#include <string>

namespace txmap
{

/// Compares texts as a language orders them.
class TextCollator
{
public:
    /// @param locale a language tag; an unknown one, and nothing, means American English.
    TextCollator(bool caseSensitive, bool diacriticSensitive, const std::string& locale);
    ~TextCollator();

    /// Less than 0, 0 or more than 0.
    int Compare(const std::string& left, const std::string& right) const;
    /// The language tag whose rules are used.
    const std::string& Locale() const { return locale; }

private:
    struct Rules;
    std::unique_ptr<Rules> rules;
    std::string locale;
};

/// The nearest locale with rules of its own kind, "en-US" where there is none. The default is the same on every
/// machine, so that a map looks the same everywhere.
std::string SupportedLocale(const std::string& tag);

} // namespace txmap
