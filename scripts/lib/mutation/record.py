"""What the trials found: kept in a file, so that a run goes on where it was interrupted."""

import json
import os
import tomllib

from mutation.sample import key
from mutation.tests import BREAKS_OFF
from mutation.trial import NOT_COMPILED, SAME_CODE, SURVIVES, UNBUILT

GOAL = 97.0  # per cent of the changes that can be observed


class Record:
    """The outcome of each change by its key; one that survived is tried again."""

    def __init__(self, path):
        self.path = path
        self.outcomes = {}
        if os.path.exists(path):
            with open(path, encoding="utf-8") as file:
                self.outcomes = dict(json.loads(line) for line in file)

    def known(self, place):
        outcome = self.outcomes.get(key(place))
        return None if outcome == SURVIVES else outcome

    def add(self, place, outcome):
        self.outcomes[key(place)] = outcome
        with open(self.path, "a", encoding="utf-8") as file:
            file.write(json.dumps([key(place), outcome]) + "\n")


def read_reasons(path):
    """The changes that nobody can observe: their keys with the reasons."""
    with open(path, "rb") as file:
        entries = tomllib.load(file).get("change", [])
    return {"\n".join([entry["file"], entry["line"], entry["old"], entry["new"], str(entry.get("nth", 1))]):
            entry["reason"] for entry in entries}


def as_entry(place):
    """As the list of reasons holds it, the reason left open."""
    fields = ((name, getattr(place, name)) for name in ("file", "line", "old", "new"))
    lines = [f"[[change]]  # line {place.number}"] + [f"{name} = '''{value}'''" for name, value in fields]
    return "\n".join(lines + ([f"nth = {place.nth}"] if place.nth > 1 else []) + ['reason = ""', ""])


def apart(outcomes):
    """Of those killed, the ones at which no test failed as tests do."""
    counts = [f"{sum(outcome.endswith(how) for _, outcome in outcomes)} of them {how}" for how in (BREAKS_OFF, UNBUILT)]
    return f" ({', '.join(counts)})"


def report(outcomes, reasons):
    """Prints the survivors and the figures for [(place, outcome)]; whether the goal is reached."""
    survivors = [place for place, outcome in outcomes if outcome == SURVIVES]
    without_reason = [place for place in survivors if key(place) not in reasons]
    count = {kind: sum(outcome == kind for _, outcome in outcomes) for kind in (NOT_COMPILED, SAME_CODE)}
    killed = len(outcomes) - len(survivors) - sum(count.values())
    share = 100 * killed / max(1, killed + len(without_reason))
    for place in without_reason:
        print(as_entry(place))
    unobservable = len(survivors) - len(without_reason)
    print(f"{len(outcomes) - count[NOT_COMPILED]} changes: {killed} killed{apart(outcomes)}, "
          f"{len(without_reason)} survive, {unobservable} that nobody can observe, "
          f"{count[SAME_CODE]} the same machine code.\n"
          f"Killed of those that can be observed: {share:.1f} %")
    return share >= GOAL
