#pragma once

namespace vorn::kit {

// The command vornkit: picks the subcommand, runs it, returns the exit status.
[[nodiscard]] int run_vornkit(int argc, const char* const* argv);

}  // namespace vorn::kit
