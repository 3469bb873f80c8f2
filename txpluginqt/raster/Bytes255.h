#pragma once

#if defined(__SSE2__)
#include <emmintrin.h>

namespace txqt
{

/// Products of two bytes in 16 bits, divided by 255 and rounded as Qt's `BYTE_MUL` does.
inline __m128i DividedBy255(__m128i products)
{
    const __m128i half = _mm_set1_epi16(0x80);
    return _mm_srli_epi16(_mm_add_epi16(_mm_add_epi16(products, _mm_srli_epi16(products, 8)), half), 8);
}

} // namespace txqt
#endif
