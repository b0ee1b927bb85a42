#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "kit/command/outcome.h"

// Tasks that processes of their own take in turn: the engine has one state, so a
// process runs one score at a time; and one that crashes takes no other with it.

namespace vorn::kit {

struct TaskResult {
    std::size_t task = 0;
    Outcome outcome = Outcome::WELL;
    std::string reason;  // cut to some thousand bytes
};

struct WorkerOptions {
    std::size_t tasks = 0;
    std::size_t processes = 1;
    std::function<TaskResult(std::size_t task)> work;      // in one of the processes
    std::function<void(const TaskResult& result)> report;  // in this one
};

// Works off tasks 0 to tasks - 1. The number of the signal that has ended it early
// (interrupt, termination, the terminal's end); 0: all tasks have been reported.
[[nodiscard]] int run_workers(const WorkerOptions& options);

// Ends this process as that signal does, so that who started it sees why.
[[noreturn]] void end_by_signal(int number);

// As many as there are processors.
[[nodiscard]] std::size_t usual_processes();

}  // namespace vorn::kit
