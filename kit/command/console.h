#pragma once

#include <cstdio>
#include <string>

#include "kit/command/outcome.h"
#include "kit/diagnose/text_form.h"

// What the command says to people.

namespace vorn::kit {

bool is_terminal(std::FILE* stream);

// Whether a stream is a terminal that understands more than letters.
bool is_able_terminal(std::FILE* stream);

// How diagnostics are written to a stream: coloured on such a terminal, without NO_COLOR;
// and on no terminal are the control characters of a name or a score sent as they are.
[[nodiscard]] TextStyle style_for(std::FILE* stream);

// "vornkit: <text>" on standard error.
void complain(const std::string& text);

// The same, as the outcome of a wrong use.
Outcome wrong_use(const std::string& reason);

}  // namespace vorn::kit
