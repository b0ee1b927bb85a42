#include "kit/language/words.h"

#include <algorithm>
#include <array>

#include "blocks/commands.h"
#include "input/characters.h"
#include "kit/language/word_tables.h"

// The rows of the tables become words, grouped by kind. The names of commands are
// asked of the engine, so that no row can name one that is none.

namespace vorn::kit {

namespace {

struct KindRow {
    WordKind kind;
    std::string_view name;
    std::string_view title;
};

constexpr KindRow KINDS[] = {
    {WordKind::GLOBAL_COMMAND, "global-command", "Commands between the blocks"},
    {WordKind::DIRECTIVE, "directive", "Includes, macros, constants, conditions"},
    {WordKind::REFERENCE, "reference", "References to macros, constants, equations and times, anywhere"},
    {WordKind::COMMENT, "comment", "Comments"},
    {WordKind::BLOCK, "block", "Blocks and statements"},
    {WordKind::SETTING, "setting", "Settings in a statement"},
    {WordKind::INPUT_TYPE, "input-type", "Input types: how the values of a statement are written down"},
    {WordKind::OUTPUT_TYPE, "output-type", "Output types, as in p4(hz): how they are written out"},
    {WordKind::GENERATOR, "generator", "Generators in a statement"},
    {WordKind::TIME, "time", "The time of a generator"},
    {WordKind::DISTRIBUTION, "distribution", "Distributions of a range"},
    {WordKind::CURVE, "curve", "Curves of te, mo and ms"},
    {WordKind::CURVE_MARK, "curve-mark", "Behind a curve"},
    {WordKind::SET_MARK, "set-mark", "Before a set of se and s2"},
    {WordKind::RESULT_FLAG, "result-flag", "Before an equation of ex"},
    {WordKind::OPERATOR, "operator", "Operators of equations, in ex and ~[...], from left to right"},
    {WordKind::EQUATION_TERM, "equation-term", "Terms of equations"},
    {WordKind::NOTE, "note", "Notes, under no and nox"},
    {WordKind::ACCIDENTAL, "accidental", "Accidentals, any number behind the letter of a note"},
    {WordKind::RHYTHM_MARK, "rhythm-mark", "Behind a value, under rh"},
    {WordKind::REPEAT, "repeat", "Repeats in a list"},
    {WordKind::LOOP, "loop", "Loops"},
    {WordKind::CHORD, "chord", "Chords"},
    {WordKind::PUNCTUATION, "punctuation", "Between and around values"},
};

const KindRow& row_of(WordKind kind) {
    return *std::find_if(std::begin(KINDS), std::end(KINDS),
                         [kind](const KindRow& row) { return row.kind == kind; });
}

Word word_of(const CommandRow& row) {
    const std::string name(command_name(row.code));
    return {name,
            row.kind,
            name + std::string(row.form),
            std::string(row.text),
            std::string(row.example),
            true /* case */,
            std::string(row.digits)};
}

Word word_of(const WordRow& row) {
    return {std::string(row.word),
            row.kind,
            std::string(row.signature),
            std::string(row.text),
            std::string(row.example),
            row.any_case,
            {}};
}

std::string lower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), to_lower);
    return result;
}

}  // namespace

std::vector<Word> all_words() {
    std::vector<Word> words;
    for (const CommandRow& row : command_rows()) words.push_back(word_of(row));
    for (const auto rows : {line_rows(), statement_rows(), generator_rows()}) {
        for (const WordRow& row : rows) words.push_back(word_of(row));
    }
    std::stable_sort(words.begin(), words.end(),
                     [](const Word& one, const Word& other) { return one.kind < other.kind; });
    return words;
}

std::vector<Word> words_of(WordKind kind) {
    std::vector<Word> words = all_words();
    std::erase_if(words, [kind](const Word& word) { return word.kind != kind; });
    return words;
}

std::vector<std::string> command_names(WordKind kind) {
    std::vector<std::string> names;
    for (const CommandRow& row : command_rows()) {
        if (row.kind == kind) names.emplace_back(command_name(row.code));
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<Word> words_spelt(std::string_view spelling) {
    std::vector<Word> words = all_words();
    std::erase_if(words, [spelling](const Word& word) {
        return word.word != (word.any_case ? lower(spelling) : spelling);
    });
    return words;
}

std::string_view kind_name(WordKind kind) { return row_of(kind).name; }

std::string_view kind_title(WordKind kind) { return row_of(kind).title; }

bool stands_between_blocks(WordKind kind) { return kind <= WordKind::BLOCK; }

}  // namespace vorn::kit
