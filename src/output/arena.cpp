#include "output/arena.h"

#include <cstdlib>
#include <cstring>

#ifdef __linux__
#include <sys/mman.h>
#endif

// Pieces are cut from the front of the newest chunk. Each chunk begins with a
// pointer to the one before it, which is all that releasing needs.
//
// Invariant: next and left describe the unused end of the newest chunk, and next
// is a multiple of the alignment away from the chunk's start. A piece is cleared
// when it is cut, not with its chunk: pages that are never cut are never touched,
// and the cleared bytes are still in the cache when the caller fills them.

namespace vorn {

struct ArenaChunk {
    ArenaChunk* older;
};

namespace {

constexpr std::size_t ALIGNMENT = alignof(void*);
constexpr std::size_t LARGE_PAGE = std::size_t{1} << 21;  // bytes, on most processors

// Asks for large pages in place of thousands of small ones, each of which costs a
// fault when it is first touched. Where there are none, nothing changes.
void ask_for_large_pages(void* chunk) {
#ifdef MADV_HUGEPAGE
    madvise(chunk, ARENA_CHUNK_SIZE, MADV_HUGEPAGE);
#else
    (void)chunk;
#endif
}

void* make_large_chunk() {
    void* memory = std::aligned_alloc(LARGE_PAGE, ARENA_CHUNK_SIZE);
    if (memory != nullptr) ask_for_large_pages(memory);
    return memory;
}

bool add_chunk(Arena& arena) {
    const bool first = arena.newest == nullptr;
    const std::size_t size = first ? ARENA_FIRST_CHUNK : ARENA_CHUNK_SIZE;
    void* memory = first ? std::malloc(size) : make_large_chunk();
    if (memory == nullptr) return false;
    auto* chunk = static_cast<ArenaChunk*>(memory);
    chunk->older = arena.newest;
    arena.newest = chunk;
    arena.next = static_cast<char*>(memory) + sizeof(ArenaChunk);
    arena.left = size - sizeof(ArenaChunk);
    return true;
}

}  // namespace

void* arena_allocate(Arena& arena, std::size_t size) {
    if (size > ARENA_LARGEST) return nullptr;
    const std::size_t taken = (size + ALIGNMENT - 1) / ALIGNMENT * ALIGNMENT;
    if (taken > arena.left && !add_chunk(arena)) return nullptr;
    char* piece = arena.next;
    arena.next += taken;
    arena.left -= taken;
    std::memset(piece, 0, taken);
    return piece;
}

void arena_release(Arena& arena) {
    ArenaChunk* chunk = arena.newest;
    while (chunk != nullptr) {
        ArenaChunk* older = chunk->older;
        std::free(chunk);
        chunk = older;
    }
    arena = Arena{};
}

}  // namespace vorn
