#pragma once

#include <csignal>

namespace vorn::kit {

// Signals wait as long as it lives: for steps that are short and must not be torn apart.
class SignalsHeldBack {
public:
    SignalsHeldBack() {
        sigset_t all;
        sigfillset(&all);
        sigprocmask(SIG_SETMASK, &all, &before_);
    }
    ~SignalsHeldBack() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
    SignalsHeldBack(const SignalsHeldBack&) = delete;
    SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;

private:
    sigset_t before_ = {};
};

}  // namespace vorn::kit
