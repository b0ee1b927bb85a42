#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

#include "generators/random.h"

// What tests of the generators need to know about the random sequence: the
// sequence itself, made number by number in the plain textbook way, the count of
// draws that a routine takes, and a way to set the next draws by hand.

namespace vorn::test {

// The first `count` numbers of the sequence of a seed.
inline std::vector<std::int32_t> reference_sequence(std::uint32_t seed, std::size_t count) {
    constexpr std::size_t DROPPED = 310;
    std::vector<std::uint32_t> word(34);
    std::int64_t x = static_cast<std::int32_t>(seed == 0 ? 1 : seed);
    for (std::size_t i = 0; i < 31; ++i) {
        word[i] = static_cast<std::uint32_t>(x);
        x = 16807 * x % 2147483647;
        if (x < 0) x += 2147483647;
    }
    for (std::size_t i = 31; i < 34; ++i) word[i] = word[i - 31];
    std::vector<std::int32_t> numbers;
    for (std::size_t i = 34; numbers.size() < count; ++i) {
        word.push_back(word[i - 3] + word[i - 31]);
        if (i >= 34 + DROPPED) numbers.push_back(static_cast<std::int32_t>(word[i] >> 1));
    }
    return numbers;
}

constexpr std::int32_t MANY_DRAWS = -1;

// The draws that `routine` takes from the sequence of `seed`; MANY_DRAWS above a few thousand.
template <typename Routine>
std::int32_t draws_taken(std::uint32_t seed, Routine routine) {
    srand(seed);
    routine();
    const std::array<std::int32_t, 3> following = {rand(), rand(), rand()};
    const std::vector<std::int32_t> numbers = reference_sequence(seed, 5000);
    for (std::size_t i = 0; i + 2 < numbers.size(); ++i)
        if (numbers[i] == following[0] && numbers[i + 1] == following[1] && numbers[i + 2] == following[2])
            return static_cast<std::int32_t>(i);
    return MANY_DRAWS;
}

// Lets the next draws be these numbers, at most 31 of them.
inline void set_next_draws(std::initializer_list<std::int32_t> numbers) {
    random_state.next = FEEDBACK_DEGREE - static_cast<std::int32_t>(numbers.size());
    std::int32_t at = random_state.next;
    for (const std::int32_t number : numbers)
        random_state.word[at++] = static_cast<std::uint32_t>(number) << 1;
}

// The draws set by set_next_draws that have not been taken.
inline std::int32_t draws_left() { return FEEDBACK_DEGREE - random_state.next; }

constexpr std::int32_t DRAW_ZERO = 0;
constexpr std::int32_t DRAW_ONE = 2147483647;   // the unit draw is exactly 1
constexpr std::int32_t DRAW_HALF = 1 << 30;     // 0.5
constexpr std::int32_t DRAW_QUARTER = 1 << 29;  // 0.25
constexpr std::int32_t DRAW_EIGHTH = 1 << 28;   // 0.125

}  // namespace vorn::test
