#pragma once

#include <CLI/CLI.hpp>

// One routine a subcommand: it adds itself to the application and, when the
// command line asks for it, runs and leaves its outcome.

namespace vorn::kit {

// What the status of every subcommand means.
enum class Outcome : int {
    WELL = 0,
    REFUSED = 1,    // the score has a mistake
    WRONG_USE = 2,  // an argument, a file or a program that is needed is not as it must be
};

void add_check(CLI::App& app, Outcome& outcome);
void add_explain(CLI::App& app, Outcome& outcome);
void add_events(CLI::App& app, Outcome& outcome);
void add_midi(CLI::App& app, Outcome& outcome);
void add_new(CLI::App& app, Outcome& outcome);
void add_play(CLI::App& app, Outcome& outcome);
void add_vary(CLI::App& app, Outcome& outcome);
void add_watch(CLI::App& app, Outcome& outcome);
void add_picture(CLI::App& app, Outcome& outcome);
void add_words(CLI::App& app, Outcome& outcome);

}  // namespace vorn::kit
