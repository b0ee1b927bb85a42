#include "driver/interrupts.h"

#ifndef __wasi__
#include <signal.h>
#include <unistd.h>

#include <initializer_list>

#include "driver/temporary_file.h"
#endif

// An interrupted run leaves no temporary file behind.
// The handler calls only what is safe in one: unlink, signal, raise.

namespace vorn {

#ifdef __wasi__

void remove_temporary_file_on_interrupt() {}  // no signal reaches a program there

#else

namespace {

extern "C" void end_by_signal(int number) {
    if (tmp_fname[0] != 0) unlink(tmp_fname);
    signal(number, SIG_DFL);
    raise(number);
}

}  // namespace

void remove_temporary_file_on_interrupt() {
    for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGALRM, SIGTERM, SIGXCPU, SIGUSR1, SIGUSR2,
                             SIGVTALRM, SIGPROF}) {
        struct sigaction action = {};
        sigaction(number, nullptr, &action);
        if (action.sa_handler == SIG_IGN) continue;
        action.sa_handler = end_by_signal;
        sigaction(number, &action, nullptr);
    }
    // A file-size limit is a write that fails, and is reported as one.
    signal(SIGXFSZ, SIG_IGN);
}

#endif

}  // namespace vorn
