#pragma once

#include <cstdio>
#include <string>

// What the command says to people.

namespace vorn::kit {

bool is_terminal(std::FILE* stream);

// Whether colours may be used on a stream: a terminal, and no NO_COLOR.
bool has_colors(std::FILE* stream);

// "vornkit: <text>" on standard error.
void complain(const std::string& text);

// Refuses an output that is one of the score's own files, or a folder.
class SystemSources;
[[nodiscard]] bool may_write(const std::string& path, const SystemSources& sources);

}  // namespace vorn::kit
