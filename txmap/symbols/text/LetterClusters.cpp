#include <txmap/symbols/text/LetterClusters.h>

#include <unicode/uchar.h>

#include <txmap/symbols/text/LetterClasses.h>
#include <txmap/symbols/text/PlainText.h>

namespace txmap
{
namespace
{

constexpr wchar_t kJoiner = L'\x200D';
constexpr int kViramaClass = 9;

int JoiningOf(wchar_t c) { return u_getIntPropertyValue(static_cast<UChar32>(c), UCHAR_JOINING_TYPE); }

/// Signs of Tamil and Burmese that are seen, and bind no consonant to the next but for a few.
bool IsSeenVirama(wchar_t c) { return c == 0xBCD || c == 0x103A || c == 0xE3A; }

bool IsTamilLigature(wchar_t first, wchar_t second)
{
    return (first == 0xB95 && second == 0xBB7) || ((first == 0xBB6 || first == 0xBB8) && second == 0xBB0);
}

bool IsLamAlef(wchar_t first, wchar_t second)
{
    return first == 0x644 &&
           (second == 0x622 || second == 0x623 || second == 0x625 || second == 0x627 || second == 0x671);
}

/// True when a letter goes on the one before it.
bool Continues(const std::wstring& letters, const LetterCluster& before, std::size_t next)
{
    if (IsLamAlef(letters[before.begin], letters[next]))
        return true;
    std::size_t last = before.end - 1;
    while (last > before.begin && letters[last] == kJoiner)
        --last;
    const wchar_t sign = letters[last];
    if (IsSeenVirama(sign))
        return IsTamilLigature(letters[before.begin], letters[next]);
    return sign >= 0x900 && u_getCombiningClass(static_cast<UChar32>(sign)) == kViramaClass &&
           u_isalpha(static_cast<UChar32>(letters[next])) != 0;
}

bool JoinsForward(const std::wstring& letters, const LetterCluster& cluster)
{
    // Of a ligature the last letter counts, of others the letter without its marks.
    for (std::size_t i = cluster.end; i-- > cluster.begin;)
    {
        const int joining = JoiningOf(letters[i]);
        if (joining != U_JT_TRANSPARENT)
            return joining == U_JT_DUAL_JOINING || joining == U_JT_LEFT_JOINING || joining == U_JT_JOIN_CAUSING;
    }
    return false;
}

bool JoinsBackward(const std::wstring& letters, const LetterCluster& cluster)
{
    const int joining = JoiningOf(letters[cluster.begin]);
    return joining == U_JT_DUAL_JOINING || joining == U_JT_RIGHT_JOINING || joining == U_JT_JOIN_CAUSING;
}

} // namespace

std::vector<LetterCluster> ClustersOf(const std::wstring& letters)
{
    std::vector<LetterCluster> clusters;
    std::size_t begin = 0;
    for (const std::size_t end : LetterEnds(letters))
    {
        if (!clusters.empty() && Continues(letters, clusters.back(), begin))
            clusters.back().end = end;
        else
            clusters.push_back({begin, end, false, false});
        begin = end;
    }
    for (std::size_t i = 1; i < clusters.size(); ++i)
    {
        const bool joins = JoinsForward(letters, clusters[i - 1]) && JoinsBackward(letters, clusters[i]);
        clusters[i - 1].joinsBehind = joins;
        clusters[i].joinsBefore = joins;
    }
    return clusters;
}

std::wstring ClusterText(const std::wstring& letters, const LetterCluster& cluster)
{
    std::wstring text = letters.substr(cluster.begin, cluster.end - cluster.begin);
    if (cluster.joinsBefore)
        text.insert(text.begin(), kJoiner);
    if (cluster.joinsBehind)
        text += kJoiner;
    return text;
}

} // namespace txmap
