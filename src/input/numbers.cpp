#include "input/numbers.h"

#include <algorithm>
#include <limits>

#include "input/characters.h"
#include "input/skip.h"

// Number readers. A number is an optional sign, then digits; a real has at most
// one "." among or before them. All fraction digits go into one mantissa that is
// divided once, so 0.1 is 1 / 10 in the reader's precision:
//
//     "12.50x"  ->  1250 / 100, pos on "x"
//
// There is no exponent: "1e3" is 1 with pos on "e".

namespace vorn {

namespace {

// Saturation point of the 16-bit readers: beyond every range, far below overflow.
constexpr std::int32_t FAR_OUT_OF_RANGE = 1'000'000;

// ["+" | "-"], leaving pos behind it; true for "-".
bool skip_sign(const char* text, std::int32_t& pos, bool minus_allowed) {
    skip_blanks(text, pos);
    const bool negative = minus_allowed && text[pos] == '-';
    if (negative || text[pos] == '+') ++pos;
    return negative;
}

// digit { digit }, saturating.
std::int32_t read_short_digits(const char* text, std::int32_t& pos) {
    std::int32_t value = 0;
    for (; is_digit(text[pos]); ++pos) value = std::min(value * 10 + (text[pos] - '0'), FAR_OUT_OF_RANGE);
    return value;
}

// digit { digit }, wrapping, and the white space behind.
std::uint64_t read_long_digits(const char* text, std::int32_t& pos) {
    std::uint64_t value = 0;
    for (; is_digit(text[pos]); ++pos) value = value * 10 + static_cast<std::uint64_t>(text[pos] - '0');
    skip_blanks(text, pos);
    return value;
}

// [sign] digits within low to high; out of range leaves pos on the first digit.
bool read_short(std::int32_t& value, const char* text, std::int32_t& pos, bool minus_allowed,
                std::int32_t low, std::int32_t high) {
    const bool negative = skip_sign(text, pos, minus_allowed);
    if (!is_digit(text[pos])) return false;
    const std::int32_t first_digit = pos;
    const std::int32_t magnitude = read_short_digits(text, pos);
    const std::int32_t signed_value = negative ? -magnitude : magnitude;
    if (signed_value < low || signed_value > high) {
        pos = first_digit;
        return false;
    }
    value = signed_value;
    return true;
}

// [sign] digits ["." digits] in the precision of Real; the power of ten is kept
// in an integer that holds max_fraction digits, further ones are ignored.
template <typename Real, typename Power>
bool read_real(Real& value, const char* text, std::int32_t& pos, int max_fraction) {
    const bool negative = skip_sign(text, pos, true);
    if (!is_digit(text[pos]) && text[pos] != '.') return false;
    Real mantissa = 0;
    Power power = 1;
    int fraction_digits = 0;
    bool in_fraction = false;
    for (;; ++pos) {
        const char c = text[pos];
        if (c == '.' && !in_fraction) {
            in_fraction = true;
            continue;
        }
        if (!is_digit(c)) break;
        if (in_fraction && fraction_digits == max_fraction) continue;
        mantissa = mantissa * Real{10} + static_cast<Real>(c - '0');
        if (!in_fraction) continue;
        ++fraction_digits;
        power *= 10;
    }
    const Real magnitude = mantissa / static_cast<Real>(power);
    value = negative ? -magnitude : magnitude;
    return true;
}

}  // namespace

bool get_i(std::int32_t& value, const char* text, std::int32_t& pos) {
    return read_short(value, text, pos, true, std::numeric_limits<std::int16_t>::min(),
                      std::numeric_limits<std::int16_t>::max());
}

bool get_ui(std::uint32_t& value, const char* text, std::int32_t& pos) {
    std::int32_t read = 0;
    if (!read_short(read, text, pos, false, 0, std::numeric_limits<std::uint16_t>::max())) return false;
    value = static_cast<std::uint32_t>(read);
    return true;
}

bool get_li(std::int64_t& value, const char* text, std::int32_t& pos) {
    const bool negative = skip_sign(text, pos, true);
    if (!is_digit(text[pos])) return false;
    const std::uint64_t magnitude = read_long_digits(text, pos);
    value = static_cast<std::int64_t>(negative ? 0 - magnitude : magnitude);
    return true;
}

bool get_uli(std::uint64_t& value, const char* text, std::int32_t& pos) {
    skip_sign(text, pos, false);
    if (!is_digit(text[pos])) return false;
    value = read_long_digits(text, pos);
    return true;
}

bool get_f(float& value, const char* text, std::int32_t& pos) {
    return read_real<float, std::int32_t>(value, text, pos, 9);
}

bool get_df(double& value, const char* text, std::int32_t& pos) {
    return read_real<double, std::int64_t>(value, text, pos, 18);
}

}  // namespace vorn
