#include <algorithm>

#include "input/characters.h"
#include "kit/diagnose/adviser.h"
#include "kit/diagnose/words.h"

// Headers, and statements that are not those which the header has promised.

namespace vorn::kit {

namespace {

constexpr const char* HEADER_FORM = "a header says: `i1 = 5 0 4 {`, with p-fields, start and length";

constexpr const char* LENGTH_FORM =
    "the length is a number of beats, as 8, or minus a number of events, as -12";

// A number in the header of the open block, which may come out of a macro.
struct HeaderNumber {
    double value = -1;
    FileSpan span;
};

// The number of p-fields behind "=", or the length before "{".
HeaderNumber number_beside(char sign, const Site& site) {
    const auto& open = site.run.open_block;
    if (!open) return {};
    const Excerpt block = site.run.expanded.excerpt(open->header_place, site.message.place);
    const std::string_view text = block.text;
    const std::size_t at = text.find(sign);
    if (at - 1 >= text.size()) return {};
    const std::size_t inside = sign == '=' ? next_visible(text, at + 1) : behind_visible(text, at) - 1;
    const Stretch word = word_at(text, inside);
    const auto number = number_in(text.substr(word.begin, word.end - word.begin));
    if (!number) return {};
    return {*number, site.run.map.find(block.place(word.begin), block.place(word.end - 1))};
}

// Without a length no event has room.
bool advise_no_length(Adviser& adviser) {
    const HeaderNumber length = number_beside('{', adviser.site);
    if (length.value != 0) return false;
    adviser.note_at("the length of the block is 0", length.span);
    return adviser.help(LENGTH_FORM);
}

// The number of p-fields in that header.
struct Promise {
    int count;
    FileSpan span;
};

Promise promise_of(const Site& site) {
    const HeaderNumber number = number_beside('=', site);
    return {static_cast<int>(std::min(number.value, 1000.0)), number.span};
}

bool was_read(const OpenBlock& block, int number) {
    return std::any_of(block.fields.begin(), block.fields.end(),
                       [number](const FieldRecord& field) { return field.number == number; });
}

// "p5", "p5 and p7", "p5, p6 and p7".
std::string listed(const std::vector<int>& numbers) {
    std::string text;
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        if (at > 0) text += at + 1 == numbers.size() ? " and " : ", ";
        text += "p" + std::to_string(numbers[at]);
    }
    return text;
}

bool note_promise(Adviser& adviser, const Promise& promise) {
    return adviser.note_at("the header promises " + std::to_string(promise.count) + " p-fields, P1 counted",
                           promise.span);
}

bool advise_skipped(Adviser& adviser) {
    const Promise promise = promise_of(adviser.site);
    if (promise.count < 3 || promise.count > 128) return false;
    std::vector<int> missing;
    for (int number = 2; number <= promise.count; ++number) {
        if (!was_read(*adviser.site.run.open_block, number)) missing.push_back(number);
    }
    if (missing.empty()) return false;
    note_promise(adviser, promise);
    return adviser.help(listed(missing) + (missing.size() > 1 ? " are missing" : " is missing") +
                        "; or the header should promise fewer p-fields");
}

bool advise_beyond(Adviser& adviser) {
    const Promise promise = promise_of(adviser.site);
    if (promise.count < 3 || adviser.word().size() < 2) return false;
    const std::string number(adviser.word().substr(1));
    note_promise(adviser, promise);
    return adviser.help("to have a p" + number + ", write " + number + " in the header instead of " +
                        std::to_string(promise.count));
}

bool advise_duplicate(Adviser& adviser) {
    const auto& open = adviser.site.run.open_block;
    if (!open || adviser.word().size() < 2) return false;
    for (const FieldRecord& field : open->fields) {
        if ("p" + std::to_string(field.number) != adviser.word()) continue;
        FileSpan first = field.statement;
        first.end = first.begin + adviser.word().size();
        adviser.note_at("it is given here already", first);
        return adviser.help("give this statement the number of another p-field, or join the two");
    }
    return false;
}

// A Csound note has numbers only.
bool advise_csound_note(Adviser& adviser) {
    const Stretch line = line_around(adviser.site.text, adviser.mark.begin);
    const std::string_view text = adviser.site.of(line);
    const auto is_plain = [](char c) { return is_digit(c) || is_space(c) || c == '.' || c == '-'; };
    const bool is_note = text.size() > 1 && text[0] == 'i' && text.find_first_of(" \t") < text.size() &&
                         std::all_of(text.begin() + 1, text.end(), is_plain);
    if (!is_note) return false;
    adviser.help("this is a note of Csound; Vorn makes notes from blocks: `i1 = 4 0 4 {`");
    return adviser.help("to pass the line on as it is, write `>` before it");
}

bool advise_equals(Adviser& adviser) {
    const Stretch name = word_at(adviser.site.text, adviser.mark.begin);
    if (adviser.site.of(name).find('.') != std::string_view::npos) {
        return adviser.help("the instrument is a whole number; Csound's fractions cannot be written");
    }
    if (adviser.word() == ":") {
        adviser.edit(adviser.mark, " =");
        return adviser.help("write `=` instead of the colon");
    }
    return adviser.help(std::string("write `=` behind the instrument; ") + HEADER_FORM);
}

constexpr std::string_view DIRECTIVES[] = {"#const", "#define", "#endif", "#if", "#include", "#undef"};

bool is_directive(std::string_view word) {
    return std::find(std::begin(DIRECTIVES), std::end(DIRECTIVES), word) != std::end(DIRECTIVES);
}

// "include |x|": the "#" is missing, and what begins with "i" is read as a header.
bool advise_hash(Adviser& adviser) {
    const std::string word = "#" + std::string(adviser.word());
    if (!is_directive(word) || !is_first_on_line(adviser.site.text, adviser.mark.begin)) return false;
    adviser.edit({adviser.mark.begin, adviser.mark.begin}, "#");
    return adviser.help("write `" + word + "`");
}

// "#def A #1#", "#CONST A 1"
bool advise_directive(Adviser& adviser) {
    const std::string_view text = adviser.site.text;
    const Stretch word = word_at(text, next_visible(text, line_around(text, adviser.mark.begin).begin));
    const std::string_view name = adviser.site.of(word);
    if (!name.starts_with('#') || is_directive(name)) return false;
    auto names = nearest(name, {std::begin(DIRECTIVES), std::end(DIRECTIVES)});
    if (name == "#def") names = {"#define"};
    if (names.empty()) return false;
    adviser.point_at(word);
    adviser.edit(word, names[0]);
    return adviser.help("did you mean `" + names[0] + "`?");
}

// "#if(~A < 1)", of which only the "~A" is read.
bool advise_condition(Adviser& adviser) {
    const Site& site = adviser.site;
    const std::size_t line = line_around(site.text, site.at).begin;
    const std::string_view before = site.of({std::min(next_visible(site.text, line), site.at), site.at});
    if (!before.starts_with("#if(") || before.find(')') != std::string_view::npos) return false;
    return adviser.help("nothing is compared: `#if(~A)` holds where A is above 0");
}

bool advise_instrument(Adviser& adviser) {
    if (adviser.word() == "instr") {
        return adviser.help("this belongs into an orchestra of Csound; a score holds blocks: `i1 = 5 0 4 {`");
    }
    return adviser.help("an instrument is a number here, as in `i1`");
}

bool advise_hidden_brace(Adviser& adviser) {
    const Stretch line = line_around(adviser.site.text, adviser.mark.begin);
    const std::string_view text = adviser.site.of(line);
    const std::size_t comment = text.find(';');
    const std::size_t brace = text.find('{', comment);
    if (comment == std::string_view::npos || brace == std::string_view::npos) return false;
    adviser.point_at({line.begin + brace, line.begin + brace + 1});
    return adviser.help("everything behind `;` is a comment, the `{` too; leave the `;` out");
}

bool tell_unit(Adviser& adviser) {
    return adviser.help("a length has no unit: 4 is a number of beats, -4 one of events");
}

// "-4beats"
bool advise_unit(Adviser& adviser) {
    const std::string_view word = adviser.word();
    if (word.empty() || !is_letter(word.back()) || word[0] == '$') return false;
    return tell_unit(adviser);
}

bool advise_other_bracket(Adviser& adviser) {
    const std::size_t behind = next_visible(adviser.site.text, adviser.mark.end);
    const Stretch sign = {behind, behind + 1};
    if (adviser.site[behind] != '(' && adviser.site[behind] != '[') return false;
    adviser.point_at(sign);
    adviser.edit(sign, "{");
    return adviser.help("a block begins with `{`");
}

// "i1 = 5.5 0 4": the fraction has been read as the start.
bool advise_fraction(Adviser& adviser) {
    const Stretch line = line_around(adviser.site.text, adviser.mark.begin);
    const std::size_t equals = adviser.site.of(line).find('=');
    if (equals == std::string_view::npos) return false;
    const Stretch pfields =
        word_at(adviser.site.text, next_visible(adviser.site.text, line.begin + equals + 1));
    if (adviser.site.of(pfields).find('.') == std::string_view::npos) return false;
    adviser.point_at(pfields);
    return adviser.help("behind `=` stands the number of p-fields, a whole number");
}

bool begins_number(std::string_view text) {
    return !text.empty() && (is_digit(text[0]) || text[0] == '.' || text[0] == '-');
}

// How long the word is, of letters alone: "beats", but not "p2" or "te(60)".
std::size_t plain_word_length(std::string_view text) {
    const std::string_view word = text.substr(0, text.find_first_of(" \t\r\n{"));
    return std::all_of(word.begin(), word.end(), is_letter) ? word.size() : 0;
}

bool advise_brace(Adviser& adviser) {
    const std::string_view word = adviser.word();
    if (word.starts_with('-') && word.find('.') != std::string_view::npos) {
        return adviser.help("a length with a minus is a number of events, and whole");
    }
    const std::size_t behind = adviser.mark.end;
    std::string rest(adviser.site.of({behind, line_around(adviser.site.text, behind).end}));
    blank_comments(rest);
    const std::size_t next = next_visible(rest, 0);
    const std::string_view further = std::string_view(rest).substr(next);
    if (word == "/" || (!further.empty() && std::string_view("{*+/%").find(further[0]) < 5)) {
        return adviser.help("a length is one number; nothing is computed");
    }
    if (begins_number(further)) return adviser.help("there is a number too many before the `{`");
    if (const std::size_t length = plain_word_length(further); length > 0) {
        adviser.point_at({behind + next, behind + next + length});
        return tell_unit(adviser);
    }
    adviser.edit({behind, behind}, " {");
    return adviser.help("write `{` behind the length");
}

bool advise_start(Adviser& adviser) {
    if (adviser.word() == "{") {
        return adviser.help(std::string("start and length are missing; ") + HEADER_FORM);
    }
    return adviser.help("a block starts at beat 0 or later; write the beat as a number");
}

bool advise_length(Adviser& adviser) {
    const std::string_view word = adviser.word();
    if (word == "{") {
        return adviser.help(
            "the length is missing before `{`: a number of beats, or minus a number of events");
    }
    return adviser.help(LENGTH_FORM);
}

constexpr AdviceRow ROWS[] = {
    {"E71", advise_skipped},      {"E44", advise_beyond},    {"E70", advise_duplicate},
    {"E34", advise_csound_note},  {"E34", advise_equals},    {"E11", advise_hash},
    {"E22", advise_hash},         {"E80", advise_directive}, {"E22", advise_condition},
    {"E27", advise_condition},    {"E73", advise_condition}, {"E11", advise_instrument},
    {"E30", advise_hidden_brace}, {"E30", advise_unit},      {"E30", advise_other_bracket},
    {"E30", advise_fraction},     {"E30", advise_brace},     {"E12", advise_start},
    {"E120", advise_length},      {"E121", advise_length},   {"E13", advise_length},
    {"Eblank", advise_no_length},
};

}  // namespace

AdviceTable header_advice() { return ROWS; }

}  // namespace vorn::kit
