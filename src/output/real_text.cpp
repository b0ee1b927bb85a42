// A printed real is a 32-bit float with at most seven decimals. Its whole part
// and its fraction are separated exactly; fraction times 10^decimals needs at
// most 24 + 17 significant bits, so it is exact in a double, and adding 2^52
// rounds it to a whole number by the processor's own rule: to nearest, a tie to
// even. That is what printf does, without its arithmetic of arbitrary length.
//
// Digits are made eight at a time in one 64-bit word, first character in the
// lowest byte, and stored with one instruction. More may be stored than counts;
// the next number overwrites it. -2.5 with two decimals in a field of eight:
//
//     whole part  "      -2" -> the last 5 characters: field of 8 less ".50"
//     fraction    50 -> 50000000 -> "50" and six characters that do not count
//
// Values of 9,999,999 and more, infinities and not-a-number go to the library.

#include "output/real_text.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace vorn {

namespace {

constexpr std::size_t WORD_SIZE = 8;                    // characters
constexpr float LARGE_VALUE = 9999999.0F;               // with a sign and a carry still eight characters
constexpr double ROUNDING_OFFSET = 4503599627370496.0;  // 2^52: the last place of a double is 1
constexpr std::int64_t INTEGER_LIMIT = 10000000;        // seven digits and a sign
constexpr std::uint64_t BLANKS = 0x2020202020202020;    // eight characters
constexpr std::uint64_t ZEROS = 0x3030303030303030;
constexpr std::uint64_t BLANK_TO_ZERO = 0x1010101010101010;  // '0' less ' ' in every character
constexpr std::uint64_t BLANK_TO_MINUS = '-' - ' ';
constexpr std::uint32_t POWERS_OF_TEN[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

void store_word(char* to, std::uint64_t word) {
    if constexpr (std::endian::native == std::endian::big) word = __builtin_bswap64(word);
    std::memcpy(to, &word, WORD_SIZE);
}

// The nearest whole number of a value from 0 to 2^52, a tie to the even one.
std::uint64_t rounded(double value) {
    return std::bit_cast<std::uint64_t>(value + ROUNDING_OFFSET) -
           std::bit_cast<std::uint64_t>(ROUNDING_OFFSET);
}

// The eight decimal digits of a number below 10^8, leading zeros included, as
// values 0 to 9. The number is halved into lanes of four, two and one digits;
// a product and a shift divide in all lanes at once.
std::uint64_t eight_digits(std::uint32_t number) {
    std::uint64_t lanes = number / 10000 | std::uint64_t{number % 10000} << 32;
    const std::uint64_t hundreds = (lanes * 10486 >> 20) & 0x0000007F0000007F;
    lanes = hundreds | (lanes - hundreds * 100) << 16;
    const std::uint64_t tens = (lanes * 103 >> 10) & 0x000F000F000F000F;
    return tens | (lanes - tens * 10) << 8;
}

// Writes a number of at most seven digits, right-aligned in `field` characters or more.
char* put_whole(char* to, std::uint32_t number, bool negative, std::size_t field) {
    const std::uint64_t digits = eight_digits(number);
    // The last digit is shown also when it is 0.
    const auto zeros = static_cast<std::size_t>(std::countr_zero(digits | std::uint64_t{1} << 56)) / 8;
    std::uint64_t word = BLANKS + digits + (BLANK_TO_ZERO << 8 * zeros);
    std::size_t length = WORD_SIZE - zeros;
    if (negative) {
        word += BLANK_TO_MINUS << 8 * (zeros - 1);
        ++length;
    }
    for (; field > WORD_SIZE; --field) *to++ = ' ';
    if (length < field) length = field;
    store_word(to, word >> 8 * (WORD_SIZE - length));
    return to + length;
}

// Writes what the library makes of a value that is out of the ordinary.
char* put_by_library(char* to, float value, int width, int decimals) {
    return to + std::snprintf(to, REAL_TEXT_SIZE, "%*.*f", width, decimals, double{value});
}

}  // namespace

char* format_real(char* to, float value, int width, int decimals) {
    const float magnitude = std::fabs(value);
    if (!(magnitude < LARGE_VALUE)) return put_by_library(to, value, width, decimals);
    const std::uint32_t power = POWERS_OF_TEN[decimals];
    auto whole = static_cast<std::uint32_t>(magnitude);
    std::uint64_t fraction = rounded(double{magnitude} * power) - std::uint64_t{whole} * power;
    if (fraction >= power) {
        ++whole;
        fraction = 0;
    }
    const int behind_whole = decimals == 0 ? 0 : decimals + 1;
    const int field = width > behind_whole ? width - behind_whole : 0;
    to = put_whole(to, whole, std::signbit(value), static_cast<std::size_t>(field));
    if (decimals == 0) return to;
    *to++ = '.';
    const std::uint64_t digits = fraction * POWERS_OF_TEN[WORD_SIZE - static_cast<std::size_t>(decimals)];
    store_word(to, ZEROS + eight_digits(static_cast<std::uint32_t>(digits)));
    return to + decimals;
}

char* format_integer(char* to, int value, int width) {
    const std::int64_t wide = value;
    const std::int64_t magnitude = wide < 0 ? -wide : wide;
    if (magnitude < INTEGER_LIMIT) {
        return put_whole(to, static_cast<std::uint32_t>(magnitude), value < 0,
                         static_cast<std::size_t>(width));
    }
    return to + std::snprintf(to, REAL_TEXT_SIZE, "%*d", width, value);
}

}  // namespace vorn
