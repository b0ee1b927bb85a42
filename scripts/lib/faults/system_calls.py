"""Every system call of a run fails once, and is once interrupted by a signal.

strace counts the calls of each name and makes one of them fail. The loader's own
stand first and are left alone: the program begins when it holds its standard streams.
"""

import collections
import re
import signal
import tempfile

from faults import runs
from faults.verdict import Fault

BEGINNING = 'openat(AT_FDCWD, "/dev/null", O_RDWR'
CALL = re.compile(r"(\w+)\(")
NOT_FAILING = {"execve", "exit_group", "rt_sigaction", "rt_sigreturn"}
FAILURES = {"openat": "error=EMFILE", "write": "error=ENOSPC", "mmap": "error=ENOMEM", "brk": "retval=0",
            "unlink": "error=EACCES", "ioctl": "error=ENOTTY"}
OTHER_FAILURE = "error=EIO"


def trace(program, case):
    with tempfile.NamedTemporaryFile(mode="r") as traced:
        runs.run(program, case, prefix=["strace", "-o", traced.name])
        return traced.read().splitlines()


def numbered_calls(lines):
    """(name, how many of that name so far) of each call of the program itself."""
    seen = collections.Counter()
    begun = False
    for line in lines:
        call = CALL.match(line)
        if call is None:
            continue
        seen[call[1]] += 1
        begun = begun or line.startswith(BEGINNING)
        if begun and call[1] not in NOT_FAILING:
            yield call[1], seen[call[1]]


def injecting(name, number, what):
    return {"prefix": ["strace", "-o", "/dev/null", "-e", f"trace={name}",
                       "-e", f"inject={name}:{what}:when={number}"]}


def faults(program, case):
    calls = list(numbered_calls(trace(program, case)))
    if not calls:
        raise RuntimeError("strace saw no beginning of the program")
    for name, number in calls:
        what = FAILURES.get(name, OTHER_FAILURE)
        for times in ("", "+"):
            kind = f"{name}: {what.partition('=')[2]}" + (", and all further" if times else "")
            yield Fault(kind, f"number {number}", injecting(name, f"{number}{times}", what),
                        messages_may_lack=name == "write", may_leave=name == "unlink")
        yield Fault("a signal at a system call", f"{name} {number}",
                    injecting(name, number, f"signal={signal.SIGTERM.value}"), ends_by=signal.SIGTERM.value)
