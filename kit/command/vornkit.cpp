#include "kit/command/vornkit.h"

#include <cstdio>
#include <memory>

#include "kit/command/console.h"
#include "kit/command/interruption.h"
#include "kit/command/subcommands.h"

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

// Whether all that went to standard output has arrived there.
bool is_output_written() { return std::fflush(stdout) == 0 && std::ferror(stdout) == 0; }

}  // namespace

int run_vornkit(int argc, const char* const* argv) {
    clean_up_when_interrupted();
    CLI::App app("vornkit: check, see, hear and vary scores for Vorn", "vornkit");
    Outcome outcome = Outcome::WELL;
    app.formatter(std::make_shared<ExamplesFirst>());
    app.footer("Example: vornkit check piece.vorn");
    app.require_subcommand(1);
    for (const AddSubcommand add : SUBCOMMANDS) add(app, outcome);
    const int status = parse(app, argc, argv, outcome);
    if (status == static_cast<int>(Outcome::WRONG_USE) || is_output_written()) return status;
    complain("cannot write all to standard output");
    return static_cast<int>(Outcome::WRONG_USE);
}

}  // namespace vorn::kit
