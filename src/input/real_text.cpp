#include "input/real_text.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

// A printed real is a 32-bit float with at most seven decimals. The value times
// 10^decimals has at most 24 + 17 significant bits, so the product is exact in a
// double, and adding 2^52 rounds it to a whole number by the processor's own
// rule: to nearest, a tie to even. That is what printf does, without arithmetic
// of arbitrary length. What is left is a whole number whose last digits stand
// behind a point: -2.5 with two decimals is 250, "2" and "50".
//
// Digits are made eight at a time in one 64-bit word, the first character in the
// lowest byte, and stored with one instruction. More may be stored than counts;
// what follows overwrites it. Nearly all numbers of a score have at most eight
// digits; longer ones are put together from two words, and the library writes
// huge values and infinities.

namespace vorn {

namespace {

constexpr std::size_t WORD_SIZE = 8;                  // characters
constexpr std::uint64_t BLANKS = 0x2020202020202020;  // eight characters
constexpr std::uint64_t ZEROS = 0x3030303030303030;   // eight characters
constexpr std::uint64_t BLANK_TO_ZERO = ZEROS - BLANKS;
constexpr std::uint32_t WORD_END = 100000000;           // more than eight digits can say
constexpr double ROUNDING_OFFSET = 4503599627370496.0;  // 2^52: the last place of a double is 1
constexpr double POWERS_OF_TEN[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};

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
inline std::uint64_t eight_digits(std::uint32_t number) {
    std::uint64_t lanes = number / 10000 | std::uint64_t{number % 10000} << 32;
    const std::uint64_t hundreds = (lanes * 10486 >> 20) & 0x0000007F0000007F;
    lanes = hundreds | (lanes - hundreds * 100) << 16;
    const std::uint64_t tens = (lanes * 103 >> 10) & 0x000F000F000F000F;
    return tens | (lanes - tens * 10) << 8;
}

// Digits before the first that is shown; the last `decimals` + 1 always are.
std::size_t hidden_zeros(std::uint64_t digits, std::size_t decimals) {
    const std::uint64_t always_shown = std::uint64_t{1} << 8 * (WORD_SIZE - 1 - decimals);
    return static_cast<std::size_t>(std::countr_zero(digits | always_shown)) / 8;
}

// Number, decimals and sign of what is written; `field` is the least width of
// all that stands before the point.
struct Figure {
    std::uint64_t number;
    std::size_t decimals;
    std::size_t field;
    bool negative;
};

// Writes the point and the decimals, the last of the eight in the word.
inline char* put_decimals(char* to, std::uint64_t word, std::size_t decimals) {
    if (decimals == 0) return to;
    const std::uint64_t text = word >> 8 * (WORD_SIZE - 1 - decimals);
    store_word(to, (text & ~std::uint64_t{0xFF}) | '.');
    return to + 1 + decimals;
}

// Writes a number of at most eight digits.
inline char* put_short(char* to, const Figure& figure) {
    const std::uint64_t digits = eight_digits(static_cast<std::uint32_t>(figure.number));
    const std::size_t zeros = hidden_zeros(digits, figure.decimals);
    const std::uint64_t word = BLANKS + digits + (BLANK_TO_ZERO << 8 * zeros);
    const std::size_t room = WORD_SIZE - figure.decimals;  // characters of the word before the point
    const std::size_t shown = room - zeros;
    const std::size_t least = shown + (figure.negative ? 1 : 0);
    const std::size_t field = figure.field > least ? figure.field : least;
    if (field <= room) {
        store_word(to, word >> 8 * (room - field));
    } else {
        std::memset(to, ' ', field - room);
        store_word(to + field - room, word);
    }
    if (figure.negative) to[field - shown - 1] = '-';
    return put_decimals(to + field, word, figure.decimals);
}

// Writes a number of nine to sixteen digits.
char* put_long(char* to, const Figure& figure) {
    const std::uint64_t upper = eight_digits(static_cast<std::uint32_t>(figure.number / WORD_END));
    const std::uint64_t lower = eight_digits(static_cast<std::uint32_t>(figure.number % WORD_END));
    char text[2 * WORD_SIZE];
    store_word(text, ZEROS + upper);
    store_word(text + WORD_SIZE, ZEROS + lower);
    const std::size_t zeros = hidden_zeros(upper, 0);
    const std::size_t shown = sizeof text - figure.decimals - zeros;
    const std::size_t least = shown + (figure.negative ? 1 : 0);
    for (std::size_t blanks = least; blanks < figure.field; ++blanks) *to++ = ' ';
    if (figure.negative) *to++ = '-';
    std::memcpy(to, text + zeros, shown);
    return put_decimals(to + shown, ZEROS + lower, figure.decimals);
}

// Whether a value that is not a number has a sign depends on the processor that
// made it. All are written as most processors make them.
char* put_no_number(char* to, int width) {
    constexpr const char* TEXT = "-nan";
    return to + std::snprintf(to, REAL_TEXT_SIZE, "%*s", width, TEXT);
}

}  // namespace

char* format_real(char* to, float value, int width, int decimals) {
    const double scaled = double{std::fabs(value)} * POWERS_OF_TEN[decimals];
    if (!(scaled < ROUNDING_OFFSET)) {
        if (std::isnan(value)) return put_no_number(to, width);
        return to + std::snprintf(to, REAL_TEXT_SIZE, "%*.*f", width, decimals, double{value});
    }
    const int behind_field = decimals == 0 ? 0 : decimals + 1;
    const int field = width > behind_field ? width - behind_field : 0;
    const Figure figure{rounded(scaled), static_cast<std::size_t>(decimals), static_cast<std::size_t>(field),
                        std::signbit(value)};
    return figure.number < WORD_END ? put_short(to, figure) : put_long(to, figure);
}

char* format_integer(char* to, int value, int width) {
    const std::int64_t number = value;
    const Figure figure{static_cast<std::uint64_t>(number < 0 ? -number : number), 0,
                        static_cast<std::size_t>(width), number < 0};
    return figure.number < WORD_END ? put_short(to, figure) : put_long(to, figure);
}

}  // namespace vorn
