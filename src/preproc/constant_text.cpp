#include "preproc/constant_text.h"

#include <cmath>
#include <cstdio>

// A value's whole part and its fraction are written as two whole numbers:
//
//     2.0625   ->   "2" "." "063"
//
// A fraction that rounds up to 1000 is written as "1000" with nothing carried, so
// 2.9996 becomes "2.1000"; and the whole part goes through single precision before
// it is taken from the value, which spoils the fraction of large values: both kept
// on purpose.

namespace vorn {

namespace {

constexpr double WHOLE_LIMIT = 9223372036854775808.0;  // 2^63: whole parts below it are computed with
constexpr int FRACTION_DIGITS = 3;

// Digits of n behind zeros up to a width; returns the end.
char* write_digits(char* text, std::int64_t n, int width) {
    for (int digits = CountDigits(n); digits < width; ++digits) *text++ = '0';
    char* const end = text + CountDigits(n);
    for (char* at = end; at != text; n /= 10) *--at = static_cast<char>('0' + n % 10);
    return end;
}

// The fraction in thousandths, halves up; a negative one, left by the detour
// through single precision, is 0.
std::int64_t thousandths(double value, std::int64_t whole) {
    const double exact = (value - double{static_cast<float>(whole)}) * 1000;
    const double below = std::floor(exact);
    const double rounded = exact - below >= 0.5 ? below + 1 : below;
    return rounded > 0 ? static_cast<std::int64_t>(rounded) : 0;
}

}  // namespace

void FtoA(char* text, double value) {
    if (value < 0) {
        *text++ = '-';
        value = -value;
    }
    if (std::isnan(value)) {  // has a sign or not, as the processor made it: shown alike
        std::snprintf(text, CONSTANT_TEXT_SIZE - 1, "-nan.000");
        return;
    }
    if (value >= WHOLE_LIMIT) {
        std::snprintf(text, CONSTANT_TEXT_SIZE - 1, "%.0f.000", value);
        return;
    }
    const auto whole = static_cast<std::int64_t>(value);
    text = write_digits(text, whole, 1);
    *text++ = '.';
    text = write_digits(text, thousandths(value, whole), FRACTION_DIGITS);
    *text = 0;
}

int CountDigits(std::int64_t n) {
    if (n < 0) return 0;
    int digits = 1;
    for (; n >= 10; n /= 10) ++digits;
    return digits;
}

}  // namespace vorn
