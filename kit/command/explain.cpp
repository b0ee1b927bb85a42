#include <deque>
#include <memory>

#include "kit/command/console.h"
#include "kit/command/subcommands.h"
#include "kit/diagnose/explanation_form.h"
#include "kit/language/words.h"

// vornkit explain: what a code means that stands behind a message.

namespace vorn::kit {

namespace {

struct ExplainArguments {
    std::vector<std::string> codes;
    std::string format = "text";
};

// "E63", "E64 or E65"
std::string alternatives(const std::vector<std::string>& codes) {
    std::string text;
    for (std::size_t at = 0; at < codes.size(); ++at) {
        if (at > 0) text += at + 1 == codes.size() ? " or " : ", ";
        text += codes[at];
    }
    return text;
}

// What was typed may be a word of the language, which is told elsewhere.
void complain_of_code(const std::string& typed) {
    if (!words_spelt(typed).empty()) {
        complain("\"" + typed + "\" is no code but a word of scores: \"vornkit words " + typed +
                 "\" tells of it.");
        return;
    }
    const std::vector<std::string> nearest = nearest_codes(code_in_full(typed));
    const std::string question = nearest.empty() ? "" : " Did you mean " + alternatives(nearest) + "?";
    complain("there is no code \"" + typed + "\"." + question + " \"vornkit explain\" lists all.");
}

void print_texts(const std::vector<Explanation>& explanations) {
    const char* gap = "";
    for (const Explanation& explanation : explanations) {
        std::printf("%s%s", gap, explanation_text(explanation).c_str());
        gap = "\n\n";
    }
}

Outcome explain(const ExplainArguments& arguments) {
    const bool lists_all = arguments.codes.empty();
    Outcome outcome = Outcome::WELL;
    std::vector<Explanation> found;
    if (lists_all) found = all_explanations();
    // A reserved number keeps to the text of its code.
    std::deque<std::string> codes;
    for (const std::string& typed : arguments.codes) {
        if (const auto explanation = find_explanation(codes.emplace_back(code_in_full(typed)))) {
            found.push_back(*explanation);
        } else {
            complain_of_code(typed);
            outcome = Outcome::WRONG_USE;
        }
    }
    if (arguments.format == "json") {
        std::fputs(explanations_json(found).c_str(), stdout);
    } else if (lists_all) {
        std::fputs(list_text(found).c_str(), stdout);
    } else {
        print_texts(found);
    }
    return outcome;
}

}  // namespace

void add_explain(CLI::App& app, Outcome& outcome) {
    CLI::App* const command = app.add_subcommand("explain", "tells what the code of a message means");
    command->footer(
        "Example: vornkit explain E27 Einclude\n"
        "The codes stand in brackets behind the messages of vornkit check;\n"
        "docs/messages.md has them all on one page.");
    const auto arguments = std::make_shared<ExplainArguments>();
    command->add_option("CODE", arguments->codes, "codes; 27 is E27; none: list all");
    command->add_option("--format", arguments->format, "text or json")
        ->check(CLI::IsMember({"text", "json"}))
        ->capture_default_str();
    command->callback([arguments, &outcome] { outcome = explain(*arguments); });
}

}  // namespace vorn::kit
