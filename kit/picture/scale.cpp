#include "kit/picture/scale.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <initializer_list>

#include "kit/run/decimal_text.h"
#include "kit/run/logarithms.h"

// Ticks are multiples of a step, counted as whole numbers, so that no sum of steps
// drifts away from them. A step is chosen from the room that a label needs.

namespace vorn::kit {

namespace {

constexpr double MINUTE = 60;
constexpr double SECONDS_IN_MINUTES = 3 * MINUTE;  // longer spans are told in minutes
constexpr int MOST_TICKS = 1000;
constexpr double LARGEST_PLAIN = 1e7;
constexpr double SMALLEST_PLAIN = 1e-6;
constexpr const char* KEY_NAMES[] = {"c", "cs", "d", "ef", "e", "f", "fs", "g", "af", "a", "bf", "b"};

double first_of(std::initializer_list<double> steps, double least) {
    for (const double step : steps) {
        if (step >= least) return step;
    }
    return 0;
}

// The whole multiples of `step` within the scale, as numbers of steps.
std::vector<double> multiples(const Scale& scale, double step) {
    std::vector<double> numbers;
    const double first = std::ceil(scale.low / step - 1e-9);
    const double last = std::floor(scale.high / step + 1e-9);
    for (double number = first; number <= last && numbers.size() < MOST_TICKS; ++number) {
        numbers.push_back(number);
    }
    return numbers;
}

constexpr std::int64_t OCTAVE = 12;

std::size_t within_octave(std::int64_t key) {
    return static_cast<std::size_t>((key % OCTAVE + OCTAVE) % OCTAVE);
}

// The keys of an octave that are named together: 1 for each, and how many lie between two of
// them at least.
struct NamedKeys {
    const char* octave;
    double distance;
};

constexpr NamedKeys NAMED_KEYS[] = {
    {"111111111111", 1}, {"101010010100", 2}, {"100010010000", 3}, {"100000010000", 5}, {"100000000000", 12},
};

std::vector<Tick> named_keys(const Scale& scale, const char* octave) {
    std::vector<Tick> ticks;
    for (const double number : multiples(scale, 1)) {
        const auto key = static_cast<std::int64_t>(number);
        const bool is_c = within_octave(key) == 0;
        if (octave[within_octave(key)] == '0') continue;
        const bool has_octave = is_c || ticks.empty();
        ticks.push_back({scale(number), has_octave ? key_name(number) : KEY_NAMES[within_octave(key)], is_c});
    }
    return ticks;
}

double pixels_per_unit(const Scale& scale) {
    return std::fabs(scale.end - scale.begin) / (scale.high - scale.low);
}

}  // namespace

double round_step(double least) {
    if (!(least > 0) || !std::isfinite(least)) return 1;
    const double power = power_of_ten(decimal_exponent(least));
    const double factor = first_of({1, 2, 5, 10}, least / power * (1 - 1e-12));
    return factor * power;
}

double round_seconds(double least) {
    if (least <= 10) return round_step(least);
    const double step = first_of({15, 30, 60, 120, 300, 600, 1200, 1800, 3600}, least);
    return step > 0 ? step : round_step(least / 3600) * 3600;
}

std::string step_label(double value, double step) {
    if (value == 0) return "0";
    if (std::fabs(value) >= LARGEST_PLAIN || step < SMALLEST_PLAIN) return short_number(value);
    const int digits = -decimal_exponent(step * (1 + 1e-9));
    return decimal_text(value, std::max(0, digits));
}

std::string short_number(double value) {
    if (value == 0) return "0";
    const double size = std::fabs(value);
    if (size >= 1000 && size < LARGEST_PLAIN) return decimal_text(value, 0);
    return significant_text(value, 4);
}

std::string counted(std::size_t count, const std::string& one) {
    std::string digits = std::to_string(count);
    for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
    return digits + " " + one + (count == 1 ? "" : "s");
}

std::string time_label(double seconds, double step, bool in_minutes) {
    if (!in_minutes || step < 1 || seconds < 0 || seconds >= LARGEST_PLAIN) return step_label(seconds, step);
    const auto whole = static_cast<std::int64_t>(std::llround(seconds));
    const std::string rest = std::to_string(whole % 60);
    return std::to_string(whole / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

bool is_natural(std::int64_t key) { return KEY_NAMES[within_octave(key)][1] == 0; }

std::string key_name(double key) {
    const double nearest = std::round(key);
    const double octave = std::floor(nearest / 12);
    const auto within = static_cast<std::size_t>(nearest - octave * 12);
    return KEY_NAMES[std::min<std::size_t>(within, 11)] + step_label(octave - 1, 1);
}

std::vector<Tick> key_ticks(const Scale& scale, double least) {
    const double least_keys = least / pixels_per_unit(scale);
    for (const NamedKeys& named : NAMED_KEYS) {
        if (named.distance >= least_keys) return named_keys(scale, named.octave);
    }
    double step = first_of({24, 36, 60, 120}, least_keys);
    if (step == 0) step = round_step(least_keys / OCTAVE) * OCTAVE;
    std::vector<Tick> ticks;
    for (const double number : multiples(scale, step)) {
        ticks.push_back({scale(number * step), key_name(number * step), true});
    }
    return ticks;
}

std::vector<Tick> second_ticks(const Scale& scale, double least) {
    const double step = round_seconds(least / pixels_per_unit(scale));
    const bool in_minutes = scale.high > SECONDS_IN_MINUTES;
    std::vector<Tick> ticks;
    for (const double number : multiples(scale, step)) {
        ticks.push_back({scale(number * step), time_label(number * step, step, in_minutes)});
    }
    return ticks;
}

}  // namespace vorn::kit
