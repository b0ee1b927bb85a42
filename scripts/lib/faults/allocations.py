"""Every allocation of a run fails once, and once with all that follow it."""

import os
import pathlib
import subprocess
import tempfile

from faults import runs
from faults.verdict import Fault

SOURCE = pathlib.Path(__file__).with_name("failing_allocation.cpp")


def build_library(folder):
    library = pathlib.Path(folder, "failing_allocation.so")
    compiler = os.environ.get("CXX", "c++")
    subprocess.run([compiler, "-std=c++20", "-O1", "-shared", "-fPIC", SOURCE, "-o", library], check=True)
    return str(library)


def count(program, case, library):
    with tempfile.NamedTemporaryFile() as counted:
        runs.run(program, case, environment={"LD_PRELOAD": library, "ALLOCATION_COUNT": counted.name})
        return int(counted.read())


def faults(program, case, library):
    for number in range(1, count(program, case, library) + 1):
        for further, kind in (("0", "an allocation"), ("1", "an allocation and all further")):
            environment = {"LD_PRELOAD": library, "FAILING_ALLOCATION": str(number), "FAILING_FURTHER": further}
            yield Fault(kind, f"number {number}", {"environment": environment})
