#include <algorithm>

#include "blocks/commands.h"
#include "input/characters.h"
#include "kit/diagnose/adviser.h"
#include "kit/diagnose/note_names.h"
#include "kit/diagnose/words.h"

// What stands between the blocks and is no command there.

namespace vorn::kit {

namespace {

bool is_one_of(const std::vector<std::string>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string lower(std::string_view word) {
    std::string text(word);
    std::transform(text.begin(), text.end(), text.begin(), to_lower);
    return text;
}

std::size_t behind_word(const Adviser& adviser) { return next_visible(adviser.site.text, adviser.mark.end); }

bool is_first(const Adviser& adviser) { return is_first_on_line(adviser.site.text, adviser.mark.begin); }

bool advise_upper_case_block(Adviser& adviser) {
    const std::string_view word = adviser.word();
    if (word.empty() || word[0] != 'I' || (word.size() > 1 && !is_digit(word[1]) && word[1] != '-'))
        return false;
    adviser.edit({adviser.mark.begin, adviser.mark.begin + 1}, "i");
    return adviser.help("write the `i` of a block in lower case");
}

bool advise_statement_outside(Adviser& adviser) {
    const std::string word = lower(adviser.word());
    if (word.size() < 2 || word[0] != 'p' || !is_digit(word[1])) return false;
    return adviser.help("no block is open here: a header comes first, `i1 = 5 0 4 {`");
}

bool advise_brace(Adviser& adviser) {
    if (adviser.word() != "}") return false;
    return adviser.help("no block is open here; is there a `}` too many?");
}

bool advise_comment(Adviser& adviser) {
    const std::string_view rest = adviser.site.text.substr(adviser.mark.begin, 2);
    const bool is_comment = rest == "//" || rest == "--" || rest.starts_with('%');
    if (!is_comment || !is_first(adviser)) return false;
    const std::size_t length = rest.starts_with('%') ? 1 : 2;
    adviser.edit({adviser.mark.begin, adviser.mark.begin + length}, ";");
    return adviser.help("a comment begins with `;`, or stands between `/*` and `*/`");
}

bool advise_csd(Adviser& adviser) {
    if (adviser.word() != "<") return false;
    return adviser.help("this is no score, but a file that may hold one");
}

// One letter and numbers, as the lines of a Csound score.
bool advise_csound_line(Adviser& adviser) {
    const std::string_view word = adviser.word();
    if (word.empty() || !is_first(adviser) || !is_letter(word[0])) return false;
    const bool is_letter_and_number = std::all_of(word.begin() + 1, word.end(), is_digit);
    const char letter = to_lower(word[0]);
    if (!is_letter_and_number || letter == 'p' || letter == 'i') return false;
    if (letter == 't') {
        return adviser.help("a tempo is `te(120)`; to pass the line on to Csound, write `>` before it");
    }
    if (letter == 'e' && word.size() == 1) {
        adviser.edit(adviser.mark, "");
        return adviser.help("Vorn writes the `e` at the end of a score itself; leave it out");
    }
    adviser.edit({adviser.mark.begin, adviser.mark.begin}, "> ");
    return adviser.help("to pass this line on to the Csound score, write `>` before it");
}

bool advise_order(Adviser& adviser) {
    const std::string name = lower(adviser.word().substr(0, 2));
    const bool is_command = adviser.word().size() == 2 && is_one_of(two_letter_names(GLOBAL_COMMANDS), name);
    if (is_first(adviser) || !(is_command || adviser.word() == ">")) return false;
    return adviser.help("a command stands first on its line; write it on a line of its own");
}

bool advise_statement_command(Adviser& adviser) {
    const std::string name = lower(adviser.word());
    if (!is_one_of(two_letter_names(STATEMENT_COMMANDS), name)) return false;
    return adviser.help("`" + name + "` stands in a statement of a block, as in `p4 " + name + " ...`");
}

// "#define TUNE #c4 c#4#": the second "#" ended the macro.
bool advise_sharp(Adviser& adviser) {
    const std::size_t sign = adviser.word().find('#');
    if (sign == std::string_view::npos || sign == 0) return false;
    const std::string meant = note_from_elsewhere(adviser.word().substr(0, sign + 2));
    if (meant.empty()) return false;
    return adviser.help("a `#` ends the text of a macro; a sharp is written `s`: " + meant);
}

bool advise_else(Adviser& adviser) {
    const std::size_t begin = adviser.mark.begin;
    const bool is_directive =
        adviser.word().starts_with('#') || (begin > 0 && adviser.site[begin - 1] == '#');
    if (!is_directive) return false;
    return adviser.help(
        "there are `#define`, `#undef`, `#const`, `#include`, `#if` and `#endif`; "
        "for the other case write a second `#if`");
}

// "tempo(120)", "bpm = 120", "seed 4"
bool advise_misspelt(Adviser& adviser) {
    const std::string_view word = adviser.word();
    if (word.size() < 2 || !is_letter(word[0])) return false;
    const auto all = two_letter_names(GLOBAL_COMMANDS);
    const std::string known(command_called(word));
    if (is_one_of(all, known)) {
        if (adviser.site[behind_word(adviser)] == '(') adviser.edit(adviser.mark, known);
        return adviser.help("did you mean `" + known + "(...)`?");
    }
    const auto names = nearest(word, all);
    const char next = adviser.site[behind_word(adviser)];
    const bool is_call = next == '(' || next == '=';
    const bool has_value = std::all_of(word.begin(), word.end(), is_letter) && is_digit(next);
    if (names.empty() || !(is_call || has_value)) return false;
    if (names.size() == 1 && next == '(') adviser.edit(adviser.mark, names[0]);
    return adviser.help("did you mean " + either(names) +
                        (next == '(' ? "?" : ", with its value in parentheses?"));
}

// --- a command without its "(" ---

// The command's name before the place, and what stands between.
Stretch command_before(const Adviser& adviser) {
    const std::size_t behind = behind_visible(adviser.site.text, adviser.mark.begin);
    return behind == 0 ? Stretch{} : word_at(adviser.site.text, behind - 1);
}

bool advise_long_name(Adviser& adviser) {
    const std::string_view word = adviser.word();
    if (word.size() <= 2 || !is_letter(word[0]) || adviser.site[behind_word(adviser)] != '(') return false;
    const std::string known(command_called(word));
    if (!known.empty()) {
        adviser.edit(adviser.mark, known);
        return adviser.help("did you mean `" + known + "`?");
    }
    auto names = nearest(word, two_letter_names(GLOBAL_COMMANDS));
    if (names.empty()) names = {lower(word.substr(0, 2))};
    return adviser.help("names have two letters; did you mean " + either(names) + "?");
}

// Behind the numbers and calls that stand side by side from `at` on.
std::size_t behind_values(std::string_view text, std::size_t at) {
    for (std::size_t begin = at; begin < text.size() && text[begin] != '\n';) {
        const Stretch word = word_at(text, begin);
        if (word.end == word.begin || is_letter(text[word.begin])) break;
        at = word.end;
        begin = std::min(text.find_first_not_of(" \t,", at), text.size());
    }
    return at;
}

bool advise_parentheses(Adviser& adviser) {
    const Stretch name = command_before(adviser);
    if (name.end - name.begin != 2) return false;
    const std::string command(adviser.site.of(name));
    const bool is_equals = adviser.word() == "=";
    const std::size_t value = is_equals ? behind_word(adviser) : adviser.mark.begin;
    const std::size_t end = behind_values(adviser.site.text, value);
    if (end == value) return adviser.help("the value of `" + command + "` stands in parentheses");
    const std::string call = command + "(" + std::string(adviser.site.of({value, end})) + ")";
    adviser.edit({name.begin, end}, call);
    const bool are_several = end > word_at(adviser.site.text, value).end;
    return adviser.help(
        (are_several ? "the values stand in parentheses: " : "the value stands in parentheses: ") + call);
}

bool advise_tempo_terms(Adviser& adviser) {
    return adviser.help(
        "a tempo is one number, `te(120)`, or start, end, first and last tempo: `te(0 8 60 120)`");
}

// The end of a change that lies before its start: both are likely exchanged.
bool advise_end_time(Adviser& adviser) {
    const std::string_view call = adviser.word();
    const std::size_t open = call.find('(');
    if (open == std::string_view::npos) return false;
    const Stretch start =
        word_at(adviser.site.text, next_visible(adviser.site.text, adviser.mark.begin + open + 1));
    const Stretch end = word_at(adviser.site.text, next_visible(adviser.site.text, start.end));
    const auto first = number_in(adviser.site.of(start));
    const auto second = number_in(adviser.site.of(end));
    if (!first || !second || *second >= *first) return false;
    return adviser.help("the change ends at beat " + std::string(adviser.site.of(end)) +
                        ", before it starts at " + std::string(adviser.site.of(start)) +
                        "; write the earlier beat first");
}

constexpr AdviceRow ROWS[] = {
    {"E22", advise_sharp},
    {"E22", advise_else},
    {"E22", advise_upper_case_block},
    {"E22", advise_statement_outside},
    {"E22", advise_brace},
    {"E22", advise_comment},
    {"E22", advise_csd},
    {"E22", advise_order},
    {"E22", advise_misspelt},
    {"E22", advise_csound_line},
    {"E22", advise_statement_command},
    {"E96", advise_long_name},
    {"E96", advise_parentheses},
    {"E151", advise_tempo_terms},
    {"E152", advise_tempo_terms},
    {"E153", advise_tempo_terms},
    {"E159", advise_end_time},
};

}  // namespace

AdviceTable command_advice() { return ROWS; }

}  // namespace vorn::kit
