#pragma once

#include <cstddef>

// What a program has allocated and not given back, in bytes. Small pieces that the
// allocator keeps for the next call count as held: free large ones to see them go.
// The sanitizers bring an allocator that does not tell, and see leaks themselves.

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
#include <malloc.h>

namespace vorn::test {

inline std::size_t held_memory() {
    const struct mallinfo2 all = mallinfo2();
    return all.uordblks + all.hblkhd;
}

}  // namespace vorn::test
#endif
