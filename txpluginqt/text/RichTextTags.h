#pragma once

class QString;

namespace txqt
{

/// Rewrites the label tags in @p text into the HTML that Qt's rich text understands: <BOL> bold, <ITA> italic, <UND>
/// underline, <ACP> capitals, <SCP> small letters, each with its closing tag, in upper or in lower case. Any other
/// spelling, line breaks, and tags without a partner stay as they are.
void ConvertRichTextTags(QString& text);

} // namespace txqt
