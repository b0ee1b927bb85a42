#pragma once

#include <CLI/CLI.hpp>

#include "kit/command/outcome.h"

// One routine a subcommand: it adds itself to the application and, when the
// command line asks for it, runs and leaves its outcome.

namespace vorn::kit {

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
