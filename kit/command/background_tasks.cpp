#include "kit/command/background_tasks.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "kit/command/console.h"
#include "kit/command/process.h"

// Children begin with no signal blocked and the default action for each, whatever
// their parent waits for.

namespace vorn::kit {

namespace {

pid_t spawn(const std::vector<std::string>& arguments) {
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    pid_t child = 0;
    const std::vector<char*> vector = argument_vector(arguments);
    const int failed =
        posix_spawnp(&child, arguments[0].c_str(), nullptr, &attributes, vector.data(), environ);
    posix_spawnattr_destroy(&attributes);
    if (failed != 0) complain("cannot run " + arguments[0]);
    return failed != 0 ? 0 : child;
}

}  // namespace

void BackgroundTasks::begin_next() {
    if (waiting_.empty()) return;
    running_ = spawn(waiting_.front());
    waiting_.pop_front();
}

void BackgroundTasks::replace(std::deque<std::vector<std::string>> tasks) {
    if (running_ > 0) {
        kill(running_, SIGTERM);
        waitpid(running_, nullptr, 0);
        running_ = 0;
    }
    waiting_ = std::move(tasks);
    begin_next();
}

void BackgroundTasks::take_ended() {
    int status = 0;
    if (running_ <= 0 || waitpid(running_, &status, WNOHANG) != running_) return;
    running_ = 0;
    if (status != 0) waiting_.clear();
    begin_next();
}

}  // namespace vorn::kit
