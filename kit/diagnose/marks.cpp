#include "kit/diagnose/marks.h"

#include <algorithm>

// Reading stops where it can go no further; what is meant is mostly the word there,
// or the one it has just passed. Where it is something else a row says what:
//
//     p4 ra(T .5 60 .4 72)       reading stopped behind the ")"
//        ^^^^^^^^^^^^^^^^^       the generator is meant, for its weights

namespace vorn::kit {

namespace {

Stretch call_or_word(const Site& site) {
    return call_before(site).value_or(word_touching(site.text, site.at));
}

Stretch here(const Site& site) { return word_or_character(site.text, site.at); }

// The brackets that end here or one character before.
Stretch brackets(const Site& site) {
    const std::size_t close = site[site.at] == ']' ? site.at : behind_visible(site.text, site.at) - 1;
    if (site[close] != ']') return word_touching(site.text, site.at);
    const std::size_t open = site.text.substr(0, close).rfind('[');
    return open == std::string_view::npos ? Stretch{close, close + 1} : Stretch{open, close + 1};
}

// The word that goes on here, or the one before, of which comments are none.
Stretch last_word(const Site& site) {
    if (is_word_char(site[site.at]) && site.at > 0 && is_word_char(site[site.at - 1])) {
        return word_at(site.text, site.at);
    }
    const CodeBefore code = code_before(site);
    const std::size_t behind = code.offset + behind_visible(code.text, code.text.size());
    return behind > 0 ? word_touching(site.text, behind - 1) : Stretch{site.at, site.at};
}

// Where the ")" is missing, if what follows belongs to something else.
Stretch end_of_parentheses(const Site& site) {
    if (const auto missing = missing_parenthesis(site)) return {*missing, *missing};
    return site[site.at] == ';' ? last_word(site) : word_touching(site.text, site.at);
}

// "te(" up to here and on to its ")".
Stretch enclosing_call(const Site& site) {
    if (missing_parenthesis(site)) return end_of_parentheses(site);
    const auto open = open_parenthesis(site);
    if (!open || line_around(site.text, site.at).begin > *open) return word_touching(site.text, site.at);
    const Stretch name = *open > 0 ? word_at(site.text, *open - 1) : Stretch{*open, *open};
    const bool closes = site[site.at] == ')';
    return {name.begin, closes ? site.at + 1 : std::max(site.at, *open + 1)};
}

// Behind the last character that can be seen.
Stretch end_of_text(const Site& site) {
    const std::size_t behind = behind_visible(site.text, site.at);
    return {behind, behind};
}

// "$NAME(...)" before this place.
Stretch macro_call(const Site& site) {
    const std::size_t begin = site.text.substr(0, site.at).rfind('$');
    if (begin == std::string_view::npos) return word_touching(site.text, site.at);
    return {begin, std::max(behind_visible(site.text, site.at), begin + 1)};
}

Stretch directive(const Site& site) {
    const Stretch line = line_around(site.text, site.at);
    const std::size_t open = site.text.substr(0, line.end).find('|', site.at);
    const std::size_t close = open == std::string_view::npos ? open : site.text.find('|', open + 1);
    return {site.at, close < line.end ? close + 1 : behind_visible(site.text, line.end)};
}

Stretch statement(const Site& site) {
    return statement_around(site).value_or(word_touching(site.text, site.at));
}

// The "<" that was left open.
Stretch loop(const Site& site) {
    const CodeBefore code = code_before(site);
    const std::size_t open = code.text.rfind('<');
    if (open == std::string::npos) return word_touching(site.text, site.at);
    return {code.offset + open, code.offset + open + 1};
}

// "$NAME" or "~NAME" of the name that the message quotes; in a condition reading stopped before it.
Stretch named_call(const Site& site) {
    const Stretch touching = word_touching(site.text, site.at);
    const std::string& text = site.message.text;
    const std::size_t open = text.find('"');
    const std::size_t close = open == std::string::npos ? open : text.find('"', open + 1);
    if (close == std::string::npos || site[touching.begin] != '#') return touching;
    const std::string_view line = site.of({site.at, line_around(site.text, site.at).end});
    for (const char* sign : {"$", "~"}) {
        const std::size_t call = line.find(sign + text.substr(open + 1, close - open - 1));
        if (call != std::string_view::npos) return {site.at + call, site.at + call + close - open};
    }
    return touching;
}

struct Row {
    std::string_view code;
    Stretch (*mark)(const Site& site);
};

constexpr Row ROWS[] = {
    {"E3", end_of_text},
    {"E5", end_of_text},
    {"E8", end_of_text},
    {"E25", end_of_text},
    {"E28", call_or_word},
    {"E30", last_word},
    {"E34", here},
    {"E38", end_of_parentheses},
    {"E41", end_of_parentheses},
    {"E42", call_or_word},
    {"E46", call_or_word},
    {"E48", end_of_parentheses},
    {"E58", brackets},
    {"E61", end_of_parentheses},
    {"E73", here},
    {"E82", here},
    {"E85", macro_call},
    {"E86", macro_call},
    {"E89", macro_call},
    {"E117", end_of_text},
    {"E119", end_of_text},
    {"E150", enclosing_call},
    {"E151", enclosing_call},
    {"E152", enclosing_call},
    {"E153", enclosing_call},
    {"E155", enclosing_call},
    {"E156", enclosing_call},
    {"E157", enclosing_call},
    {"E158", enclosing_call},
    {"E159", enclosing_call},
    {"Ebar", directive},
    {"Eblank", statement},
    {"Econstant", named_call},
    {"Einclude", directive},
    {"Emacro", named_call},
    {"Enames", directive},
    {"Enesting", directive},
    {"Epath", directive},
    {"W12", last_word},
    {"W15", loop},
};

}  // namespace

Stretch mark_of(std::string_view code, const Site& site) {
    for (const Row& row : ROWS) {
        if (row.code == code) return row.mark(site);
    }
    return word_touching(site.text, site.at);
}

}  // namespace vorn::kit
