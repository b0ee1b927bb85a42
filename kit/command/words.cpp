#include <memory>

#include "kit/command/console.h"
#include "kit/command/option_checks.h"
#include "kit/command/subcommands.h"
#include "kit/diagnose/plain_words.h"
#include "kit/diagnose/words.h"
#include "kit/language/word_form.h"
#include "kit/language/words.h"

// vornkit words: the words of the language, for people and for editors. A word is shown
// in its form, which tells more than its name:
//
//     Generators in a statement
//       ra(time weight range ...)
//           Random values.

namespace vorn::kit {

namespace {

constexpr std::size_t WIDTH = 78;
constexpr std::string_view FORM_INDENT = "  ";
constexpr std::string_view TEXT_INDENT = "      ";

struct WordsArguments {
    std::vector<std::string> words;
    std::string format = "text";
};

void append(std::vector<Word>& all, const std::vector<Word>& more) {
    all.insert(all.end(), more.begin(), more.end());
}

// A word that its form does not begin with stands before it.
std::string shown_form(const Word& word) {
    const bool begins = word.signature.compare(0, word.word.size(), word.word) == 0;
    return begins ? word.signature : word.word + "  as in " + word.signature;
}

std::string shown_word(const Word& word) {
    return std::string(FORM_INDENT) + shown_form(word) + "\n" +
           indented(wrapped(word.text, WIDTH - TEXT_INDENT.size()), TEXT_INDENT);
}

// Below the title of their kind, as the words of a kind follow each other.
void print_list(const std::vector<Word>& words) {
    const Word* before = nullptr;
    for (const Word& word : words) {
        if (before == nullptr || before->kind != word.kind) {
            std::printf("%s%s\n", before == nullptr ? "" : "\n", std::string(kind_title(word.kind)).c_str());
        }
        std::fputs(shown_word(word).c_str(), stdout);
        before = &word;
    }
}

// What the word may have been meant to be: what others call a command, or what is nearest.
std::vector<std::string> meant(const std::string& spelling) {
    const std::string_view called = command_called(spelling);
    if (!called.empty()) return {std::string(called)};
    std::vector<std::string> names;
    for (const Word& word : all_words()) {
        if (word.word.size() > 1) names.push_back(word.word);
    }
    return nearest(spelling, names);
}

void complain_of_word(const std::string& spelling) {
    const std::vector<std::string> names = meant(spelling);
    const std::string question = names.empty() ? "" : " Did you mean " + either(names) + "?";
    complain("there is no word \"" + spelling + "\"." + question + " \"vornkit words\" lists all.");
}

Outcome words(const WordsArguments& arguments) {
    Outcome outcome = Outcome::WELL;
    std::vector<Word> found;
    if (arguments.words.empty()) found = all_words();
    for (const std::string& spelling : arguments.words) {
        const std::vector<Word> spelt = words_spelt(spelling);
        append(found, spelt);
        if (!spelt.empty()) continue;
        complain_of_word(spelling);
        outcome = Outcome::WRONG_USE;
    }
    if (arguments.format == "json") {
        std::fputs(words_json(found).c_str(), stdout);
    } else {
        print_list(found);
    }
    return outcome;
}

}  // namespace

void add_words(CLI::App& app, Outcome& outcome) {
    CLI::App* const command =
        app.add_subcommand("words", "lists the words of the language, or tells of some");
    command->footer(
        "Example: vornkit words ra se\n"
        "The data (--format json) is what editors colour scores by.");
    const auto arguments = std::make_shared<WordsArguments>();
    command->add_option("WORD", arguments->words, "words, as they stand in a score; none: list all");
    take_one_of(command->add_option("--format", arguments->format, "text or json")->capture_default_str(),
                {"text", "json"});
    command->callback([arguments, &outcome] { outcome = words(*arguments); });
}

}  // namespace vorn::kit
