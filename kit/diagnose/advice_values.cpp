#include <algorithm>

#include "blocks/commands.h"
#include "input/characters.h"
#include "kit/diagnose/adviser.h"
#include "kit/diagnose/note_names.h"
#include "kit/diagnose/words.h"
#include "kit/language/words.h"

// Words among the values of a statement that are none.

namespace vorn::kit {

namespace {

bool contains(const std::vector<std::string>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool is_called(const Adviser& adviser) {
    return adviser.site[next_visible(adviser.site.text, adviser.mark.end)] == '(';
}

// The last input type that the statement names, and where; empty where it names none.
Stretch last_type_place(const Site& site) {
    const CodeBefore code = code_before(site);
    const auto statement = statement_around(site);
    const std::size_t first = statement ? statement->end - code.offset : 0;
    const auto types = command_names(WordKind::INPUT_TYPE);
    for (std::size_t at = code.text.size(); at-- > first + 1;) {
        const std::string name = {to_lower(code.text[at - 1]), to_lower(code.text[at])};
        const bool is_word = at < 2 || !is_letter(code.text[at - 2]);
        if (is_word && contains(types, name)) return {code.offset + at - 1, code.offset + at + 1};
    }
    return {};
}

std::string last_type(const Site& site) {
    std::string type(site.of(last_type_place(site)));
    std::transform(type.begin(), type.end(), type.begin(), to_lower);
    return type;
}

// What may stand before "(": settings where one value is in the parentheses, else generators.
std::vector<std::string> called_commands(const Site& site, Stretch name) {
    const std::size_t open = next_visible(site.text, name.end);
    const std::size_t close = site.text.substr(0, line_around(site.text, open).end).find(')', open);
    if (close == std::string_view::npos) return command_names(WordKind::GENERATOR);
    const std::size_t first = next_visible(site.text, open + 1);
    const std::size_t behind = next_visible(site.text, word_at(site.text, first).end);
    return command_names(behind >= close ? WordKind::SETTING : WordKind::GENERATOR);
}

// "P3" for "p3", as a statement and in an equation.
bool advise_upper_case(Adviser& adviser) {
    const std::string_view word = adviser.word();
    if (word.size() < 2 || word[0] != 'P' || !is_digit(word[1])) return false;
    adviser.edit({adviser.mark.begin, adviser.mark.begin + 1}, "p");
    return adviser.help("write the `p` of a p-field in lower case");
}

bool is_flat_d(std::string_view name) {
    return name.size() >= 2 && name.size() <= 3 && to_lower(name[0]) == 'd' && name[1] == 'b' &&
           (name.size() == 2 || is_digit(name[2]));
}

// The words "db4" right behind each other before the place, the last one first; none where
// no "no" stands before them.
std::vector<Stretch> flats_before(Site site) {
    constexpr std::size_t MOST = 8;  // each looks for the one before it
    std::vector<Stretch> flats;
    while (flats.size() < MOST) {
        const Stretch type = last_type_place(site);
        const Stretch word = word_at(site.text, type.begin);
        if (last_type(site) == "no") return flats;
        if (!is_flat_d(site.of(word))) break;
        flats.push_back(word);
        site.at = type.begin;
    }
    return {};
}

// "db4" among note names, which is read as decibels and a 4.
bool advise_flat_d(Adviser& adviser) {
    if (!is_note_name(adviser.word())) return false;
    const std::vector<Stretch> flats = flats_before(adviser.site);
    if (flats.empty()) return false;
    for (const Stretch flat : flats) {
        adviser.edit(flat, "df" + std::string(adviser.site.of(flat).substr(2)));
    }
    const std::string name(adviser.site.of(flats.back()));
    adviser.point_at(flats.back());
    return adviser.help("`" + name + "` is read as the input type `db`" +
                        (name.size() > 2 ? " and a value" : "") + "; a flat is written with `f`: `df" +
                        name.substr(2) + "`");
}

// Where note names go on behind `at`: blanks, repeats and marks of chords between them.
std::size_t behind_notes(std::string_view text, std::size_t at) {
    while (at < text.size()) {
        const Stretch word = word_at(text, at);
        const std::string_view name = text.substr(word.begin, word.end - word.begin);
        const bool is_mark =
            is_space(text[at]) || std::string_view(",/:'<>").find(text[at]) != std::string_view::npos;
        if (!is_mark && !is_note_name(name) && !name.starts_with('x')) break;
        at = std::max(word.end, at + 1);
    }
    return at;
}

// "no" before the notes, and the type of before where numbers follow.
void name_note_type(Adviser& adviser) {
    const Site& site = adviser.site;
    const std::size_t behind = behind_notes(site.text, adviser.mark.begin);
    const std::string type = last_type(site);
    if (open_parenthesis(site)) return;
    adviser.edit({adviser.mark.begin, adviser.mark.begin}, "no ");
    if (is_digit(site[behind]) || site[behind] == '.' || site[behind] == '-') {
        adviser.edit({behind, behind}, (type.empty() ? "re" : type) + " ");
    }
}

// A macro or constant without its mark, which may look like a note name.
bool advise_bare_name(Adviser& adviser) {
    const auto is_called = [&adviser](const auto& records) {
        return std::any_of(records.begin(), records.end(),
                           [&adviser](const auto& record) { return record.name == adviser.word(); });
    };
    const ScoreRun& run = adviser.site.run;
    const char* const sign = is_called(run.macros) ? "$" : is_called(run.constants) ? "~" : nullptr;
    if (sign == nullptr) return false;
    adviser.edit({adviser.mark.begin, adviser.mark.begin}, sign);
    return adviser.help("a macro is called with `$`, a constant with `~`: `" +
                        (sign + std::string(adviser.word())) + "`");
}

bool advise_note_name(Adviser& adviser) {
    const bool is_name = is_note_name(adviser.word());
    const std::string meant = is_name ? std::string() : note_from_elsewhere(adviser.word());
    if (!is_name && (meant.empty() || !is_digit(meant.back()))) return false;
    if (is_called(adviser)) return false;
    if (!is_name) return adviser.help("write `no` before note names, and this one as `" + meant + "`");
    name_note_type(adviser);
    return adviser.help("write `no` before note names");
}

// Words of other notations.
bool advise_foreign_word(Adviser& adviser) {
    struct Row {
        std::string_view words;
        const char* help;
    };
    constexpr Row ROWS[] = {
        {" r R rest Rest ", "a rest is `r` under `no`, else `p3 -1`"},
        {" p P ", "the number of a p-field follows directly: `p4 60`"},
        {" pp mp mf ff ", "loudness is a number: `db 80`"},
    };
    for (const Row& row : ROWS) {
        if (row.words.find(" " + std::string(adviser.word()) + " ") == std::string_view::npos) continue;
        return adviser.help(row.help);
    }
    return false;
}

// "c4+e4"
bool advise_chord(Adviser& adviser) {
    std::string notes(adviser.word());
    if (!is_note_name(notes.substr(0, notes.find('+'))) || last_type(adviser.site) != "no") return false;
    std::replace(notes.begin(), notes.end(), '+', ':');
    adviser.edit(adviser.mark, notes);
    return adviser.help("the notes of a chord are joined by `:`: write `" + notes + "`");
}

// "no(hz)"
bool advise_type_before_output(Adviser& adviser) {
    const std::string type(adviser.word());
    if (!is_called(adviser) || !contains(command_names(WordKind::INPUT_TYPE), type)) return false;
    return adviser.help("what values are written as stands behind the p-field: `p4(hz) " + type + "`");
}

bool advise_bracket(Adviser& adviser) {
    if (adviser.word() != "[") return false;
    const Stretch line = line_around(adviser.site.text, adviser.mark.begin);
    const std::size_t close = adviser.site.text.substr(0, line.end).find(']', adviser.mark.end);
    std::string loop = "< ... >";
    if (close != std::string_view::npos && close - adviser.mark.end < 40) {
        loop = "< " + std::string(adviser.site.of({adviser.mark.end, close})) + " >";
    }
    if (loop.find('~') != std::string::npos) {
        return adviser.help("the `~` of an equation stands before its brackets: `~[A + 2]`");
    }
    return adviser.help("brackets belong into generators, as in `ra(T 1 [60 72])`; did you mean the loop `" +
                        loop + "`?");
}

// "60*4"
bool advise_star(Adviser& adviser) {
    if (adviser.word() != "*") return false;
    const Site& site = adviser.site;
    const Stretch left = word_touching(site.text, behind_visible(site.text, adviser.mark.begin));
    const Stretch right = word_at(site.text, next_visible(site.text, adviser.mark.end));
    const bool are_numbers = number_in(site.of(left)).has_value() && number_in(site.of(right)).has_value();
    const std::string value(are_numbers ? site.of(left) : "60");
    const std::string times(are_numbers ? site.of(right) : "4");
    return adviser.help("nothing is computed here; to repeat a value write `" + value + " x" + times +
                        "`, for a product `~[" + value + " * " + times + "]`");
}

// What stands between quotation marks may be a value by itself.
bool advise_quote(Adviser& adviser) {
    if (adviser.word() != "\"") return false;
    const std::size_t begin = adviser.mark.end;
    const Stretch line = line_around(adviser.site.text, begin);
    const std::size_t close = adviser.site.text.substr(0, line.end).find('"', begin);
    if (close == std::string_view::npos) return adviser.help("there are no quotation marks; leave it out");
    if (!number_in(adviser.site.of({begin, close}))) {
        return adviser.help(
            "a p-field holds numbers and note names, no texts; give the text a number that the orchestra "
            "knows");
    }
    adviser.edit(adviser.mark, "");
    adviser.edit({close, close + 1}, "");
    return adviser.help("values stand without quotation marks; leave them out");
}

// "c4 e4]": the word before the bracket is well.
bool advise_closing_bracket(Adviser& adviser) {
    if (adviser.site[adviser.site.at] != ']') return false;
    adviser.point_at({adviser.site.at, adviser.site.at + 1});
    return adviser.help("a `[` is missing, or the generator was closed before");
}

bool advise_sign(Adviser& adviser) {
    struct Row {
        std::string_view sign;
        const char* help;
    };
    constexpr Row ROWS[] = {
        {"(", "parentheses follow directly behind a name"},
        {")", "there is a `)` too many"},
        {"%", "fractions are written as .5, not as 50%"},
        {":", "leave out the `:`, which joins the values of a chord"},
        {"{", "the block is open already; a `{` stands in the header only"},
        {"|", "`|` stands only around the name of an include file"},
    };
    for (const Row& row : ROWS) {
        if (row.sign != adviser.word()) continue;
        return adviser.help(row.help);
    }
    return false;
}

// "p4=60", "p4 == 60"
bool advise_equals(Adviser& adviser) {
    if (adviser.word() != "=") return false;
    const Site& site = adviser.site;
    Stretch signs = adviser.mark;
    while (site[signs.end] == '=') ++signs.end;
    const bool is_joined =
        signs.begin > 0 && is_word_char(site[signs.begin - 1]) && is_word_char(site[signs.end]);
    adviser.edit(signs, is_joined ? " " : "");
    return adviser.help(std::string("a statement has no `=`; ") +
                        (is_joined ? "write a blank" : "leave it out"));
}

// "p2 1 // beats": slashes repeat, and the comment's first word is no value.
bool advise_slash_comment(Adviser& adviser) {
    const std::size_t behind = behind_visible(adviser.site.text, adviser.mark.begin);
    if (behind < 2 || adviser.site.text.substr(behind - 2, 2) != "//") return false;
    adviser.point_at({behind - 2, behind});
    adviser.edit({behind - 2, behind}, ";");
    return adviser.help("`//` repeats the value; a comment begins with `;`");
}

bool advise_output_type(Adviser& adviser) {
    const std::string word(adviser.word());
    const std::string type = word.substr(0, 2);
    const bool is_type = contains(two_letter_names(OUTPUT_SPECIFIERS), type) &&
                         !contains(two_letter_names(STATEMENT_COMMANDS), type);
    if (!is_type || word.size() > 3) return false;
    const auto statement = statement_around(adviser.site);
    const std::string field = statement ? std::string(adviser.site.of(*statement)) : "p4";
    return adviser.help("`" + type + "` says how values are written out and stands in parentheses: `" +
                        field + "(" + word + ")`");
}

// Words with "(" are generators and settings; before values there are input types.
std::vector<std::string> possible_commands(const Adviser& adviser) {
    const Site& site = adviser.site;
    if (is_called(adviser)) return called_commands(site, adviser.mark);
    const char next = site[next_visible(site.text, adviser.mark.end)];
    const bool is_number = is_digit(next) || next == '.' || next == '-';
    const bool is_type = is_number && adviser.word().size() == 2;
    return is_type ? command_names(WordKind::INPUT_TYPE) : two_letter_names(STATEMENT_COMMANDS);
}

bool advise_misspelt(Adviser& adviser) {
    const std::string word(adviser.word());
    if (word.empty() || !is_letter(word[0])) return false;
    const std::string known(command_called(word));
    const auto candidates = possible_commands(adviser);
    const auto names = known.empty() ? nearest(word, candidates) : std::vector<std::string>{known};
    if (names.empty() || names.size() > 4) return false;
    if (names.size() == 1) adviser.edit(adviser.mark, names[0]);
    return adviser.help("did you mean " + either(names) + "?");
}

// "pitch 60" where "p4 60" is meant.
bool advise_field_name(Adviser& adviser) {
    const bool is_name = adviser.word().size() > 2 && is_letter(adviser.word()[0]) && !is_called(adviser);
    if (!is_name || !is_first_on_line(adviser.site.text, adviser.mark.begin)) return false;
    return adviser.help("a statement begins with `p` and the number of its p-field: `p4 60`");
}

// What the values of a type look like that the statement has named.
bool advise_form(Adviser& adviser) {
    struct Row {
        std::string_view type;
        const char* help;
    };
    constexpr Row ROWS[] = {
        {"no", "a note is a letter from a to g, `s`, `f` or `n`, and an octave from 0 to 9: `fs4`"},
        {"rh", "a rhythm value is 4 for a quarter, 8 for an eighth, `8.` with a dot"},
    };
    const std::string type = last_type(adviser.site);
    for (const Row& row : ROWS) {
        if (row.type == type) return adviser.help(row.help);
    }
    return false;
}

bool advise_rhythm(Adviser& adviser) {
    return last_type(adviser.site) == "rh" && !adviser.word().empty() && is_letter(adviser.word()[0]) &&
           advise_form(adviser);
}

bool advise_point(Adviser& adviser) {
    if (adviser.word().empty() || adviser.word()[0] != '.') return false;
    adviser.edit({adviser.mark.begin, adviser.mark.begin}, "0");
    return adviser.help("in this input type a value begins with a digit or a sign: write 0" +
                        std::string(adviser.word()));
}

bool advise_word(Adviser& adviser) {
    if (adviser.word().empty() || !is_letter(adviser.word()[0])) return false;
    return adviser.help("`" + std::string(adviser.word()) +
                        "` is no value of this input type; a macro is called with `$`, a constant with `~`");
}

// --- values that their input type refuses ---

bool advise_octave(Adviser& adviser) {
    if (octave_of(adviser.word()) <= 9) return false;
    return adviser.help("octaves go from 0 to 9; c4 is the middle c");
}

std::string why_written(std::string_view word) {
    if (to_lower(word[0]) == 'h') return "the note below c is `b`";
    const std::size_t dash = word.find('-');
    if (dash != std::string_view::npos) return "the octave follows directly, without a dash";
    return word.find("es") == 1 ? "a flat is `f`" : "a sharp is `s`, a flat `f`";
}

bool advise_other_note(Adviser& adviser) {
    const std::string meant = note_from_elsewhere(adviser.word());
    if (meant.empty()) return false;
    adviser.edit(adviser.mark, meant);
    return adviser.help(why_written(adviser.word()) + ": write `" + meant + "`");
}

bool advise_number(Adviser& adviser) {
    const std::string_view word = adviser.word();
    if (word.empty() || !(is_digit(word[0]) || word[0] == '-' || word[0] == '+')) return false;
    const std::string type = last_type(adviser.site);
    if (type == "db") return adviser.help("decibels go from 0 to 96");
    if (type == "rh") return adviser.help("a rhythm value is 4 for a quarter, 8 for an eighth, never 0");
    if (type == "no") return adviser.help("behind `no` stand note names; write `re` before numbers");
    if (type != "op") return false;
    return adviser.help("octave and pitch class are parted by a point: `" + std::string(word) +
                        ".00` is a c");
}

bool advise_function(Adviser& adviser) {
    if (adviser.word() != "(" && !is_called(adviser)) return false;
    return adviser.help("an equation has no parentheses or functions");
}

// "[60-72]"
bool advise_range(Adviser& adviser) {
    const std::string_view word = adviser.word();
    const bool is_joined = word == "to" || word.find('-', 1) < word.size() || word.find("..") < word.size();
    if (!is_joined) return false;
    const std::string range = last_type(adviser.site) == "no" ? "[f c4 c5]" : "[60 72]";
    return adviser.help("a blank parts both ends of a range: `" + range + "`");
}

// --- types and the like ---

bool advise_output(Adviser& adviser) {
    const std::string type(adviser.word());
    const Stretch whole = {adviser.mark.begin - 1, adviser.mark.end + 1};
    if (contains(two_letter_names(STATEMENT_COMMANDS), type) && adviser.site[whole.end - 1] == ')') {
        adviser.edit(whole, " " + type);
        adviser.help("`" + type + "` says how values are read and stands behind the p-field: `p4 " + type +
                     "`");
        return adviser.help("in parentheses stands how they are written out: `p4(hz)`");
    }
    const auto names = nearest(type, two_letter_names(OUTPUT_SPECIFIERS));
    if (names.empty() || names.size() > 4) return false;
    return adviser.help("did you mean " + either(names) + "?");
}

bool advise_comma(Adviser& adviser) {
    if (adviser.word() != ",") return false;
    adviser.edit(adviser.mark, " ");
    return adviser.help("a list begins with a value; write a blank instead");
}

bool advise_setting_before_end(Adviser& adviser) {
    if (adviser.word() != "}") return false;
    return adviser.help("a block does not end behind `rd` or `rs`; write them before a statement");
}

bool advise_sharp(Adviser& adviser) {
    if (adviser.word().find('#') == std::string_view::npos) return false;
    const std::string meant = note_from_elsewhere(adviser.word());
    if (meant.empty()) {
        return adviser.help("`#` begins a definition; a comment begins with `;`, and a sharp is `s`");
    }
    adviser.edit(adviser.mark, meant);
    return adviser.help("a sharp is written `s`: " + meant);
}

// A value that is only one in a block of statements: nothing is read before P2.
bool advise_before_statement(Adviser& adviser) {
    const auto& open = adviser.site.run.open_block;
    if (!open || !open->fields.empty() || statement_around(adviser.site)) return false;
    return adviser.help("a block begins with its P2: `p2 1`");
}

bool advise_loop(Adviser& adviser) {
    const std::string code = code_before(adviser.site).text;
    if (adviser.word() == ">") {
        return adviser.help("there is no open `<` in this statement");
    }
    const std::size_t open = code.rfind('<');
    if (open == std::string::npos || code.find('>', open) != std::string::npos) return false;
    const std::size_t offset = code_before(adviser.site).offset;
    adviser.note("the loop begins here", {offset + open, offset + open + 1});
    return adviser.help("a loop holds no other loop; repeat values with `x2`, or write them out");
}

// A loop that is written whole is left open where the block is full before its ">".
bool advise_cut_loop(Adviser& adviser) {
    const Site& site = adviser.site;
    std::string behind(site.of({adviser.mark.end, std::max(adviser.mark.end, site.at)}));
    blank_comments(behind);
    if (behind.find('>') == std::string::npos) return false;
    return adviser.help("the block has no room for the whole loop: lengthen it, or shorten the loop");
}

constexpr AdviceRow ROWS[] = {
    {"E27", advise_closing_bracket},
    {"E27", advise_bare_name},
    {"E23", advise_bare_name},
    {"E27", advise_upper_case},
    {"E73", advise_upper_case},
    {"E27", advise_bracket},
    {"E27", advise_star},
    {"E27", advise_quote},
    {"E27", advise_sign},
    {"E27", advise_equals},
    {"E27", advise_slash_comment},
    {"E27", advise_flat_d},
    {"E27", advise_foreign_word},
    {"E27", advise_chord},
    {"E27", advise_type_before_output},
    {"E27", advise_note_name},
    {"E27", advise_output_type},
    {"E27", advise_point},
    {"E27", advise_rhythm},
    {"E27", advise_misspelt},
    {"E27", advise_field_name},
    {"E27", advise_word},
    {"E27", advise_form},
    {"E23", advise_octave},
    {"E23", advise_other_note},
    {"E23", advise_number},
    {"E23", advise_function},
    {"E23", advise_form},
    {"E17", advise_output},
    {"E39", advise_range},
    {"E73", advise_comma},
    {"E73", advise_setting_before_end},
    {"E73", advise_sign},
    {"E73", advise_equals},
    {"E73", advise_before_statement},
    {"E20", advise_sharp},
    {"E80", advise_sharp},
    {"E43", advise_loop},
    {"W15", advise_cut_loop},
};

}  // namespace

AdviceTable value_advice() { return ROWS; }

}  // namespace vorn::kit
