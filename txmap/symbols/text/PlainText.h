#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <txbase/TXString.h>
#include <txmap/labels/TextPath.h>

namespace txmap
{

/// What is seen of a text in UTF-8: control characters become spaces but for line breaks, which are "\n"; what is
/// broken, and code points that are no characters, become replacement characters; and what turns the direction of
/// writing beyond its place is dropped. Tags are letters like all others.
std::wstring VisibleLetters(const std::string& utf8);

/// A text in the form in which backends take it for what it is: no tag and no escape in it opens anything.
TZObjects::TXString PlainText(const std::wstring& letters, TextPath path);

/// The letters that a reader takes for one each, with their marks: where they end.
std::vector<std::size_t> LetterEnds(const std::wstring& text);

} // namespace txmap
