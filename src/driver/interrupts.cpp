#include "driver/interrupts.h"

#ifndef __wasi__
#include <signal.h>
#include <unistd.h>

#include <initializer_list>

#include "driver/temporary_file.h"
#endif

// An interrupted run leaves no temporary file behind.
// The handler calls only what is safe in one: unlink, signal, raise.
//
// A signal that tells of a fault in the program itself (SIGSEGV, SIGABRT and the
// like) is left alone: the name may be overwritten like anything else by then.

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

void catch_signal(int number) {
    struct sigaction action = {};
    sigaction(number, nullptr, &action);
    if (action.sa_handler == SIG_IGN) return;
    action.sa_handler = end_by_signal;
    sigaction(number, &action, nullptr);
}

}  // namespace

void remove_temporary_file_on_interrupt() {
    for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGALRM, SIGTERM, SIGXCPU, SIGUSR1, SIGUSR2,
                             SIGVTALRM, SIGPROF}) {
        catch_signal(number);
    }
#ifdef __linux__  // elsewhere they are missing or do not end a process
    for (const int number : {SIGIO, SIGPWR, SIGSTKFLT}) catch_signal(number);
    for (int number = SIGRTMIN; number <= SIGRTMAX; ++number) catch_signal(number);
#endif
    // A file-size limit is a write that fails, and is reported as one.
    signal(SIGXFSZ, SIG_IGN);
}

#endif

}  // namespace vorn
