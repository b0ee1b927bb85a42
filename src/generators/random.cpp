#include "generators/random.h"

// The state is one round of 31 words, renewed at once when the last of them has
// been handed out, so that most draws are a read and a step of the index. Word 0
// follows word 30 of the round before: the sum of the words 3 and 31 places back
// is word[28] + word[0] for the first, and from word 3 on the renewed word[i - 3]
// plus the old word[i].
//
// A seed becomes a round by the minimal standard generator, x -> 16807 x modulo
// 2^31 - 1 (S. K. Park and K. W. Miller, 1988), in the order in which the feedback
// starts at its fourth word, and ten rounds are dropped to mix it.
//
// Example: seed 1 yields 1804289383, 846930886, 1681692777, 1714636915, ...

namespace vorn {

namespace {

constexpr int DROPPED_ROUNDS = 10;  // 310 numbers
constexpr std::int32_t MODULUS = 2147483647;
constexpr std::int32_t MULTIPLIER = 16807;

// 16807 x modulo 2^31 - 1 without leaving 32 bits (L. Schrage, 1979). A seed from
// 2^31 up comes in as a negative number and is taken with its sign.
constexpr std::int32_t minimal_standard(std::int32_t x) {
    constexpr std::int32_t QUOTIENT = MODULUS / MULTIPLIER;
    constexpr std::int32_t REMAINDER = MODULUS % MULTIPLIER;
    const std::int32_t product = MULTIPLIER * (x % QUOTIENT) - REMAINDER * (x / QUOTIENT);
    return product < 0 ? product + MODULUS : product;
}

constexpr void renew(RandomState& state) {
    constexpr int WRAP = FEEDBACK_DEGREE - FEEDBACK_SEPARATION;
    for (int i = 0; i < FEEDBACK_SEPARATION; ++i) state.word[i] += state.word[i + WRAP];
    for (int i = FEEDBACK_SEPARATION; i < FEEDBACK_DEGREE; ++i)
        state.word[i] += state.word[i - FEEDBACK_SEPARATION];
    state.next = 0;
}

constexpr RandomState seeded(std::uint32_t seed) {
    RandomState state = {};
    std::int32_t x = static_cast<std::int32_t>(seed == 0 ? DEFAULT_SEED : seed);
    for (int i = 0; i < FEEDBACK_DEGREE; ++i) {
        const int place = (i + FEEDBACK_DEGREE - FEEDBACK_SEPARATION) % FEEDBACK_DEGREE;
        state.word[place] = static_cast<std::uint32_t>(x);
        x = minimal_standard(x);
    }
    for (int round = 0; round < DROPPED_ROUNDS; ++round) renew(state);
    state.next = FEEDBACK_DEGREE;
    return state;
}

}  // namespace

constinit RandomState random_state = seeded(DEFAULT_SEED);

void next_round(RandomState& state) { renew(state); }

void srand(std::uint32_t seed) { random_state = seeded(seed); }

void reset_random() { srand(DEFAULT_SEED); }

}  // namespace vorn
