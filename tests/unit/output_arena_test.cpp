#include "output/arena.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "support/held_memory.h"

namespace {

using vorn::Arena;
using vorn::arena_allocate;
using vorn::arena_release;

struct ArenaTest : testing::Test {
    Arena arena;
    ~ArenaTest() override { arena_release(arena); }
};

bool is_zero(const void* bytes, std::size_t size) {
    const char* at = static_cast<const char*>(bytes);
    for (std::size_t i = 0; i < size; ++i) {
        if (at[i] != 0) return false;
    }
    return true;
}

}  // namespace

TEST_F(ArenaTest, PiecesAreZeroedAlsoInMemoryUsedBefore) {
    constexpr int PIECES = 2 * vorn::ARENA_CHUNK_SIZE / 544;
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < PIECES; ++i) {
            void* piece = arena_allocate(arena, 544);
            ASSERT_NE(piece, nullptr);
            ASSERT_TRUE(is_zero(piece, 544)) << "round " << round << " piece " << i;
            std::memset(piece, 0xFF, 544);
        }
        arena_release(arena);
    }
}

TEST_F(ArenaTest, PiecesAreAlignedForPointers) {
    for (const std::size_t size : {std::size_t{1}, std::size_t{44}, std::size_t{60}, std::size_t{64}}) {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(arena_allocate(arena, size)) % alignof(void*), 0U);
    }
}

TEST_F(ArenaTest, PiecesOfOneChunkFollowEachOther) {
    char* first = static_cast<char*>(arena_allocate(arena, 64));
    EXPECT_EQ(arena_allocate(arena, 60), first + 64);
    EXPECT_EQ(arena_allocate(arena, 64), first + 128);
}

TEST_F(ArenaTest, PiecesKeepTheirContentsAcrossChunks) {
    constexpr int PIECES = 2 * vorn::ARENA_CHUNK_SIZE / vorn::ARENA_LARGEST;
    std::uint32_t* pieces[PIECES];
    for (std::uint32_t i = 0; i < PIECES; ++i) {
        pieces[i] = static_cast<std::uint32_t*>(arena_allocate(arena, vorn::ARENA_LARGEST));
        ASSERT_NE(pieces[i], nullptr);
        pieces[i][0] = i;
        pieces[i][vorn::ARENA_LARGEST / 4 - 1] = i;
    }
    for (std::uint32_t i = 0; i < PIECES; ++i) {
        EXPECT_EQ(pieces[i][0], i);
        EXPECT_EQ(pieces[i][vorn::ARENA_LARGEST / 4 - 1], i);
    }
}

TEST_F(ArenaTest, RefusesAPieceThatIsTooLarge) {
    EXPECT_EQ(arena_allocate(arena, vorn::ARENA_LARGEST + 1), nullptr);
    EXPECT_NE(arena_allocate(arena, 8), nullptr);
}

TEST_F(ArenaTest, ReleasingAnEmptyArenaDoesNothing) {
    arena_release(arena);
    arena_release(arena);
    EXPECT_EQ(arena.newest, nullptr);
}

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
TEST_F(ArenaTest, ReleasingGivesAllMemoryBack) {
    const std::size_t before = vorn::test::held_memory();
    for (std::size_t taken = 0; taken < 3 * vorn::ARENA_CHUNK_SIZE; taken += vorn::ARENA_LARGEST) {
        ASSERT_NE(arena_allocate(arena, vorn::ARENA_LARGEST), nullptr);
    }
    arena_release(arena);
    EXPECT_EQ(vorn::test::held_memory(), before);
}
#endif
