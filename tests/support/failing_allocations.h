#pragma once

#include <cstdlib>
#include <limits>
#include <new>

// Lets a test run out of memory at a chosen allocation. Replaces the array forms
// of new for the whole test program, so it is included by the test alone.
// Example: the third allocation from here on fails, and all after it:
//
//     allocations_left = 2;
//     ...
//     allocations_left = ANY_NUMBER;
//
// With `fails_once` the ones behind it succeed again.

namespace vorn::test {

constexpr int ANY_NUMBER = std::numeric_limits<int>::max();
inline int allocations_left = ANY_NUMBER;
inline bool fails_once = false;
inline int allocations_open = 0;  // made and not yet released

}  // namespace vorn::test

[[gnu::noinline]] void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    if (vorn::test::allocations_left <= 0) {
        if (vorn::test::fails_once) vorn::test::allocations_left = vorn::test::ANY_NUMBER;
        return nullptr;
    }
    --vorn::test::allocations_left;
    ++vorn::test::allocations_open;
    return std::malloc(size);
}

[[gnu::noinline]] void* operator new[](std::size_t size) {
    void* memory = std::malloc(size);
    if (memory == nullptr) std::abort();
    ++vorn::test::allocations_open;
    return memory;
}

[[gnu::noinline]] void operator delete[](void* memory) noexcept {
    if (memory != nullptr) --vorn::test::allocations_open;
    std::free(memory);
}

[[gnu::noinline]] void operator delete[](void* memory, std::size_t) noexcept { operator delete[](memory); }
