#include <txmap/style/operators/TextCollator.h>

#include <set>

#include <unicode/coll.h>
#include <unicode/localpointer.h>
#include <unicode/locid.h>
#include <unicode/uenum.h>
#include <unicode/uloc.h>
#include <unicode/unistr.h>

namespace txmap
{
namespace
{

// Every language tag that has data, "zh-TW" for "zh-Hant-TW", too.
std::set<std::string> AvailableTags()
{
    std::set<std::string> tags;
    UErrorCode status = U_ZERO_ERROR;
    UEnumeration* const names = uloc_openAvailableByType(ULOC_AVAILABLE_WITH_LEGACY_ALIASES, &status);
    const icu::LocalUEnumerationPointer owner(names);
    while (const char* name = U_SUCCESS(status) ? uenum_next(names, nullptr, &status) : nullptr)
    {
        UErrorCode tagStatus = U_ZERO_ERROR;
        const std::string tag = icu::Locale(name).toLanguageTag<std::string>(tagStatus);
        if (U_SUCCESS(tagStatus))
            tags.insert(tag);
    }
    return tags;
}

} // namespace

struct TextCollator::Rules
{
    std::unique_ptr<icu::Collator> collator;
};

std::string SupportedLocale(const std::string& tag)
{
    static const std::set<std::string> available = AvailableTags();
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale = icu::Locale::forLanguageTag(tag, status);
    std::string candidate =
        U_SUCCESS(status) ? icu::Locale(locale.getBaseName()).toLanguageTag<std::string>(status) : "";
    if (U_FAILURE(status))
        candidate.clear();
    // "de-AT-1996" is "de-AT" where it is not known, and "de" where that is not.
    while (!candidate.empty() && available.count(candidate) == 0)
    {
        const std::size_t dash = candidate.rfind('-');
        candidate.erase(dash == std::string::npos ? 0 : dash);
    }
    return candidate.empty() || candidate == "und" ? "en-US" : candidate;
}

TextCollator::TextCollator(bool caseSensitive, bool diacriticSensitive, const std::string& tag)
    : rules(std::make_unique<Rules>()), locale(SupportedLocale(tag))
{
    UErrorCode status = U_ZERO_ERROR;
    // The rules for searching find what a reader takes for the same, such as ü and ue in German.
    icu::Locale icuLocale = icu::Locale::forLanguageTag(locale, status);
    icuLocale.setKeywordValue("collation", "search", status);
    rules->collator.reset(icu::Collator::createInstance(icuLocale, status));
    if (U_FAILURE(status) || !rules->collator)
    {
        rules->collator.reset();
        return;
    }
    if (caseSensitive && diacriticSensitive)
        rules->collator->setStrength(icu::Collator::TERTIARY);
    else
        rules->collator->setStrength(diacriticSensitive ? icu::Collator::SECONDARY : icu::Collator::PRIMARY);
    if (caseSensitive && !diacriticSensitive)
        rules->collator->setAttribute(UCOL_CASE_LEVEL, UCOL_ON, status);
}

TextCollator::~TextCollator() = default;

int TextCollator::Compare(const std::string& left, const std::string& right) const
{
    if (!rules->collator)
        return left.compare(right);
    UErrorCode status = U_ZERO_ERROR;
    return rules->collator->compareUTF8(left, right, status);
}

} // namespace txmap
