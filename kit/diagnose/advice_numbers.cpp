#include <algorithm>
#include <cmath>

#include "input/characters.h"
#include "kit/diagnose/adviser.h"
#include "kit/diagnose/words.h"
#include "kit/language/words.h"
#include "kit/run/decimal_text.h"

// Numbers as other languages write them, "1e3" and "0,9", wherever one value stands
// for itself: in headers, in parentheses and behind "#const". A comma parts values, so
// reading goes on and stops somewhere behind it:
//
//     i1 = 4 0 0,9 {          p4 mo(T 1 0,5 2)
//              ^ meant                      ^ stopped

namespace vorn::kit {

namespace {

constexpr std::size_t LONGEST_RANGE = 512;  // bytes that are looked through

// --- exponents ---

bool has_exponent(std::string_view word) {
    return number_in(word).has_value() && word.find_first_of("eE") != std::string_view::npos;
}

bool tell_exponent(Adviser& adviser, Stretch where) {
    const double value = *number_in(adviser.site.of(where));
    const double size = std::fabs(value);
    adviser.point_at(where);
    if (!(size < 1e15) || (size < 1e-7 && size > 0)) {
        return adviser.help("numbers have no exponent; write all digits");
    }
    adviser.edit(where, shortest_decimal_text(value));
    return adviser.help("numbers have no exponent; write " + shortest_decimal_text(value));
}

// The first word with an exponent in what is marked, which may be a whole call.
bool advise_exponent(Adviser& adviser) {
    const std::size_t end = std::min(adviser.mark.end, adviser.mark.begin + LONGEST_RANGE);
    for (std::size_t at = adviser.mark.begin; at < end;) {
        const Stretch word = word_at(adviser.site.text, at);
        if (word.end > at && has_exponent(adviser.site.of(word))) return tell_exponent(adviser, word);
        at = std::max(word.end, at + 1);
    }
    return false;
}

// --- decimal commas ---

struct CommaNumber {
    Stretch where;
    std::string whole;
    std::string fraction;
};

std::size_t behind_digits(std::string_view text, std::size_t at) {
    while (at < text.size() && is_digit(text[at])) ++at;
    return at;
}

bool touches_number(char c) { return is_word_char(c) || c == ','; }

// Digits, a comma and digits, with nothing else that belongs to them.
std::vector<CommaNumber> comma_numbers(const Site& site, Stretch range) {
    std::vector<CommaNumber> found;
    for (std::size_t at = range.begin; at < range.end; ++at) {
        if (!is_digit(site[at])) continue;
        const std::size_t comma = behind_digits(site.text, at);
        const std::size_t end = site[comma] == ',' ? behind_digits(site.text, comma + 1) : comma;
        const char before = at > 0 ? site[at - 1] : ' ';
        const bool is_alone =
            !(touches_number(before) && before != '-' && before != '+') && !touches_number(site[end]);
        if (end > comma + 1 && is_alone) {
            found.push_back(
                {{at, end}, std::string(site.of({at, comma})), std::string(site.of({comma + 1, end}))});
        }
        at = std::max(at, end - 1);
    }
    return found;
}

// Where the number may stand that made reading stop, and whether values stand there
// one for one, so that none of them can be two.
struct Range {
    Stretch where;
    bool is_single = false;
};

bool line_begins(const Adviser& adviser, Stretch line, std::string_view word) {
    const std::size_t first = next_visible(adviser.site.text, line.begin);
    return adviser.site.text.substr(first, word.size()) == word;
}

bool is_header_line(const Adviser& adviser, Stretch line) {
    const std::size_t first = next_visible(adviser.site.text, line.begin);
    return to_lower(adviser.site[first]) == 'i' && is_digit(adviser.site[first + 1]);
}

// "rd(" and the like take one value.
bool is_setting(const Site& site, std::size_t open) {
    if (open < 2) return false;
    const auto names = command_names(WordKind::SETTING);
    return std::find(names.begin(), names.end(), std::string(site.of({open - 2, open}))) != names.end();
}

// Of the call that is marked, or that the place lies in.
std::optional<std::size_t> opening(const Adviser& adviser) {
    const std::size_t marked = adviser.word().find('(');
    if (marked == std::string_view::npos) return open_parenthesis(adviser.site);
    return adviser.mark.begin + marked;
}

// "te(0 8,5 60 120": blanks part the four terms of a change.
bool is_whole_change(const Site& site, Stretch range) {
    const bool is_tempo = range.begin >= 2 && site.of({range.begin - 2, range.begin}) == "te";
    int terms = 0;
    for (std::size_t at = next_visible(site.text, range.begin + 1); at < range.end; ++terms) {
        while (at < range.end && !is_space(site[at])) ++at;
        at = next_visible(site.text, at);
    }
    return is_tempo && terms == 4;
}

std::optional<Range> range_of(const Adviser& adviser) {
    const Site& site = adviser.site;
    const Stretch line = line_around(site.text, adviser.mark.begin);
    const std::size_t end =
        std::min({line.end, adviser.mark.end + LONGEST_RANGE, site.text.find(';', line.begin)});
    const auto open = opening(adviser);
    if (open && *open < end) {
        const std::size_t close = site.text.substr(0, end).find(')', std::max(*open, adviser.mark.begin));
        const Stretch range = {*open, std::min(close, end)};
        return Range{range, is_setting(site, *open) || is_whole_change(site, range)};
    }
    const bool is_single = is_header_line(adviser, line) || line_begins(adviser, line, "#const");
    if (!is_single || end - line.begin > LONGEST_RANGE) return std::nullopt;
    return Range{{line.begin, end}, true};
}

// "0,5" in any case; "60,5" and "8,25" look so, "60,62" does not.
bool is_likely(const CommaNumber& number, const Range& range) {
    const bool is_common = number.fraction == "5" || number.fraction == "25" || number.fraction == "75";
    return range.is_single || number.whole == "0" || is_common ||
           number.fraction.size() < number.whole.size();
}

bool is_certain(const CommaNumber& number, const Range& range) {
    return range.is_single || number.whole == "0";
}

bool tell_comma(Adviser& adviser, const CommaNumber& number) {
    adviser.point_at(number.where);
    return adviser.help("decimals are written with a point: " + number.whole + "." + number.fraction +
                        ", not " + number.whole + "," + number.fraction);
}

// The last one before the place where reading stopped, and those beside it.
bool advise_comma(Adviser& adviser) {
    if (!adviser.is_error()) return false;
    const std::optional<Range> range = range_of(adviser);
    if (!range) return false;
    const std::vector<CommaNumber> numbers = comma_numbers(adviser.site, range->where);
    const auto behind = std::find_if(numbers.begin(), numbers.end(), [&](const CommaNumber& number) {
        return number.where.begin > adviser.mark.end;
    });
    if (behind == numbers.begin() || !is_likely(*std::prev(behind), *range)) return false;
    for (const CommaNumber& number : numbers) {
        if (!is_certain(*std::prev(behind), *range) || !is_certain(number, *range)) continue;
        adviser.edit(number.where, number.whole + "." + number.fraction);
    }
    return tell_comma(adviser, *std::prev(behind));
}

// "p2 0,5", which begins with an interval of 0.
bool advise_interval(Adviser& adviser) {
    const Site& site = adviser.site;
    for (const CommaNumber& number : comma_numbers(site, line_around(site.text, adviser.mark.begin))) {
        if (number.where.begin != adviser.mark.begin) continue;
        adviser.edit(number.where, number.whole + "." + number.fraction);
        return tell_comma(adviser, number);
    }
    return false;
}

constexpr AdviceRow ROWS[] = {{"", advise_exponent}, {"", advise_comma}, {"E54", advise_interval}};

}  // namespace

AdviceTable number_advice() { return ROWS; }

}  // namespace vorn::kit
