#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// From values to places, and the round values that are written beside them.

namespace vorn::kit {

// A straight line from [low, high] to [begin, end]; end may lie before begin.
struct Scale {
    double low = 0;
    double high = 1;
    double begin = 0;
    double end = 1;

    double operator()(double value) const { return begin + (value - low) / (high - low) * (end - begin); }
};

struct Tick {
    double place = 0;
    std::string label;
    bool is_strong = false;  // one to begin with, where there are many
};

// The smallest round number that is no less: 1, 2 or 5 times a power of ten.
[[nodiscard]] double round_step(double least);

// Steps of seconds: round numbers up to ten seconds, then parts and multiples of a minute.
[[nodiscard]] double round_seconds(double least);

// A multiple of `step` without more digits than it needs.
[[nodiscard]] std::string step_label(double value, double step);

// Four digits, or a whole number: "0.2448", "12345", "1.2e+09".
[[nodiscard]] std::string short_number(double value);

// "1 event", "100,000 events".
[[nodiscard]] std::string counted(std::size_t count, const std::string& one);

// "2:05" for 125 seconds where the step is whole; fractions as "125.5".
[[nodiscard]] std::string time_label(double seconds, double step, bool in_minutes);

// The name of the nearest key: "c4" for 60, "fs3", "bf5".
[[nodiscard]] std::string key_name(double key);

// Whether it is one of the seven between which the others lie: "c", and not "cs".
[[nodiscard]] bool is_natural(std::int64_t key);

// Keys to name on a scale that has at least `least` pixels for each name. The octave stands with
// each c and with the lowest, as in a score: "g3 a c4 d e".
[[nodiscard]] std::vector<Tick> key_ticks(const Scale& scale, double least);

// Ticks of a scale of seconds, `least` pixels apart at least.
[[nodiscard]] std::vector<Tick> second_ticks(const Scale& scale, double least);

}  // namespace vorn::kit
