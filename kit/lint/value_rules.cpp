#include <algorithm>
#include <bit>
#include <cstdlib>
#include <numeric>

#include "blocks/command_codes.h"
#include "input/characters.h"
#include "kit/lint/rules.h"

// Values that stand side by side without a blank and are read as several, where one
// was meant:
//
//     bb4      b, and b4          0,5      0, and 5
//     60-62    60, and -62        1/2      1, and 2, also under "rh"
//     db4      the input type of decibels, and 4

namespace vorn::kit::rules {

namespace {

bool are_adjacent(const Item& a, const Item& b) {
    return a.end == b.begin && a.in_generator == b.in_generator;
}

bool may_stand_in_word(const Item& item) {
    return item.kind == ItemKind::VALUE || item.kind == ItemKind::COMMA || item.kind == ItemKind::SLASH;
}

// The longest rows of such items without anything between them.
template <typename Predicate, typename Visit>
void for_each_row(const Statement& statement, Predicate belongs, Visit visit) {
    const std::vector<Item>& items = statement.items;
    for (std::size_t first = 0; first < items.size();) {
        std::size_t end = first;
        while (end < items.size() && belongs(items[end]) &&
               (end == first || are_adjacent(items[end - 1], items[end])))
            ++end;
        if (end > first) visit(Items(items).subspan(first, end - first));
        first = end > first ? end : first + 1;
    }
}

Diagnostic place_row(const Statement& statement, Items row, const Findings& findings) {
    return findings.at(statement.begin_of(row.front()), statement.last_of(row.back()));
}

// --- flats ---

bool is_note(const Item& item) { return item.kind == ItemKind::VALUE && item.code == CODE_NO; }

// "e", of which more than the letter would say what it is.
bool is_bare_letter(const std::string& name) { return name.size() == 1 && to_lower(name[0]) != 'r'; }

// "b" or "b4"
bool is_flat_mark(const std::string& name) {
    if (name[0] != 'b') return false;
    for (const char c : name.substr(1)) {
        if (!is_digit(c)) return false;
    }
    return true;
}

// The number of notes from `first` on that make one flat note: "e" "b4" or "e" "b" "b4"; 0: none.
std::size_t flat_length(const Statement& statement, Items row, std::size_t first) {
    if (!is_bare_letter(statement.text(row[first]))) return 0;
    std::size_t length = 1;
    for (; length <= 2 && first + length < row.size(); ++length) {
        const std::string mark = statement.text(row[first + length]);
        if (!is_flat_mark(mark)) break;
        if (mark.size() > 1) return length + 1;
    }
    return length > 1 ? length : 0;
}

// A row of nothing but flats, each of them by itself; empty when it is something else.
std::vector<Items> flats_of(const Statement& statement, Items row) {
    std::vector<Items> flats;
    for (std::size_t first = 0; first < row.size();) {
        const std::size_t length = flat_length(statement, row, first);
        if (length == 0) return {};
        flats.push_back(row.subspan(first, length));
        first += length;
    }
    return flats;
}

// "eb4" as "ef4"
std::string spelt_with_f(std::string name) {
    std::replace(name.begin() + 1, name.end(), 'b', 'f');
    return name;
}

std::string names_in_words(const Statement& statement, Items flat) {
    std::string words;
    for (const Item& item : flat) {
        if (!words.empty()) words += &item == &flat.back() ? " and " : ", ";
        words += statement.text(item);
    }
    return words;
}

void add_flat(const Statement& statement, Items flat, Findings& findings) {
    Diagnostic diagnostic = place_row(statement, flat, findings);
    const std::string name = statement.text(flat);
    const std::string cured = spelt_with_f(name);
    diagnostic.text = "\"" + name + "\" is read as " + std::to_string(flat.size()) + " notes, " +
                      names_in_words(statement, flat) + ".";
    diagnostic.advice.push_back("A flat is written with \"f\": " + cured + ".");
    if (diagnostic.through.empty()) diagnostic.edits.push_back({diagnostic.span, cured});
    findings.add(std::move(diagnostic));
}

// "db4" among note names: a "db" with a digit right behind it, or with nothing.
bool is_flat_d(const Statement& statement, std::size_t at) {
    const std::vector<Item>& items = statement.items;
    if (at + 1 == items.size()) return true;
    const Item& next = items[at + 1];
    return are_adjacent(items[at], next) && next.kind == ItemKind::VALUE && next.end == next.begin + 1;
}

void add_flat_d(const Statement& statement, std::size_t at, Findings& findings) {
    const bool has_octave = at + 1 < statement.items.size();
    const Items flat = Items(statement.items).subspan(at, has_octave ? 2 : 1);
    Diagnostic diagnostic = place_row(statement, flat, findings);
    const std::string cured = spelt_with_f(statement.text(flat));
    diagnostic.text = "\"" + statement.text(flat) + "\" is read as the input type of decibels" +
                      (has_octave ? ", and a value." : ".");
    diagnostic.advice.push_back("A flat is written with \"f\": " + cured + ".");
    if (diagnostic.through.empty()) diagnostic.edits.push_back({diagnostic.span, cured});
    findings.add(std::move(diagnostic));
}

void find_flat_d(const Statement& statement, Findings& findings) {
    int type = CODE_RE;
    for (std::size_t at = 0; at < statement.items.size(); ++at) {
        const Item& item = statement.items[at];
        if (item.kind != ItemKind::INPUT_TYPE) continue;
        if (item.code == CODE_DB && type == CODE_NO && is_flat_d(statement, at)) {
            add_flat_d(statement, at, findings);
        }
        type = item.code;
    }
}

// --- numbers ---

bool is_number_type(int code) { return code == CODE_RE || code == CODE_IN || code == CODE_DB; }

bool is_whole_number(const std::string& text) {
    for (const char c : text) {
        if (!is_digit(c)) return false;
    }
    return !text.empty();
}

// Two whole numbers with `mark` between them and nothing else, of any type.
bool is_written_pair(const Statement& statement, Items row, ItemKind mark) {
    return row.size() == 3 && row[0].kind == ItemKind::VALUE && row[1].kind == mark &&
           row[2].kind == ItemKind::VALUE && is_whole_number(statement.text(row[0])) &&
           is_whole_number(statement.text(row[2]));
}

bool is_pair(const Statement& statement, Items row, ItemKind mark) {
    return is_written_pair(statement, row, mark) && is_number_type(row[0].code);
}

// Digits behind a point that people write often: of halves, quarters and eighths.
bool is_common_fraction(const std::string& digits) {
    for (const char* common : {"5", "25", "75", "125", "375", "625", "875"}) {
        if (digits == common) return true;
    }
    return false;
}

bool is_comma_pair(const Statement& statement, Items row) {
    return !row[0].in_generator && is_pair(statement, row, ItemKind::COMMA);
}

// "0,5"; of other numbers only a common fraction among values that blanks part.
bool is_decimal_comma(const Statement& statement, Items row, bool blanks_part) {
    if (!is_comma_pair(statement, row)) return false;
    const std::string fraction = statement.text(row[2]);
    if (statement.text(row[0]) == "0") return fraction != "0";
    return blanks_part && is_common_fraction(fraction);
}

struct Count {
    std::size_t commas = 0;
    std::size_t values = 0;
};

// Those outside of generators.
Count count_of(const Statement& statement) {
    Count count;
    for (const Item& item : statement.items) {
        if (item.in_generator) continue;
        if (item.kind == ItemKind::COMMA) ++count.commas;
        if (item.kind == ItemKind::VALUE) ++count.values;
    }
    return count;
}

// Whether every comma between values is one of these, and the block has room for what they make.
bool are_commas_decimal(const Statement& statement, std::size_t pairs) {
    const Count count = count_of(statement);
    const bool fits = statement.full.line == 0 || count.values - pairs <= statement.field->event_count;
    return count.commas == pairs && fits;
}

// "440,5": two values of a list have as many digits mostly.
bool looks_decimal(const Statement& statement, Items row) {
    const std::string fraction = statement.text(row[2]);
    return is_common_fraction(fraction) || fraction.size() != statement.text(row[0]).size();
}

// Whether such pairs are all that the statement has: several where any looks so, or one that is no loop,
// and no list of two either.
bool are_all_decimal(const Statement& statement, const std::vector<Items>& pairs) {
    const Count count = count_of(statement);
    const bool are_all = count.commas == pairs.size() && count.values == 2 * pairs.size();
    if (!are_all || statement.has(ItemKind::GENERATOR)) return false;
    const bool any =
        std::any_of(pairs.begin(), pairs.end(), [&](Items row) { return looks_decimal(statement, row); });
    if (pairs.size() != 1) return any;
    const bool is_too_short = statement.items.size() == 3 && statement.field->event_count > 2;
    const bool may_be = any || (is_too_short && statement.items[0].value != 0);
    return may_be && !statement.has(ItemKind::LOOP_OPEN);
}

// "0,9" is 0.9 there, for who lists 0 and 9 writes a blank; 0 and 10 may yet be meant.
bool is_certain_fraction(const Statement& statement, Items row) {
    return statement.text(row[0]) == "0" && row[0].code != CODE_IN && !statement.text(row[2]).ends_with('0');
}

// Whether values stand side by side with blanks alone between them.
bool has_blanks_between_values(const Statement& statement) {
    const std::vector<Item>& items = statement.items;
    for (std::size_t n = 1; n < items.size(); ++n) {
        const bool values = items[n - 1].kind == ItemKind::VALUE && items[n].kind == ItemKind::VALUE;
        if (values && !items[n].in_generator && items[n].begin > items[n - 1].end) return true;
    }
    return false;
}

void add_decimal_comma(const Statement& statement, Items row, bool is_certain, Findings& findings) {
    Diagnostic diagnostic = place_row(statement, row, findings);
    const std::string whole = statement.text(row[0]);
    const std::string fraction = statement.text(row[2]);
    const std::string cured = whole + "." + fraction;
    diagnostic.text =
        "\"" + statement.text(row) + "\" is read as two values, " + whole + " and " + fraction + ".";
    diagnostic.advice.push_back("A fraction has a point: " + cured +
                                ". Two values are meant: put a blank behind the comma.");
    if (is_certain && diagnostic.through.empty()) diagnostic.edits.push_back({diagnostic.span, cured});
    findings.add(std::move(diagnostic));
}

std::string separation_advice(const std::string& second) {
    if (second[0] == '-')
        return "A range is drawn from by a generator, ra(T 1 [60 62]); two values have a blank between them.";
    if (second[0] == '.') return "A number has one point; two values have a blank between them.";
    return "Put a blank between two values.";
}

void add_row(const Statement& statement, Items row, Findings& findings) {
    Diagnostic diagnostic = place_row(statement, row, findings);
    diagnostic.text = "\"" + statement.text(row) + "\" is read as " + std::to_string(row.size()) +
                      " values, " + statement.text(row[0]) + " and " + statement.text(row[1]) +
                      (row.size() > 2 ? " and so on." : ".");
    diagnostic.advice.push_back(separation_advice(statement.text(row[1])));
    findings.add(std::move(diagnostic));
}

// "1/2": below 1, and of a size that fractions have.
bool is_fraction(const Statement& statement, Items row) {
    constexpr float LARGEST_DENOMINATOR = 64;
    return is_pair(statement, row, ItemKind::SLASH) && row[0].value > 0 && row[0].value < row[2].value &&
           row[2].value <= LARGEST_DENOMINATOR;
}

// --- fractions of a whole note ---

struct NoteFraction {
    int numerator = 0;
    int denominator = 0;
};

NoteFraction reduced(NoteFraction fraction) {
    const int divisor = std::gcd(fraction.numerator, fraction.denominator);
    return {fraction.numerator / divisor, fraction.denominator / divisor};
}

// "3/8" as "4.", a quarter and half of it; empty where no single note lasts as long.
std::string as_note(NoteFraction fraction) {
    const NoteFraction length = reduced(fraction);
    if (length.numerator == 1) return std::to_string(length.denominator);
    if (length.numerator == 3) return std::to_string(length.denominator / 2) + ".";
    return length.numerator == 7 ? std::to_string(length.denominator / 4) + ".." : "";
}

// "1/4" under "rh": up to a whole note, of those that there are down to a sixty-fourth.
bool is_note_fraction(const Statement& statement, Items row, NoteFraction& fraction) {
    constexpr int SMALLEST_NOTE = 64;
    constexpr std::size_t LONGEST = 5;  // "32/64"
    if (!is_written_pair(statement, row, ItemKind::SLASH) || row[0].code != CODE_RH) return false;
    if (statement.text(row).size() > LONGEST) return false;
    fraction = {std::atoi(statement.text(row[0]).c_str()), std::atoi(statement.text(row[2]).c_str())};
    const int denominator = fraction.denominator;
    const bool is_note = denominator > 1 && denominator <= SMALLEST_NOTE &&
                         std::has_single_bit(static_cast<unsigned>(denominator));
    return is_note && fraction.numerator > 0 && fraction.numerator <= denominator;
}

std::string note_advice(NoteFraction fraction) {
    constexpr double BEATS_OF_WHOLE_NOTE = 4;
    if (const std::string note = as_note(fraction); !note.empty()) {
        return "Under \"rh\" a quarter is 4 and an eighth 8: write " + note + ".";
    }
    return "Under \"rh\" an eighth is 8; for this one write beats, re " +
           number_text(BEATS_OF_WHOLE_NOTE * fraction.numerator / fraction.denominator) + ".";
}

void add_fraction(const Statement& statement, Items row, const std::string& advice, Findings& findings) {
    Diagnostic diagnostic = place_row(statement, row, findings);
    diagnostic.text = "\"" + statement.text(row) + "\" is read as two values, " + statement.text(row[0]) +
                      " and " + statement.text(row[2]) + "; \"/\" repeats a value.";
    diagnostic.advice.push_back(advice);
    findings.add(std::move(diagnostic));
}

void find_fraction(const Statement& statement, Items row, Findings& findings) {
    NoteFraction fraction;
    if (is_fraction(statement, row)) {
        const double value = double{row[0].value} / double{row[2].value};
        add_fraction(statement, row, "Write the fraction as a number, " + number_text(value) + ".", findings);
    } else if (is_note_fraction(statement, row, fraction)) {
        add_fraction(statement, row, note_advice(fraction), findings);
    }
}

}  // namespace

// Whoever runs other names together, too, knows what that means.
void flats_spelt_with_b(const Statement& statement, Findings& findings) {
    std::vector<Items> all;
    bool others = false;
    for_each_row(statement, is_note, [&](Items row) {
        if (row.size() < 2) return;
        const std::vector<Items> flats = flats_of(statement, row);
        others = others || flats.empty();
        all.insert(all.end(), flats.begin(), flats.end());
    });
    find_flat_d(statement, findings);
    if (others) return;
    for (const Items flat : all) add_flat(statement, flat, findings);
}

void decimal_comma(const Statement& statement, Findings& findings) {
    const bool blanks_part = has_blanks_between_values(statement);
    std::vector<Items> found;
    std::vector<Items> pairs;
    for_each_row(statement, may_stand_in_word, [&](Items row) {
        if (is_decimal_comma(statement, row, blanks_part)) found.push_back(row);
        if (is_comma_pair(statement, row)) pairs.push_back(row);
    });
    if (are_all_decimal(statement, pairs)) found = pairs;
    const bool is_certain = are_commas_decimal(statement, found.size());
    for (const Items row : found) {
        add_decimal_comma(statement, row, is_certain && is_certain_fraction(statement, row), findings);
    }
}

void values_run_together(const Statement& statement, Findings& findings) {
    const auto is_numeric = [](const Item& item) {
        return item.kind == ItemKind::VALUE && item.code != CODE_NO;
    };
    for_each_row(statement, is_numeric, [&](Items row) {
        if (row.size() >= 2) add_row(statement, row, findings);
    });
    for_each_row(statement, may_stand_in_word, [&](Items row) { find_fraction(statement, row, findings); });
}

}  // namespace vorn::kit::rules
