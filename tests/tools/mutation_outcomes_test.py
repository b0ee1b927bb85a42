#!/usr/bin/env python3
"""How scripts/mutate tells that a change was noticed: by a test that fails, by one that a
signal or its time ends, or by one that no longer compiles; each in the figures."""

import contextlib
import io
import os
import pathlib
import sys
import tempfile

sys.path.insert(0, "scripts/lib")

from mutation import tests, trial
from mutation.places import find_places
from mutation.record import report

ONCE = '[ -e "$0.again" ] || { : >"$0.again"; %s; }'  # a machine without room for a moment
PROGRAMS = {
    "passes": (":", None),
    "fails": ("exit 1", tests.FAILS),
    "fails once": (ONCE % "exit 1", None),
    "is killed": ("kill -KILL $$", tests.BREAKS_OFF),
    "is killed once": (ONCE % "kill -KILL $$", None),
    "crashes": ("kill -SEGV $$", tests.BREAKS_OFF),
    "hangs": ("sleep 60", tests.BREAKS_OFF),
}


def write_program(folder, name, text):
    path = pathlib.Path(folder, name)
    path.write_text(f"#!/bin/sh\n{text}\n")
    path.chmod(0o755)
    return str(path)


def wrong_failures(folder):
    found = {}
    for name, (text, _) in PROGRAMS.items():
        tests.PATIENCE = 0.5 if name == "hangs" else 60
        found[name] = tests.failure(write_program(folder, name, text), folder, folder, folder)
    tests.PATIENCE = 60
    return [f"what {name}: {found[name]}" for name, (_, wanted) in PROGRAMS.items() if found[name] != wanted]


class Build:
    """One test, which includes the changed file."""

    def __init__(self, folder, compiles):
        self.folder, self.compiles = folder, compiles

    def dependents(self, name, part):
        return [f"{part}.o"]

    def compile(self, target, scratch, name, options=()):
        return None if target == "some_test.o" and not self.compiles else target

    def link(self, target, objects, result):
        if target != trial.LIBRARY:
            os.symlink(os.path.join(self.folder, target), result)
        return True


def wrong_outcomes(folder):
    wanted = [("fails", True, "killed by some_test"), ("crashes", True, f"killed by some_test, {tests.BREAKS_OFF}"),
              ("passes", False, f"killed by some_test, {trial.UNBUILT}")]
    os.mkdir(os.path.join(folder, "tests"))
    wrong = []
    for program, compiles, outcome in wanted:
        write_program(folder, "tests/some_test", PROGRAMS[program][0])
        found = trial.Trial(Build(folder, compiles), folder, "a.h", "").run()
        wrong += [] if found == outcome else [f"where a test {program}: {found}"]
    return wrong


def wrong_figures():
    outcomes = [trial.killed("a_test", how) for how in (tests.FAILS, tests.FAILS, tests.BREAKS_OFF, trial.UNBUILT)]
    outcomes += [trial.SURVIVES, trial.NOT_COMPILED, trial.SAME_CODE]
    place = next(find_places("a.cpp", "a = b < c;"))
    told = io.StringIO()
    with contextlib.redirect_stdout(told):
        report([(place, outcome) for outcome in outcomes], {})
    wanted = ["6 changes: 4 killed (1 of them by time or a signal, 1 of them by a test that no longer compiles), "
              "1 survive, 0 that nobody can observe, 1 the same machine code.",
              "Killed of those that can be observed: 80.0 %"]
    return [] if told.getvalue().splitlines()[-2:] == wanted else [told.getvalue()]


with tempfile.TemporaryDirectory() as work:
    problems = wrong_failures(work) + wrong_outcomes(work) + wrong_figures()
print("\n".join(problems))
sys.exit(1 if problems else 0)
