#include <musl/portable_math.h>

#include <bit>
#include <cmath>
#include <numbers>

// Compiled twice, see math_results.h. A sample is a number that is mixed into bits,
// of which the arguments are made: half of them round numbers, as composers write
// them and where ties of rounding lie, half of them any.
//
// The draws are all those that single precision tells apart, 75,497,473 of them.

#include "generators/curves.h"
#include "generators/distributions.h"
#include "generators/random.h"
#include "math_results.h"
#include "output/pitch_conversion.h"

namespace vorn {

namespace {

constexpr std::uint64_t SMALL_DRAWS = std::uint64_t{1} << 24;  // below, every whole number is a float
constexpr std::uint64_t OCTAVE = SMALL_DRAWS / 2;              // floats from one power of two to the next
constexpr std::uint64_t DRAWS = SMALL_DRAWS + 7 * OCTAVE + 1;

// Sixty-four well mixed bits of a number (S. Vigna, splitmix64).
std::uint64_t mixed(std::uint64_t x) {
    x += 0x9e3779b97f4a7c15;
    x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9;
    x = (x ^ (x >> 27)) * 0x94d049bb133111eb;
    return x ^ (x >> 31);
}

// From low to high: any float, or one in steps of a sixteenth, a tenth or a hundredth.
float number(std::uint64_t sample, std::uint64_t salt, float low, float high) {
    constexpr float STEPS[] = {16, 10, 100};
    const std::uint64_t bits = mixed(sample * 8 + salt);
    const float any = low + (high - low) * (static_cast<float>(bits >> 40) * 0x1p-24F);
    if (bits % 2 == 0) return any;
    const float steps = STEPS[bits / 2 % 3];
    return std::floor(any * steps) / steps;
}

std::uint32_t draw_of(std::uint64_t sample) {
    sample %= DRAWS;
    if (sample < SMALL_DRAWS) return static_cast<std::uint32_t>(sample == 0 ? 1 : sample);
    if (sample == DRAWS - 1) return 0x7fffffff;
    sample -= SMALL_DRAWS;
    return static_cast<std::uint32_t>((OCTAVE + sample % OCTAVE) << (sample / OCTAVE + 1));
}

float unit_of(std::uint64_t sample) { return static_cast<float>(draw_of(sample)) * UNIT; }

// Makes the next draw that of the sample, and those behind it a half.
void set_draw(std::uint64_t sample) {
    for (std::uint32_t& word : random_state.word) word = 0x80000000;
    random_state.word[0] = draw_of(sample) * 2;
    random_state.next = 0;
}

std::uint64_t bits_of(double x) { return std::bit_cast<std::uint64_t>(x); }
std::uint64_t bits_of(float x) { return std::bit_cast<std::uint32_t>(x); }

float curve(std::uint64_t sample, std::uint32_t code) {
    const std::uint64_t bits = mixed(sample);
    const std::uint64_t count = 3 + bits % (std::uint64_t{1} << (2 + (bits >> 32) % 20));
    const std::uint64_t index = mixed(bits) % count;
    return pplot_val(index, count, code, number(sample, 0, -100, 100), number(sample, 1, -10000, 10000),
                     number(sample, 2, 0.05F, 12));
}

float curve_in_time(std::uint64_t sample, std::uint32_t code) {
    const float span = number(sample, 0, 1, 1000);
    return tplot_val(code, number(sample, 1, 0, span), span, number(sample, 2, 20, 240),
                     number(sample, 3, 20, 240), number(sample, 4, 0.05F, 12));
}

std::int32_t amplitude(std::uint64_t sample) {
    const std::uint64_t bits = mixed(sample);
    return static_cast<std::int32_t>(1 + (bits >> 33 >> (bits % 31)));
}

std::int32_t decibels(std::uint64_t sample) { return static_cast<std::int32_t>(sample % 20001) - 10000; }

}  // namespace

extern const Use uses[USES] = {
    {"log, double", false, [](std::uint64_t n) { return bits_of(portable::log(double{unit_of(n)})); }},
    {"pow, double", false,
     [](std::uint64_t n) { return bits_of(portable::pow(unit_of(n), double{number(n, 0, 0.05F, 12)})); }},
    {"sin, double", false,
     [](std::uint64_t n) { return bits_of(portable::sin(std::numbers::pi / 2 * unit_of(n))); }},
    {"exp, double", false,
     [](std::uint64_t n) { return bits_of(portable::exp(double{number(n, 0, -25, 25)})); }},
    {"exponential law", true,
     [](std::uint64_t n) {
         set_draw(n);
         return bits_of(expone_left());
     }},
    {"bilateral law", true,
     [](std::uint64_t n) {
         set_draw(n);
         return bits_of(bilex());
     }},
    {"beta law", true,
     [](std::uint64_t n) {
         if (n % BLOCK == 0) srand(static_cast<std::uint32_t>(n / BLOCK));
         return bits_of(beta());
     }},
    {"curve of a power", true, [](std::uint64_t n) { return bits_of(curve(n, 3)); }},
    {"curves of a sine", true, [](std::uint64_t n) { return bits_of(curve(n, 4 + n % 2)); }},
    {"curves in time", true, [](std::uint64_t n) { return bits_of(curve_in_time(n, 3 + n % 3)); }},
    {"pitch to hertz", true, [](std::uint64_t n) { return bits_of(cpc_to_hz(number(n, 0, -60, 180))); }},
    {"semitones to ratio", true, [](std::uint64_t n) { return bits_of(st_to_tr(number(n, 0, -128, 128))); }},
    {"amplitude to decibel", true, [](std::uint64_t n) { return bits_of(amp_to_db(amplitude(n))); }},
    {"decibel to amplitude", true,
     [](std::uint64_t n) { return static_cast<std::uint64_t>(std::int64_t{db_to_amp(decibels(n))}); }},
};

}  // namespace vorn
