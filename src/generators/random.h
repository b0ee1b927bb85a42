#pragma once

#include <cstdint>

// The run's only source of random numbers: one global sequence, reseedable,
// with a fixed default seed, the same on every platform.
//
// An additive feedback generator (D. E. Knuth, The Art of Computer Programming,
// vol. 2, section 3.2.2) of degree 31 and separation 3: each word is the sum
// modulo 2^32 of the words 3 and 31 places before it, and its upper 31 bits are
// the number handed out.

namespace vorn {

constexpr int FEEDBACK_DEGREE = 31;
constexpr int FEEDBACK_SEPARATION = 3;
constexpr std::uint32_t DEFAULT_SEED = 1;

struct RandomState {
    std::uint32_t word[FEEDBACK_DEGREE];  // one round of the sequence, oldest first
    std::int32_t next;                    // index of the next word; FEEDBACK_DEGREE: a new round is due
};

extern RandomState random_state;  // written by rand, srand and reset_random; never all 0

// Replaces all the words by the 31 that follow them.
void next_round(RandomState& state);

// The next number of the sequence, 0 to 2147483647.
inline std::int32_t rand() {
    if (random_state.next == FEEDBACK_DEGREE) next_round(random_state);
    return static_cast<std::int32_t>(random_state.word[random_state.next++] >> 1);
}

// Restarts the sequence; seed 0 acts as 1, the default.
void srand(std::uint32_t seed);

constexpr float UNIT = 4.656612873077393e-10F;  // 2^-31

// The unit draw: rand() rounded to single precision, times 2^-31. May be exactly 1.
inline float unit_draw() { return static_cast<float>(rand()) * UNIT; }

void reset_random();

}  // namespace vorn
