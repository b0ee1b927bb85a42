#!/usr/bin/env python3
"""What scripts/faults makes of outcomes: a signal that comes while the run lasts must end
it, each signal that ends runs comes so at least once, and what is left out is told."""

import os
import signal
import sys

sys.path.insert(0, "scripts/lib")

from faults import full_devices, interrupts, runs, system_calls, verdict
from faults.cases import Case

OUTPUTS = {"out.sco": b"digest"}
UNDISTURBED = runs.Outcome(0, "", OUTPUTS, [], [])
ENDED = runs.Outcome(-15, "", {}, [], [])
LEAVING = runs.Outcome(-15, "", {}, [], ["vornAbCdEf"])
TOLD = runs.Outcome(1, 'ERROR: Can\'t write "out.sco".\n', {}, [], [])
SILENT = runs.Outcome(1, "", {}, [], [])
CUT = runs.Outcome(0, "", {"out.sco": b"another"}, [], [])

PLAIN = verdict.Fault("", "", {})
CHANCE = verdict.Fault("", "", {}, ends_by=15)
SURE = verdict.Fault("", "", {}, ends_by=15, surely=True)
LOST = verdict.Fault("", "", {}, must_be_told=True)

VERDICTS = [
    (PLAIN, UNDISTURBED, verdict.NO_EFFECT), (PLAIN, TOLD, verdict.MESSAGE), (PLAIN, SILENT, verdict.UNEXPECTED),
    (PLAIN, CUT, verdict.UNEXPECTED), (PLAIN, ENDED, verdict.UNEXPECTED),
    (CHANCE, UNDISTURBED, verdict.NO_EFFECT), (CHANCE, ENDED, verdict.SIGNAL), (CHANCE, LEAVING, verdict.UNEXPECTED),
    (SURE, UNDISTURBED, verdict.UNEXPECTED), (SURE, TOLD, verdict.UNEXPECTED), (SURE, ENDED, verdict.SIGNAL),
    (LOST, UNDISTURBED, verdict.UNEXPECTED), (LOST, TOLD, verdict.MESSAGE),
]


def wrong_verdicts():
    found = [(fault, outcome, verdict.judge(UNDISTURBED, outcome, fault)[0], wanted)
             for fault, outcome, wanted in VERDICTS]
    return [f"{fault} and {outcome}: {word}, not {wanted}" for fault, outcome, word, wanted in found if word != wanted]


def unsure_signals():
    """Those that end a run and never come at a moment at which it surely lasts."""
    planned = list(interrupts.faults(1.0, 1))
    sure = {fault.ends_by for fault in planned if fault.surely}
    deadly = {fault.ends_by for fault in planned} - {0, int(signal.SIGXFSZ)}
    return [] if sure == deadly and len(deadly) > 20 else [f"sure are {sorted(sure)}, not {sorted(deadly)}"]


def unsure_calls():
    faults = list(system_calls.faults_at([system_calls.Call("read", 7, False, False)]))
    signals = [fault for fault in faults if fault.ends_by]
    return [] if len(faults) == 3 and [fault.surely for fault in signals] == [True] else [f"at a call: {faults}"]


def ignored_signals():
    """A run meets a signal that whoever started the script had let it ignore."""
    before = signal.signal(signal.SIGHUP, signal.SIG_IGN)
    status = runs.run("/bin/sh", Case("", ("-c", "kill -HUP $$"), {})).status
    signal.signal(signal.SIGHUP, before)
    return [] if status == -signal.SIGHUP else [f"SIGHUP ends a run with status {status}"]


def untold():
    wrong = []
    with full_devices.small_device() as folder:
        if bool(folder) != full_devices.may_mount() or folder and os.statvfs(folder).f_blocks != 1:
            wrong.append(f"the small device is {folder}")
        if full_devices.left_out(folder) and folder:
            wrong.append("a device that is there is told as left out")
    full_devices.may_mount = lambda: False
    with full_devices.small_device() as folder:
        if folder or full_devices.SMALL_DEVICE not in "".join(full_devices.left_out(folder)):
            wrong.append("a device that may not be mounted is left out without a word")
    return wrong


problems = wrong_verdicts() + unsure_signals() + unsure_calls() + ignored_signals() + untold()
print("\n".join(problems))
sys.exit(1 if problems else 0)
