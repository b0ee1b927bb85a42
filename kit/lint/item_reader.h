#pragma once

#include "kit/lint/statement.h"

// Reads a statement's text, "p4 ..." with blanks for comments, into items.

namespace vorn::kit {

// Once before any statement: no run may be going on, and what the last one left is forgotten.
void begin_reading_items();

// False when an item cannot be read; those before it are there.
[[nodiscard]] bool read_items(const std::string& text, std::vector<Item>& items);

}  // namespace vorn::kit
