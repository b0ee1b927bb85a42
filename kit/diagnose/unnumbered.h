#pragma once

#include <string>
#include <string_view>

#include "kit/run/score_run.h"

// What a message is called. Those that the engine gives without a number are told apart by their words.

namespace vorn::kit {

// The code of a message without a number: "Einclude", "Wtempo"; of words that are not
// known "Eother" or "Wother". The text is as RunMessage has it.
[[nodiscard]] std::string_view unnumbered_code(Severity severity, std::string_view text);

// "E27", or that.
[[nodiscard]] std::string code_of(const RunMessage& message);

}  // namespace vorn::kit
