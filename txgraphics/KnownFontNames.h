#pragma once

#include <txbase/TXString.h>

namespace TZObjects
{

/// The English name of a well-known Chinese, Japanese or Korean face, looked up by its localised name; the empty text
/// for every other name.
const TXString& EnglishFontName(const TXString& localised);

} // namespace TZObjects
