#pragma once

#include_next <signal.h>

// Signals that Windows never sends have numbers that nothing raises, and sigaction
// is what signal can do: a handler, without a mask or options.

#define SIGHUP 1
#define SIGQUIT 3
#define SIGPIPE 13
#define SIGALRM 14
#define SIGXCPU 24
#define SIGXFSZ 25
#define SIGVTALRM 26
#define SIGPROF 27
#define SIGUSR1 30
#define SIGUSR2 31

struct sigaction {
    void (*sa_handler)(int);
};

extern "C" int sigaction(int number, const struct sigaction* wanted, struct sigaction* before);
