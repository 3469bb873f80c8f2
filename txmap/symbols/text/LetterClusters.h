#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace txmap
{

/// Letters that are never apart.
struct LetterCluster
{
    std::size_t begin = 0;
    std::size_t end = 0;
    bool joinsBefore = false; ///< Whether it joins the letter before or behind it in the text, as those of Arabic do.
    bool joinsBehind = false;
};

/// The clusters of a text in its logical order: letters with their marks, syllables of Indic scripts with all their
/// consonants, and ligatures that scripts ask for.
std::vector<LetterCluster> ClustersOf(const std::wstring& letters);

/// What to draw of a cluster by itself, so that its letters have the forms that they have among the others.
std::wstring ClusterText(const std::wstring& letters, const LetterCluster& cluster);

} // namespace txmap
