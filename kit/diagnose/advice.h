#pragma once

#include "kit/diagnose/diagnostic.h"
#include "kit/diagnose/site.h"

namespace vorn::kit {

// Adds to a diagnostic what probably happened at its place and what to write
// instead: advice, notes on other places, edits.
void add_advice(const Site& site, Stretch mark, Diagnostic& diagnostic);

}  // namespace vorn::kit
