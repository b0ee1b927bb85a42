#include "kit/language/words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>

#include "blocks/commands.h"
#include "input/characters.h"
#include "table_sources.h"

// The list is held against the engine: each word's example is read, and read no more
// when something else stands in the word's place.

namespace vorn::kit {

namespace {

constexpr std::string_view LETTERS = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view SECONDS = "abcdefghijklmnopqrstuvwxyz0123456789";

// A whole score around an example. Statements stand in a block of four events, where
// the p-fields that the example does not give are 1.
std::string score_around(WordKind kind, const std::string& example) {
    if (stands_between_blocks(kind)) return example + "\ni1 = 3 0 4 {\np2 1\np3 1\n}\n";
    std::string score = "i1 = 4 0 -4 {\n";
    for (const char* field : {"p2", "p3", "p4"}) {
        score += example.starts_with(field) ? example + "\n" : std::string(field) + " 1\n";
    }
    return score + "}\n";
}

ScoreRun run_example(WordKind kind, const std::string& example) {
    test::TableSources sources{{"in.vorn", score_around(kind, example)}, {"part.vorn", "te(90)\n"}};
    return run_score("in.vorn", {}, sources);
}

// What a run has made: its events, tempos and lines for Csound. Nothing: it was refused.
std::optional<std::string> made(WordKind kind, const std::string& example) {
    const ScoreRun run = run_example(kind, example);
    if (run.status != 0) return std::nullopt;
    std::string text;
    for (const BlockRecord& block : run.blocks) {
        text += "i" + std::to_string(block.instrument);
        for (const float start : block.events.start) text += " " + std::to_string(start);
        for (const float value : block.events.values) text += " " + std::to_string(value);
    }
    for (const TempoRecord& tempo : run.tempos) text += " " + std::to_string(tempo.definition.start_tempo);
    for (const DirectLine& line : run.direct_lines) text += ">" + line.text;
    for (const SettingRecord& setting : run.settings) text += " " + std::to_string(setting.value);
    return text;
}

std::string with_instead(const Word& word, std::string_view other) {
    std::string example = word.example;
    example.replace(example.rfind(word.word), word.word.size(), other);
    return example;
}

// A word of the same length that none is: letters, or what no score holds.
std::string made_up(const Word& word) {
    std::string text;
    for (const char letter : word.word) {
        const bool is_plain = is_letter(letter) || is_digit(letter);
        text += is_plain                                                         ? 'q'
                : std::string_view("#@~").find(letter) != std::string_view::npos ? letter
                                                                                 : '!';
    }
    return text == word.word ? "!" : text;
}

std::string upper(std::string text) {
    for (char& letter : text) letter = static_cast<char>(std::toupper(letter));
    return text;
}

std::set<std::string> spellings(WordKind kind) {
    std::set<std::string> names;
    for (const Word& word : words_of(kind)) names.insert(word.word);
    return names;
}

std::set<std::string> spellings(std::initializer_list<WordKind> kinds) {
    std::set<std::string> names;
    for (const WordKind kind : kinds) names.merge(spellings(kind));
    return names;
}

// The names of two letters for which `takes` holds, whatever follows them.
std::set<std::string> names_that(bool (*takes)(const char* text, std::int32_t pos)) {
    std::set<std::string> names;
    for (const char first : LETTERS) {
        for (const char second : SECONDS) {
            const std::string name = {first, second};
            if (takes((name + "(").c_str(), 0)) names.insert(name);
        }
    }
    return names;
}

// Which of the candidates may stand in the place of a word.
std::set<std::string> taken_instead_of(const Word& word, std::string_view candidates) {
    std::set<std::string> taken;
    for (const char candidate : candidates) {
        const std::string example = with_instead(word, std::string(1, candidate));
        if (run_example(word.kind, example).status == 0) taken.insert(std::string(1, candidate));
    }
    return taken;
}

Word the_word(std::string_view spelling, WordKind kind) {
    for (const Word& word : words_of(kind)) {
        if (word.word == spelling) return word;
    }
    ADD_FAILURE() << spelling;
    return {};
}

}  // namespace

TEST(LanguageWords, EachIsAcceptedAndAMadeUpOneIsNot) {
    for (const Word& word : all_words()) {
        ASSERT_NE(word.example.rfind(word.word), std::string::npos) << word.word;
        EXPECT_TRUE(made(word.kind, word.example)) << word.example;
        const std::string other = with_instead(word, made_up(word));
        EXPECT_FALSE(made(word.kind, other)) << kind_name(word.kind) << ": " << other;
    }
}

TEST(LanguageWords, SayWhetherUpperCaseMeansTheSame) {
    for (const Word& word : all_words()) {
        if (upper(word.word) == word.word && word.word != "T") continue;
        const bool is_upper = word.word == "T";
        const std::string other = is_upper ? "t" : upper(word.word);
        const bool is_same = made(word.kind, with_instead(word, other)) == made(word.kind, word.example);
        EXPECT_EQ(word.any_case, is_same) << kind_name(word.kind) << ": " << with_instead(word, other);
    }
}

TEST(LanguageWords, AreAllCommandsOfTheEngine) {
    std::set<std::string> global = spellings(WordKind::GLOBAL_COMMAND);
    global.erase(">");
    global.insert("pf");  // known between the blocks only to be refused
    EXPECT_EQ(global, names_that(is_gcommand));
    EXPECT_FALSE(made(WordKind::GLOBAL_COMMAND, "pf(2)"));
    std::set<std::string> inner = spellings({WordKind::SETTING, WordKind::INPUT_TYPE, WordKind::GENERATOR});
    EXPECT_EQ(inner.erase("nox") + inner.erase("opx"), 2U);
    EXPECT_EQ(inner, names_that(is_command));
    EXPECT_EQ(spellings(WordKind::OUTPUT_TYPE), names_that(is_output_specifier));
}

// The engine's message for a name without "(" tells generators, settings and types apart.
TEST(LanguageWords, HaveTheKindThatTheEngineTreatsThemAs) {
    const std::pair<WordKind, int> errors[] = {
        {WordKind::GENERATOR, 36}, {WordKind::SETTING, 96}, {WordKind::INPUT_TYPE, 27}};
    for (const auto& [kind, number] : errors) {
        for (const std::string& name : command_names(kind)) {
            const ScoreRun run = run_example(kind, "p4 " + name + " !");
            ASSERT_FALSE(run.messages.empty());
            EXPECT_EQ(run.messages.back().number, number) << name;
        }
    }
    EXPECT_EQ(command_names(WordKind::SETTING), (std::vector<std::string>{"dv", "pf", "rd", "rs"}));
}

TEST(LanguageWords, AreAllLettersThatMayStandInAPlace) {
    const std::pair<std::string_view, WordKind> places[] = {{"e", WordKind::CURVE},
                                                            {"g", WordKind::DISTRIBUTION},
                                                            {"r", WordKind::NOTE},
                                                            {"x", WordKind::SET_MARK},
                                                            {"i", WordKind::RESULT_FLAG}};
    for (const auto& [spelling, kind] : places) {
        std::set<std::string> letters = spellings(kind);
        letters.erase("*");
        if (kind == WordKind::CURVE) letters.erase("v");  // only with an exponent
        if (kind == WordKind::NOTE) letters.insert("z");  // the value before, whatever the type
        EXPECT_EQ(taken_instead_of(the_word(spelling, kind), LETTERS), letters) << kind_name(kind);
    }
}

TEST(LanguageWords, AreAllMarksThatMayStandInAPlace) {
    const auto operators = spellings(WordKind::OPERATOR);
    const Word plus = the_word("+", WordKind::OPERATOR);
    EXPECT_EQ(taken_instead_of(plus, "!\"%&*+-/:<=>?@^_|~"), operators);
    for (const std::string& mark : operators) {
        EXPECT_TRUE(made(WordKind::OPERATOR, "p4 ~[60 " + mark + " 2]")) << mark;
    }
    const Word quarter = the_word("+", WordKind::ACCIDENTAL);
    EXPECT_EQ(taken_instead_of(quarter, "!#%&*+-=?^_|nst"), (std::set<std::string>{"+", "-", "n", "s"}));
    const Word chord = the_word(":", WordKind::CHORD);
    EXPECT_EQ(taken_instead_of(chord, "!&'*:=^_|\""), (std::set<std::string>{":", "'"}));
}

TEST(LanguageWords, TakeTheDigitsThatTheyName) {
    for (const Word& word : all_words()) {
        if (word.digits.empty()) continue;
        EXPECT_EQ(word.digits, "0-7");
        EXPECT_TRUE(made(word.kind, with_instead(word, word.word + "7"))) << word.example;
        EXPECT_FALSE(made(word.kind, with_instead(word, word.word + "8"))) << word.example;
    }
    EXPECT_FALSE(made(WordKind::OUTPUT_TYPE, "p4(hz5) 60"));
}

TEST(LanguageWords, OfAKindDifferAndStandTogether) {
    const std::vector<Word> words = all_words();
    std::set<std::pair<WordKind, std::string>> seen;
    for (std::size_t at = 0; at < words.size(); ++at) {
        EXPECT_TRUE(seen.emplace(words[at].kind, words[at].word).second) << words[at].word;
        EXPECT_LE(words[at > 0 ? at - 1 : 0].kind, words[at].kind) << words[at].word;
    }
    EXPECT_EQ(words.front().kind, WordKind::GLOBAL_COMMAND);
    EXPECT_EQ(words.back().kind, WordKind::PUNCTUATION);
}

TEST(LanguageWords, AreFoundByTheirSpelling) {
    const std::vector<Word> rate = words_spelt("RD");
    ASSERT_EQ(rate.size(), 2U);
    EXPECT_EQ(rate[0].kind, WordKind::GLOBAL_COMMAND);
    EXPECT_EQ(rate[1].signature, "rd(deviation)");
    EXPECT_EQ(words_spelt("T").size(), 2U);  // the time, and a distribution in either case
    EXPECT_EQ(words_spelt("t").size(), 1U);
    EXPECT_TRUE(words_spelt("qq").empty());
}

}  // namespace vorn::kit
