"""What may come of a run with a fault, and the table of what came."""

import collections
import dataclasses
import re

from faults import runs

# Every message that a run may end with when its machine fails it.
TOLD = re.compile(r'ERROR: Can\'t (open|write) ".*"\.\n|ERROR: Can\'t open temporary file\n'
                  r"|ERROR: Ouch! Can't open the temporary file \(huh\?\)\.\n|ERROR: .*Yikes, (out of|not enough) memory.*\n"
                  r'|ERROR: Line \d+:(Premature end-of-file!|misplaced "<" \(or memory error\)\.)\n'
                  r'|Bad include file name: ".*"\n'
                  r"|ERROR: You can't use a filename multiple times!\n")
TEMPORARY_NAME = re.compile(r'"[^"]*/vorn[A-Za-z0-9]{6}"')

NO_EFFECT = "no effect"
MESSAGE = "message"
SIGNAL = "signal"
UNEXPECTED = "unexpected"


@dataclasses.dataclass(frozen=True)
class Fault:
    kind: str  # the row of the table
    label: str
    options: dict  # of runs.run
    ends_by: int = 0  # a signal
    surely: bool = False  # it comes while the run lasts, so nothing else may end that
    messages_may_lack: bool = False
    must_be_told: bool = False  # the bytes that were lost belong to an output
    may_leave: bool = False  # the temporary file, when nothing can remove it


def same_messages(a, b):
    return TEMPORARY_NAME.sub("", a.messages) == TEMPORARY_NAME.sub("", b.messages)


def judge(reference, outcome, fault):
    """One of the words above, and for UNEXPECTED the reason."""
    if outcome.status == runs.HANGS:
        return UNEXPECTED, "hangs"
    if outcome.changed_inputs:
        return UNEXPECTED, f"changes {outcome.changed_inputs}"
    if outcome.left and not fault.may_leave:
        return UNEXPECTED, f"leaves a temporary file, status {outcome.status}"
    if fault.ends_by and outcome.status == -fault.ends_by:
        return SIGNAL, ""
    if fault.surely:
        return UNEXPECTED, f"signal {fault.ends_by} does not end it, status {outcome.status}"
    if outcome.status == reference.status and outcome.outputs == reference.outputs and not fault.must_be_told:
        if fault.messages_may_lack or same_messages(outcome, reference):
            return NO_EFFECT, ""
    if outcome.status == 1 and (fault.messages_may_lack or TOLD.search(outcome.messages)):
        return MESSAGE, ""
    differing = [name for name, data in reference.outputs.items() if outcome.outputs.get(name) != data]
    return UNEXPECTED, f"status {outcome.status}, other {differing}, {outcome.messages[-100:]!r}"


class Table:
    def __init__(self):
        self.rows = collections.defaultdict(collections.Counter)
        self.surprises = []

    def add(self, fault, case, word, reason):
        self.rows[fault.kind][word] += 1
        if word == UNEXPECTED:
            self.surprises.append(f"{case}: {fault.kind}, {fault.label}: {reason}")

    def text(self):
        words = [NO_EFFECT, MESSAGE, SIGNAL, UNEXPECTED]
        lines = [f"{'fault':34}{'runs':>7}" + "".join(f"{word:>12}" for word in words)]
        total = sum(self.rows.values(), collections.Counter())
        for kind, counts in [*self.rows.items(), ("all", total)]:
            lines.append(f"{kind:34}{counts.total():7}" + "".join(f"{counts[word]:12}" for word in words))
        return "\n".join(lines + self.surprises)
