#include <memory>

#include "kit/command/console.h"
#include "kit/command/option_checks.h"
#include "kit/command/subcommands.h"
#include "kit/diagnose/words.h"
#include "kit/language/word_form.h"
#include "kit/language/words.h"

// vornkit words: the words of the language, for people and for editors.

namespace vorn::kit {

namespace {

struct WordsArguments {
    std::vector<std::string> words;
    std::string format = "text";
};

void append(std::vector<Word>& all, const std::vector<Word>& more) {
    all.insert(all.end(), more.begin(), more.end());
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
    std::fputs((arguments.format == "json" ? words_json(found) : words_text(found)).c_str(), stdout);
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
