#include "kit/vary/range.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "kit/run/decimal_text.h"
#include "kit/run/logarithms.h"

// Values between the ends get two digits more than it takes to tell neighbours apart,
// and lose the noughts behind them: 0..1 in five steps is 0, 0.25, 0.5, 0.75, 1.

namespace vorn::kit {

namespace {

constexpr std::size_t MAX_DECIMALS = 9;
constexpr double LARGEST = 1e9;

std::size_t decimals_of(const std::string& number) {
    const std::size_t point = number.find('.');
    return point == std::string::npos ? 0 : number.size() - point - 1;
}

bool read_end(const std::string& text, double& value) {
    if (!is_plain_number(text)) return false;
    value = std::strtod(text.c_str(), nullptr);
    return std::fabs(value) <= LARGEST;
}

std::size_t needed_decimals(const Range& range, std::size_t count) {
    const double step = count > 1 ? std::fabs(range.to - range.from) / static_cast<double>(count - 1) : 0;
    if (step <= 0 || range.is_whole) return range.decimals;
    const auto needed = static_cast<std::size_t>(std::max(0, 2 - decimal_exponent(step)));
    return std::clamp(needed, std::min(range.decimals, MAX_DECIMALS), MAX_DECIMALS);
}

std::string without_noughts(std::string number) {
    if (number.find('.') != std::string::npos) {
        number.erase(number.find_last_not_of('0') + 1);
        if (number.back() == '.') number.pop_back();
    }
    return number == "-0" ? "0" : number;
}

}  // namespace

bool is_plain_number(const std::string& text) {
    const std::size_t sign = text.substr(0, 1) == "-" || text.substr(0, 1) == "+" ? 1 : 0;
    const bool has_digit = text.find_first_of("0123456789") != std::string::npos;
    const bool is_plain = text.find_first_not_of("0123456789.", sign) == std::string::npos;
    return has_digit && is_plain && std::count(text.begin(), text.end(), '.') <= 1;
}

Assignment read_assignment(const std::string& text) {
    Assignment assignment;
    const std::size_t equals = text.find('=');
    const std::size_t dots = text.find("..", equals == std::string::npos ? text.size() : equals);
    if (equals == std::string::npos || dots == std::string::npos) {
        assignment.error = "\"" + text + "\": write NAME=from..to, as TEMPO=60..120";
        return assignment;
    }
    const bool has_sign = text[0] == '~' || text[0] == '$';
    assignment.name = text.substr(has_sign ? 1 : 0, equals - (has_sign ? 1 : 0));
    const std::string from = text.substr(equals + 1, dots - equals - 1);
    const std::string to = text.substr(dots + 2);
    Range& range = assignment.range;
    if (assignment.name.empty()) assignment.error = "\"" + text + "\": the name before \"=\" is missing";
    for (const auto& [end, value] : {std::pair{&from, &range.from}, std::pair{&to, &range.to}}) {
        if (assignment.error.empty() && !read_end(*end, *value)) {
            assignment.error = "\"" + *end + "\" is no number to vary from or to: write digits, as 0.5";
        }
    }
    range.decimals = std::max(decimals_of(from), decimals_of(to));
    range.is_whole = from.find('.') == std::string::npos && to.find('.') == std::string::npos;
    return assignment;
}

std::string range_value(const Range& range, std::size_t index, std::size_t count) {
    const double part = count > 1 ? static_cast<double>(index) / static_cast<double>(count - 1) : 0;
    const double value = range.from + (range.to - range.from) * part;
    return without_noughts(decimal_text(range.is_whole ? std::round(value) : value,
                                        static_cast<int>(needed_decimals(range, count))));
}

std::size_t whole_numbers(const Range& range) {
    return range.is_whole ? static_cast<std::size_t>(std::fabs(range.to - range.from)) + 1 : 0;
}

}  // namespace vorn::kit
