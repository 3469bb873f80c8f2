// Pixels begin at multiples of 64 bytes in this program. Qt's vector code takes the first pixels of a row one by one
// until it comes to such an address, and where colours exceed their alpha it then calculates otherwise than in vectors.
// So the two sides would differ where the heap happens to place their images differently.
#if !defined(__SANITIZE_ADDRESS__) // which replaces the heap itself, and places all but the smallest blocks in this way

#include <cstddef>

// The names below are the C library's own. Defined in the program, this one stands before it for all libraries.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C"
{
    void* __libc_malloc(std::size_t size);
    void* __libc_memalign(std::size_t alignment, std::size_t size);

    void* malloc(std::size_t size)
    {
        constexpr std::size_t leastImage = 256;
        return size < leastImage ? __libc_malloc(size) : __libc_memalign(64, size);
    }
}
// NOLINTEND(bugprone-reserved-identifier)

#endif
