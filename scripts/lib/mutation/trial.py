"""What comes of one change: "killed by" a test, one of the outcomes below otherwise.

Where no test failed as tests do, the outcome ends with how it was noticed.
"""

import os

from mutation.build import LIBRARY
from mutation.tests import FAILS, all_tests, failure, in_order, temporary_folder

NOT_COMPILED = "does not compile"
SAME_CODE = "same machine code"
SURVIVES = "survives"
CORE = "vorn_core"
UNBUILT = "by a test that no longer compiles"  # behind a change of a header


def killed(test, how):
    return f"killed by {test}" + ("" if how == FAILS else f", {how}")


class Trial:
    """One change, tried in a temporary folder."""

    def __init__(self, build, top, name, text):
        self.build, self.top, self.name, self.text = build, top, name, text
        self.scratch = None

    def run(self):
        with temporary_folder() as self.scratch:
            return self.outcome()

    def outcome(self):
        self.write(self.text)
        changed = self.core_objects(CORE)
        if None in changed.values():
            return NOT_COMPILED
        if not self.build.link(LIBRARY, changed, os.path.join(self.scratch, LIBRARY)):
            return NOT_COMPILED
        for test in self.tests():
            program = self.test_program(test)
            how = failure(program, self.top, self.scratch, self.scratch) if program else UNBUILT
            if how is not None:
                return killed(test, how)
        return SAME_CODE if self.is_same_code() else SURVIVES

    def tests(self):
        """All, but for the first those that must be built anew for it behind the others."""
        first, *others = in_order(all_tests(self.build.folder), self.name)
        return [first] + sorted(others, key=lambda test: bool(self.build.dependents(self.name, test)))

    def write(self, text):
        path = os.path.join(self.scratch, "src", self.name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def core_objects(self, part, options=()):
        return {target: self.build.compile(target, self.scratch, self.name, options)
                for target in self.build.dependents(self.name, part)}

    def test_program(self, test):
        """As built or, where it includes the changed header, built anew; None if it cannot be."""
        changed = self.core_objects(test)
        if not changed:
            return os.path.join(self.build.folder, "tests", test)
        result = os.path.join(self.scratch, test)
        linked = None not in changed.values() and self.build.link("tests/" + test, changed, result)
        return result if linked else None

    def is_same_code(self):
        """Whether the optimizer makes the same of the change as of what was there."""
        changed = self.bytes_of_core()
        with open(os.path.join(self.top, "src", self.name), encoding="utf-8") as file:
            self.write(file.read())
        return changed == self.bytes_of_core()

    def bytes_of_core(self):
        found = []
        for path in self.core_objects(CORE, ["-O2"]).values():
            with open(path, "rb") as file:
                found.append(file.read())
        return found
