#pragma once

#include <optional>
#include <string_view>

#include "kit/events/event_columns.h"
#include "kit/lint/lint.h"
#include "kit/picture/picture.h"

// What a caller wants to know of a score: names and values in turn, each ended by a NUL
// byte, as src/request.ts writes them. Names of lists come once for each of their values:
//
//     argument -s  argument piece.vorn  argument piece.sco  output csv  seed 7

namespace vorn::web {

struct Request {
    std::vector<std::string> arguments;       // of the run that is observed; the last two are files
    std::vector<std::string> midi_arguments;  // of a further run, that of the first block's MIDI file; none
    std::optional<unsigned> seed;             // in the place of the score's own
    std::vector<std::string> outputs;
    kit::RunOptions run;
    kit::LintOptions lint;
    kit::WantedRoles roles;
    kit::EventsOptions events;
    kit::PictureOptions picture;
    std::string title;

    bool wants(std::string_view output) const;
    const std::string& score_name() const { return arguments[arguments.size() - 2]; }
};

[[nodiscard]] Request read_request(std::string_view text);

// Texts that end with a NUL byte each.
[[nodiscard]] std::vector<std::string> split(std::string_view text);

}  // namespace vorn::web
