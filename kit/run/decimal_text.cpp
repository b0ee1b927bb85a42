#include "kit/run/decimal_text.h"

#include <cfloat>
#include <cstdio>
#include <cstdlib>

// The largest double has 309 digits before its point. The smallest that is told apart from
// its neighbours has some 340 behind it, of which 17 are no noughts.

namespace vorn::kit {

namespace {

constexpr std::size_t LONGEST = 400;
constexpr int MOST_DECIMALS = DBL_DIG - DBL_MIN_10_EXP + 2;

std::string printed(const char* form, int digits, double value) {
    char text[LONGEST + MOST_DECIMALS];
    const int length = std::snprintf(text, sizeof text, form, digits, value);
    return {text, static_cast<std::size_t>(length)};
}

}  // namespace

std::string decimal_text(double value, int decimals) { return printed("%.*f", decimals, value); }

std::string significant_text(double value, int digits) { return printed("%.*g", digits, value); }

std::string scientific_text(double value) { return printed("%.*e", DBL_DECIMAL_DIG - 1, value); }

std::string shortest_decimal_text(double value) {
    int decimals = 0;
    std::string text = decimal_text(value, decimals);
    while (std::strtod(text.c_str(), nullptr) != value && decimals < MOST_DECIMALS) {
        text = decimal_text(value, ++decimals);
    }
    return text;
}

}  // namespace vorn::kit
