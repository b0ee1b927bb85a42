#include "kit/command/vornkit.h"

#include <algorithm>
#include <cstdio>
#include <memory>

#include "driver/banner.h"
#include "kit/command/console.h"
#include "kit/command/interruption.h"
#include "kit/command/subcommands.h"
#include "kit/diagnose/edit_distance.h"

// The command line: one application, one subcommand a task. A wrong use is told
// in two lines, with the help that would have shown the right one.

namespace vorn::kit {

namespace {

// Help with the examples first; they stand in the footer of each command.
class ExamplesFirst : public CLI::Formatter {
public:
    std::string make_usage(const CLI::App* app, std::string name) const override {
        return Formatter::make_footer(app) + Formatter::make_usage(app, std::move(name));
    }
    std::string make_footer(const CLI::App*) const override { return {}; }
};

constexpr std::size_t MOST_EDITS = 2;  // between a command and what was meant for it

using AddSubcommand = void (*)(CLI::App& app, Outcome& outcome);

// In the order of the help.
constexpr AddSubcommand SUBCOMMANDS[] = {
    add_new,     add_check, add_explain, add_events, add_midi,
    add_picture, add_play,  add_vary,    add_watch,  add_words,
};

int parse(CLI::App& app, int argc, const char* const* argv, const Outcome& outcome) {
    try {
        app.parse(argc, argv);
        return static_cast<int>(outcome);
    } catch (const CLI::ParseError& error) {
        const bool asked_for_help = app.exit(error) == 0;
        return asked_for_help ? 0 : static_cast<int>(Outcome::WRONG_USE);
    }
}

// The command that was most likely meant; empty: none is near.
std::string nearest_command(const CLI::App& app, const std::string& word) {
    std::string nearest;
    std::size_t least = MOST_EDITS + 1;
    for (const CLI::App* const command : app.get_subcommands({})) {
        const std::size_t edits = edit_distance(word, command->get_name());
        if (edits < least) nearest = command->get_name();
        least = std::min(least, edits);
    }
    return nearest;
}

// Whether the first word is a command, or an option.
bool is_command_known(const CLI::App& app, const std::string& word) {
    const std::string nearest = nearest_command(app, word);
    if (word.starts_with('-') || word == nearest) return true;
    complain("there is no command \"" + word + "\"" +
             (nearest.empty() ? "; vornkit --help lists them" : ", did you mean \"" + nearest + "\"?"));
    return false;
}

// Whether all that went to standard output has arrived there.
bool is_output_written() { return std::fflush(stdout) == 0 && std::ferror(stdout) == 0; }

}  // namespace

int run_vornkit(int argc, const char* const* argv) {
    clean_up_when_interrupted();
    CLI::App app("vornkit: check, see, hear and vary scores for Vorn", "vornkit");
    Outcome outcome = Outcome::WELL;
    app.formatter(std::make_shared<ExamplesFirst>());
    app.footer("Example: vornkit check piece.vorn");
    app.set_version_flag("--version", std::string("vornkit ") + VERSION, "Print the version and exit");
    app.require_subcommand(1);
    for (const AddSubcommand add : SUBCOMMANDS) add(app, outcome);
    if (argc > 1 && !is_command_known(app, argv[1])) return static_cast<int>(Outcome::WRONG_USE);
    const int status = parse(app, argc, argv, outcome);
    if (status == static_cast<int>(Outcome::WRONG_USE) || is_output_written()) return status;
    complain("cannot write all to standard output");
    return static_cast<int>(Outcome::WRONG_USE);
}

}  // namespace vorn::kit
