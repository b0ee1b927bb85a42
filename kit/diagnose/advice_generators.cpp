#include <algorithm>
#include <cmath>
#include <cstdio>

#include "blocks/commands.h"
#include "input/characters.h"
#include "kit/diagnose/adviser.h"
#include "kit/diagnose/words.h"

// Generators, and parentheses of all kinds. Of a generator's text only so much is
// taken apart as the advice needs: what stands alone and what stands in brackets.
//
//     ra(T .5 60 .5 [64 72])      time "T", items ".5" "60" ".5" "[64 72]"

namespace vorn::kit {

namespace {

using Items = std::vector<std::string_view>;

// What stands behind the "(" up to the end of the text.
Items items_of(std::string_view text) {
    Items items;
    for (std::size_t at = 0; at < text.size();) {
        const char c = text[at];
        if (is_space(c) || c == ',' || c == '/' || c == ')') {
            ++at;
            continue;
        }
        std::size_t end = c == '[' ? text.find(']', at) : text.find_first_of(" \t\r\n,/)[", at + 1);
        end = std::min(c == '[' && end != std::string_view::npos ? end + 1 : end, text.size());
        items.push_back(text.substr(at, end - at));
        at = end;
    }
    return items;
}

// How many items a weight is followed by; letters of curves and marks not counted.
int values_behind_weight(std::string_view generator) {
    struct Row {
        std::string_view name;
        int values;
    };
    constexpr Row ROWS[] = {{"mo", 2}, {"ms", 2}, {"rw", 3}};
    for (const Row& row : ROWS) {
        if (row.name == generator) return row.values;
    }
    return 1;
}

bool is_mark(std::string_view item) { return item == "*" || (item.size() == 1 && is_letter(item[0])); }

struct Weights {
    std::vector<double> values;
    bool are_read = false;  // false: some item is not what it should be
};

Weights weights_of(std::string_view generator, const Items& items) {
    Weights weights;
    const int behind = values_behind_weight(generator);
    for (std::size_t at = 1; at < items.size();) {
        const std::optional<double> weight = number_in(items[at]);
        if (!weight) return weights;
        weights.values.push_back(*weight);
        ++at;
        if (at < items.size() && is_mark(items[at])) ++at;
        at += static_cast<std::size_t>(behind);
    }
    weights.are_read = !weights.values.empty();
    return weights;
}

std::string short_number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", value);
    return text;
}

bool advise_weight_sum(Adviser& adviser) {
    std::string call(adviser.word());
    blank_comments(call);
    const std::size_t open = call.find('(');
    if (open == std::string::npos || open < 2) return false;
    const std::string name = {to_lower(call[open - 2]), to_lower(call[open - 1])};
    const Weights weights = weights_of(name, items_of(std::string_view(call).substr(open + 1)));
    if (!weights.are_read) return false;
    double sum = 0;
    for (const double weight : weights.values) sum += weight;
    const std::string total = "the weights add up to " + short_number(sum);
    if (std::fabs(sum - 1) < 1e-6) return false;
    if (sum > 1.5 && weights.values.front() > 1) {
        return adviser.help(total + "; they are fractions of 1, so 50 per cent is .5");
    }
    if (sum > 1) return adviser.help(total + ", which is " + short_number(sum - 1) + " too much");
    return adviser.help(total + "; " + short_number(1 - sum) + " is missing");
}

// --- parentheses ---

bool advise_open_parenthesis(Adviser& adviser) {
    const auto open = open_parenthesis(adviser.site);
    const auto missing = missing_parenthesis(adviser.site);
    if (!open || !missing) return false;
    adviser.note("the parenthesis was opened here", {*open, *open + 1});
    adviser.edit({*missing, *missing}, ")");
    return adviser.help("write `)` behind the last value");
}

bool advise_whole_number(Adviser& adviser) {
    const bool has_point = adviser.word().find('.') != std::string_view::npos;
    const auto open = open_parenthesis(adviser.site);
    if (!has_point || !open || *open < 2) return false;
    const std::string name(adviser.site.of({*open - 2, *open}));
    if (name != "rs" && name != "sr") return false;
    return adviser.help("`" + name + "` takes a whole number");
}

// Whether a ")" stands further on in the line, before another "(".
bool closes_further_on(const Site& site) {
    const std::string_view rest = site.of({site.at, line_around(site.text, site.at).end});
    const std::size_t found = rest.find_first_of("(;)");
    return found < rest.size() && rest[found] == ')';
}

bool advise_per_cent(Adviser& adviser) {
    if (adviser.site[adviser.site.at] != '%') return false;
    return adviser.help("fractions of 1 are written: .5 for 50%");
}

bool advise_closing(Adviser& adviser) {
    const Site& site = adviser.site;
    const auto open = open_parenthesis(site);
    if (!open) return false;
    adviser.note("the parenthesis was opened here", {*open, *open + 1});
    if (closes_further_on(site)) {
        adviser.point_at(word_or_character(site.text, site.at));
        return adviser.help("leave this out, or write `)` before it");
    }
    const std::size_t behind = behind_visible(site.text, site.at);
    adviser.point_at({behind, behind});
    adviser.edit({behind, behind}, ")");
    return adviser.help("write `)` behind `" + std::string(site.of(word_at(site.text, behind - 1))) + "`");
}

// --- the beginning of a generator ---

// The items of the generator up to the place.
Items items_before(const Site& site) {
    const auto open = open_parenthesis(site);
    if (!open) return {};
    return items_of(site.of({*open + 1, std::max(site.at, *open + 1)}));
}

// "ra(T/2 1 [60 72])"
bool advise_divided_time(Adviser& adviser) {
    const auto open = open_parenthesis(adviser.site);
    if (!open || adviser.site.text.substr(*open, 3) != "(T/") return false;
    return adviser.help("a time is multiplied, not divided: `T*.5` is half of the block");
}

bool advise_missing_weight(Adviser& adviser) {
    const Items items = items_before(adviser.site);
    if (items.size() != 1) return false;
    if (adviser.site.at > 0 && is_digit(adviser.site[adviser.site.at - 1])) {
        return adviser.help("a time has no unit: a number of beats, minus a number of events, or `T`");
    }
    if (items[0] == "T") {
        adviser.edit({adviser.site.at, adviser.site.at}, "1 ");
        return adviser.help("each part begins with its weight, also a single one: `ra(T 1 [60 72])`");
    }
    return adviser.help("first comes the time, then the weight: `ra(T 1 [60 72])`");
}

bool advise_time(Adviser& adviser) {
    if (adviser.word() == "t") {
        adviser.edit(adviser.mark, "T");
        return adviser.help("write the `T` of the whole block in upper case");
    }
    return adviser.help("first comes the time: a number of beats, minus a number of events, or `T`");
}

bool advise_generator_name(Adviser& adviser) {
    const Stretch word = word_at(adviser.site.text, adviser.mark.begin);
    const std::string_view name = adviser.site.of(word);
    const bool is_called = adviser.site[next_visible(adviser.site.text, word.end)] == '(';
    if (!is_called || name.size() <= 2) {
        return adviser.help("parentheses follow a generator directly: `ra(T 1 [60 72])`");
    }
    std::vector<std::string> names = {std::string(command_called(name))};
    if (names[0].empty()) names = {std::string(name.substr(0, 2))};
    return adviser.help("names have two letters; did you mean " + either(names) + "?");
}

// --- values ---

// "[60 70)": the brackets hold further values, and nothing closes them.
bool advise_open_bracket(Adviser& adviser) {
    const Site& site = adviser.site;
    const std::size_t open = site.text.substr(0, site.at).rfind('[');
    const std::size_t next = site.text.find_first_of("])[;\n", site.at);
    if (open > site.at || site[next] == ']') return false;
    const std::size_t behind = behind_visible(site.text, std::min(next, site.text.size()));
    adviser.note("the bracket was opened here", {open, open + 1});
    adviser.point_at({behind, behind});
    adviser.edit({behind, behind}, "]");
    return adviser.help("write `]` behind the last value");
}

// In "[b4 c5]" the "b" was a distribution, in "mo(T 1 e4 c5)" the "e" a curve.
bool advise_letter_before_note(Adviser& adviser, const char* kind) {
    const std::string word(adviser.word());
    const bool is_note = word.size() >= 2 && word.size() <= 4 && is_letter(word[0]) && is_digit(word.back());
    if (!is_note || adviser.site.at <= adviser.mark.begin) return false;
    adviser.edit({adviser.mark.begin, adviser.mark.begin}, "f ");
    return adviser.help("the `" + word.substr(0, 1) + "` is read as " + kind +
                        "; write the letter `f` before the note: `f " + word + "`");
}

bool advise_distribution(Adviser& adviser) { return advise_letter_before_note(adviser, "a distribution"); }

// "c4 c8]" has a bracket that nothing opens.
bool advise_curve(Adviser& adviser) {
    const std::size_t sign = adviser.site.text.find_first_of("[])\n", adviser.mark.end);
    if (adviser.site[sign] != ']') return advise_letter_before_note(adviser, "a curve");
    adviser.point_at({sign, sign + 1});
    return adviser.help("a `[` is missing");
}

bool advise_missing_value(Adviser& adviser) {
    const Items items = items_before(adviser.site);
    const auto open = open_parenthesis(adviser.site);
    if (!open || *open < 2 || items.size() < 2) return false;
    const std::string name(adviser.site.of({*open - 2, *open}));
    const std::string_view word = adviser.word();
    if (name[0] == 'm' && word.size() > 1 && is_letter(word[0]) && !is_digit(word.back())) {
        return adviser.help(
            "a curve is one letter, `f` a straight line, `e` slow at first: `mo(T 1 e 60 72)`");
    }
    if (name == "mo") {
        return adviser.help("a movement goes from one value to another, without brackets: `mo(T 1 60 72)`");
    }
    if (name == "ms") return adviser.help("two sets are needed: `ms(T 1 [60 62] [72 74])`");
    if (name == "se" || name == "ra" || name == "s2") {
        return adviser.help("behind its weight each part has one value, or several in brackets: `" + name +
                            "(T 1 [60 62])`");
    }
    return false;
}

bool advise_walk(Adviser& adviser) {
    const auto open = open_parenthesis(adviser.site);
    if (open && *open >= 2 && adviser.site.of({*open - 2, *open}) == "ho") {
        return adviser.help("write the time and the value: `ho(T 60)`");
    }
    return adviser.help("a walk has a range, a window and a start: `rw(T 1 [60 72] .2 66)`");
}

bool advise_own_pfield(Adviser& adviser) {
    const auto statement = statement_around(adviser.site);
    if (!statement || adviser.site.of(*statement) != adviser.word()) return false;
    return adviser.help("an equation cannot use the p-field that it makes, only those before it");
}

constexpr AdviceRow ROWS[] = {
    {"E57", advise_own_pfield},
    {"E42", advise_weight_sum},
    {"E38", advise_open_parenthesis},
    {"E151", advise_open_parenthesis},
    {"E152", advise_open_parenthesis},
    {"E153", advise_open_parenthesis},
    {"E48", advise_open_parenthesis},
    {"E61", advise_open_parenthesis},
    {"E41", advise_open_parenthesis},
    {"E38", advise_divided_time},
    {"E38", advise_missing_weight},
    {"E19", advise_whole_number},
    {"E19", advise_per_cent},
    {"E19", advise_closing},
    {"E40", advise_time},
    {"E36", advise_generator_name},
    {"E39", advise_open_bracket},
    {"E39", advise_distribution},
    {"E41", advise_curve},
    {"E41", advise_per_cent},
    {"E41", advise_missing_value},
    {"E50", advise_walk},
    {"E52", advise_walk},
};

}  // namespace

AdviceTable generator_advice() { return ROWS; }

}  // namespace vorn::kit
