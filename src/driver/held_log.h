#pragma once

#include <cstdio>

// The log while includes are copied: it waits in memory, so that an include that
// is the log itself keeps its text.

namespace vorn {

// From here on fllog writes to memory, if the log is a regular file; others cannot
// be lost. False: out of memory; fllog is then as it was.
[[nodiscard]] bool hold_log();

std::FILE* held_log();  // the log itself while it is held; null otherwise

// Writes what has waited; fllog is the log again. False: memory did not hold all of it.
bool release_log();

// Closes the held log as it was and drops what has waited. There is no log any more.
void drop_log();

}  // namespace vorn
