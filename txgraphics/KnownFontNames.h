#pragma once

#include <txbase/TXString.h>

namespace TZObjects
{

/// Returns the English name of a well-known Chinese, Japanese or Korean face, given its localised name. Any other name
/// gives the empty text.
const TXString& EnglishFontName(const TXString& localised);

} // namespace TZObjects
