#pragma once

#include <cstddef>

// Memory that is taken in small pieces and released as a whole. It comes in a
// small chunk and then in large ones that never double, so that n bytes cost n
// bytes and at most one large chunk more.

namespace vorn {

struct ArenaChunk;

struct Arena {
    char* next = nullptr;          // the first free byte of the newest chunk
    std::size_t left = 0;          // free bytes behind it
    ArenaChunk* newest = nullptr;  // null when nothing is held
};

constexpr std::size_t ARENA_FIRST_CHUNK = std::size_t{1} << 18;
constexpr std::size_t ARENA_CHUNK_SIZE = std::size_t{1} << 23;  // of all others
constexpr std::size_t ARENA_LARGEST = std::size_t{1} << 16;     // bytes of one piece

// `size` zeroed bytes, aligned for pointers; null when memory is exhausted or
// the piece is larger than ARENA_LARGEST.
[[nodiscard]] void* arena_allocate(Arena& arena, std::size_t size);

// Gives everything back; the arena may be used again.
void arena_release(Arena& arena);

}  // namespace vorn
