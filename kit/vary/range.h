#pragma once

#include <cstddef>
#include <string>

namespace vorn::kit {

struct Range {
    double from = 0;
    double to = 0;
    bool is_whole = false;     // both ends are written as whole numbers: so are all values
    std::size_t decimals = 0;  // that the longer of both ends is written with
};

struct Assignment {
    std::string error;  // not empty: the text is no assignment
    std::string name;   // without the "~" or "$" of its calls
    Range range;
};

// NAME=from..to, as "TEMPO=60..120" or "~LEVEL=.5..0.9".
[[nodiscard]] Assignment read_assignment(const std::string& text);

// Value `index` of `count` that are spread evenly from end to end, as it stands in a score.
[[nodiscard]] std::string range_value(const Range& range, std::size_t index, std::size_t count);

// How many different values there are at most; 0: as many as you like.
[[nodiscard]] std::size_t whole_numbers(const Range& range);

// Whether a text is a number as scores have it: a sign, digits and a point, no exponent.
[[nodiscard]] bool is_plain_number(const std::string& text);

}  // namespace vorn::kit
