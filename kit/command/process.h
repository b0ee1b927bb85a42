#pragma once

#include <string>
#include <string_view>
#include <vector>

// Other programs, started with their arguments as they are: no shell reads them,
// so that a name may hold blanks, quotes and every other byte.

namespace vorn::kit {

struct ProcessResult {
    bool is_missing = false;  // there is no such program
    int status = -1;          // its exit status; 128 and the signal's number when a signal ended it
    std::string output;       // what it wrote on standard output
    std::string errors;       // and on standard error; why it could not be started
};

// Runs arguments[0], looked up in PATH, feeds it `input` and waits for its end.
[[nodiscard]] ProcessResult run_process(const std::vector<std::string>& arguments,
                                        std::string_view input = {});

// Ends the programs that run now; for handlers of signals.
void end_running_processes();

// The arguments as the system wants them, a null behind the last; they must outlive it.
[[nodiscard]] std::vector<char*> argument_vector(const std::vector<std::string>& arguments);

// "rsvg-convert is needed for this and is not installed (Debian: apt install librsvg2-bin)"
[[nodiscard]] std::string how_to_install(const std::string& program, const std::string& package);

// The same where it is not installed; empty: it is.
[[nodiscard]] std::string reason_against_program(const std::string& program, const std::string& package);

}  // namespace vorn::kit
