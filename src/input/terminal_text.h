#pragma once

#include <cstddef>
#include <cstdio>

// Text of a score or a name as a terminal may be shown it: what would command
// the terminal or turn the direction of writing is escaped, byte by byte.

namespace vorn {

constexpr std::size_t ESCAPE_SIZE = 4;  // columns of an escaped byte, "\x1B"

struct TerminalCharacter {
    std::size_t size;  // bytes, at least 1
    bool is_escaped;
};

// The first character of a text of `size` bytes, which is not empty.
TerminalCharacter terminal_character(const char* text, std::size_t size);

void write_to_terminal(std::FILE* terminal, const char* text, std::size_t size);

}  // namespace vorn
