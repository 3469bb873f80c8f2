#pragma once

#include <cstddef>
#include <string>

#include <txbase/TXString.h>
#include <txmap/labels/TextPath.h>

namespace txmap
{

/// A label in the form in which it is measured and drawn.
///
/// A backend takes a label for rich text when it looks like that, and what looks like that is data from anywhere: so a
/// label is made either such that it is certainly plain, and drawn letter by letter, or such that it is certainly rich,
/// and everything but the label tags <BOL>, <ITA>, <UND>, <ACP>, <SCP> and their closing tags escaped.
struct LabelText
{
    TZObjects::TXString text;
    bool rich = false;
};

/// Longer labels are cut.
constexpr std::size_t kLongestLabel = 500;

/// Makes the label of a name, in UTF-8, as data has it. It shows the name's characters as they are, but for these:
/// label tags format what is between them; control characters and runs of spaces become one space, line breaks stay in
/// plain labels; what turns the direction of writing is dropped; and a label of more than `kLongestLabel` characters
/// ends with an ellipsis.
///
/// A label for cairo is always plain. It has neither label tags nor characters without a shape, such as joiners, and
/// all its spaces are ordinary ones: each character is drawn as what the face has for it.
/// @return an empty text when nothing would be seen.
LabelText MakeLabelText(const std::string& name, TextPath path = TextPath::Qt);

/// The label broken into two lines of about the same length; an empty text when there is nowhere to break it.
LabelText InTwoLines(const LabelText& label);

/// True for spaces of all widths, and breaks of lines.
bool IsBlank(char32_t c);

/// True for joiners, variation selectors and other marks that have no shape of their own.
bool IsShapeless(char32_t c);

/// What a reader sees of a label, without its tags and escapes.
std::wstring VisibleText(const LabelText& label);

} // namespace txmap
