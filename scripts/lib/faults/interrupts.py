"""A run of ten million events gets every signal, each at random moments of it."""

import random
import signal
import time

from faults import runs
from faults.cases import case_of_text
from faults.verdict import Fault

LONG_SCORE = case_of_text("ten million events", "i1 = 3 0 -10000000 {\np2 1\np3 1\n}\n", "in.vorn out.sco")
START = 0.01  # seconds in which a run opens its files, and hardly more

IGNORED = {signal.SIGCHLD, signal.SIGCONT, signal.SIGURG, signal.SIGWINCH, signal.SIGXFSZ}
STOPPING = {signal.SIGSTOP, signal.SIGTSTP, signal.SIGTTIN, signal.SIGTTOU}
LASTING = IGNORED | STOPPING  # a run goes on behind them
EARLY = {signal.SIGXFSZ}  # which ends a run that has not yet begun to ignore it
# They tell that the program is broken, so it does nothing more, and nothing runs behind the last.
LEAVING = {signal.SIGILL, signal.SIGTRAP, signal.SIGABRT, signal.SIGBUS, signal.SIGFPE, signal.SIGSEGV,
           signal.SIGSYS, signal.SIGKILL}


def kind_of(number):
    if number in IGNORED:
        return "a signal that is ignored"
    if number in STOPPING:
        return "a signal that stops for a while"
    return "a signal of a broken program" if number in LEAVING else "a signal that ends the run"


def sending(number, moment):
    def disturb(process):
        time.sleep(moment)
        process.send_signal(number)
        if number in STOPPING:
            time.sleep(0.1)
            process.send_signal(signal.SIGCONT)
    return disturb


def faults(seconds, seed):
    """`seconds`: how long the run takes when nothing disturbs it."""
    chance = random.Random(seed)
    for number in sorted(signal.valid_signals()):
        for moment in (chance.uniform(0, START), chance.uniform(0, seconds), chance.uniform(0, seconds)):
            yield Fault(kind_of(number), f"{signal.strsignal(number)} after {moment:.4f} s",
                        {"disturb": sending(number, moment)}, may_leave=number in LEAVING,
                        ends_by=0 if number in LASTING - EARLY else int(number),
                        surely=moment <= START and number not in LASTING)


def planned(program, seed):
    start = time.monotonic()
    reference = runs.run(program, LONG_SCORE)
    seconds = time.monotonic() - start
    yield from ((reference, LONG_SCORE, fault) for fault in faults(seconds, seed))
