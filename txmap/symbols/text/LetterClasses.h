#pragma once

namespace txmap
{

/// @name What kinds of letters there are
/// Each takes a code point.
/// @{

/// Letters that are written from right to left, and the mark that stands for one.
bool IsRightToLeft(wchar_t c);
/// Letters that are written from left to right, and the mark that stands for one.
bool IsLeftToRight(wchar_t c);
/// Letters that join their neighbours, as those of Arabic do: no space goes between them.
bool JoinsNeighbours(wchar_t c);
/// Letters that never join, reorder or bear marks by themselves, so that one stands beside the other whatever they
/// are. Others may; this is about speed.
bool StandsAlone(wchar_t c);
/// Letters that begin and end a line of their own accord, as ideographs do.
bool BreaksAnywhere(wchar_t c);
/// False for what must not begin a line: closing brackets, commas of ideographic texts, marks of the letter before.
bool MayBeginLine(wchar_t c);
/// False for what must not end a line: opening brackets.
bool MayEndLine(wchar_t c);
/// Letters that stand upright in a column, as ideographs do.
bool StandsUpright(wchar_t c);
/// What stands in a column for a bracket or a comma of a line; the letter itself for all others.
wchar_t ColumnForm(wchar_t c);
/// @}

} // namespace txmap
