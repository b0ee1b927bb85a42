"""Every system call of a run fails once, and is once interrupted by a signal.

strace counts the calls of each name and makes one of them fail. The loader's own
stand first and are left alone: the program begins when it holds its standard streams.
So are those that set a signal's routine or end the process, and those that a case
names, since its outcome may depend on them (cases.py).
What a failed call on an output costs must be told. What one on the temporary file costs
is missing in the output, if it is not told.
"""

import collections
import dataclasses
import re
import signal
import tempfile

from faults import runs
from faults.verdict import Fault

BEGINNING = re.compile(r'openat\(AT_FDCWD(<[^>]*>)?, "/dev/null", O_RDWR')
CALL = re.compile(r"(\w+)\((?:(\d+)<([^>]*)>)?")
NOT_FAILING = {"execve", "exit_group", "rt_sigaction", "rt_sigreturn"}
FAILURES = {"openat": "error=EMFILE", "write": "error=ENOSPC", "mmap": "error=ENOMEM", "brk": "retval=0",
            "unlink": "error=EACCES", "ioctl": "error=ENOTTY"}
OTHER_FAILURE = "error=EIO"
STANDARD_STREAMS = {"0", "1", "2"}  # what is said to them may be lost
HOLDS_BYTES = {"write", "close"}  # of a file: when they fail, its bytes may not be there


@dataclasses.dataclass(frozen=True)
class Call:
    name: str
    number: int  # how many of that name so far, from the first of the process on
    on_stream: bool
    on_output: bool


def trace(program, case):
    with tempfile.NamedTemporaryFile(mode="r") as traced:
        runs.run(program, case, prefix=["strace", "-y", "-o", traced.name])
        return traced.read().splitlines()


def is_output(path, case):
    name = path.rpartition("/")[2]
    return name not in case.inputs and name in case.arguments


def numbered_calls(lines, case):
    """Each call of the program itself."""
    seen = collections.Counter()
    begun = False
    for line in lines:
        call = CALL.match(line)
        if call is None:
            continue
        name, descriptor, path = call.groups()
        seen[name] += 1
        begun = begun or BEGINNING.match(line) is not None
        if begun and name not in NOT_FAILING and name not in case.not_failing:
            yield Call(name, seen[name], descriptor in STANDARD_STREAMS, bool(path) and is_output(path, case))


def injecting(name, number, what):
    return {"prefix": ["strace", "-o", "/dev/null", "-e", f"trace={name}",
                       "-e", f"inject={name}:{what}:when={number}"]}


def faults(program, case):
    calls = list(numbered_calls(trace(program, case), case))
    if not any(call.on_output and call.name == "close" for call in calls):
        raise RuntimeError("strace saw no output of the program")
    return faults_at(calls)


def faults_at(calls):
    for call in calls:
        what = FAILURES.get(call.name, OTHER_FAILURE)
        for times in ("", "+"):
            kind = f"{call.name}: {what.partition('=')[2]}" + (", and all further" if times else "")
            yield Fault(kind, f"number {call.number}", injecting(call.name, f"{call.number}{times}", what),
                        must_be_told=call.on_output and call.name in HOLDS_BYTES,
                        messages_may_lack=call.name == "write" and (call.on_stream or bool(times)),
                        may_leave=call.name == "unlink")
        yield Fault("a signal at a system call", f"{call.name} {call.number}",
                    injecting(call.name, call.number, f"signal={signal.SIGTERM.value}"),
                    ends_by=signal.SIGTERM.value, surely=True)
