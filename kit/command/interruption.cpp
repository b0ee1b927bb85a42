#include "kit/command/interruption.h"

#include <unistd.h>

#include <csignal>

#include "driver/temporary_file.h"
#include "kit/command/atomic_file.h"
#include "kit/command/process.h"

// The handler then lets the signal do what it does of itself, so that whoever
// waits for the command sees that it was interrupted. A signal that was ignored
// from the start (nohup) stays so. A file that may not grow further ends nothing: to
// write it fails, as on a full disk, and that is told.

namespace vorn::kit {

namespace {

constexpr int ENDING_SIGNALS[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE};

void clean_up(int signal) {
    end_running_processes();
    drop_unfinished_files();
    if (tmp_fname[0] != 0) unlink(tmp_fname);  // of the run that goes on in this process
    raise(signal);  // held back until the handler is over; the default action is back by then
}

}  // namespace

void clean_up_when_interrupted() {
    std::signal(SIGXFSZ, SIG_IGN);
    for (const int signal : ENDING_SIGNALS) {
        struct sigaction before = {};
        if (sigaction(signal, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) continue;
        struct sigaction action = {};
        action.sa_handler = clean_up;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        sigfillset(&action.sa_mask);
        sigaction(signal, &action, nullptr);
    }
}

}  // namespace vorn::kit
