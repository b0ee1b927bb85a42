"""Runs the built test programs with a changed library until the first fails.

A test that goes on for ever, or that asks for ever more memory or disk, is one
that fails: the limits lie far above what the tests need.
"""

import glob
import os
import signal
import subprocess
import tempfile

LIMITS = ["prlimit", "--cpu=20", f"--as={4 << 30}", f"--fsize={1 << 30}", "--core=0"]
MEMORY = "/dev/shm"  # a disk would make the tests slower
PATIENCE = 900  # seconds, also on a machine that has much else to do: processor time ends what hangs
# How a test program ends, but for None: that it passes.
FAILS = "fails"
BREAKS_OFF = "by time or a signal"  # a crash, a limit, or a machine without memory
SLOW = ("rounds_test", "notation_", "odd_", "observer_test", "cases_test")  # in this order behind all others


def temporary_folder():
    return tempfile.TemporaryDirectory(prefix="vm", dir=MEMORY if os.path.isdir(MEMORY) else None,
                                       ignore_cleanup_errors=True)


def all_tests(build_folder):
    found = glob.glob(os.path.join(build_folder, "tests", "*_test"))
    return sorted(os.path.basename(path) for path in found)


def in_order(tests, name):
    """Those of the file first, then those of its folder, and last what runs whole scores."""
    stem = os.path.splitext(name)[0].replace("/", "_")
    folder = name.split("/")[0] + "_"

    def rank(test):
        slow = [at for at, start in enumerate(SLOW, 1) if test.startswith(start)]
        return (test != stem + "_test", slow or [0], not test.startswith(folder), test)

    return sorted(tests, key=rank)


def failure(program, top, scratch, library_folder):
    """Run from the top of the checkout; what failed, once more: a machine may lack room for a moment."""
    arguments = (program, top, scratch, library_folder)
    status = ended_with(*arguments)
    if status:
        status = ended_with(*arguments)
    if status == 0:
        return None
    return BREAKS_OFF if status is None or status < 0 else FAILS


def ended_with(program, top, scratch, library_folder):
    """The status of a test program, negative after a signal, None when it lasts too long."""
    environment = {**os.environ, "LD_LIBRARY_PATH": library_folder, "TMPDIR": scratch, "GTEST_FAIL_FAST": "1"}
    with subprocess.Popen(LIMITS + [program, "--gtest_brief=1"], cwd=top, env=environment,
                          stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                          start_new_session=True) as process:
        try:
            return process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            return None
        finally:
            end_group(process.pid)


def end_group(leader):
    """What a program that failed may have left running."""
    try:
        os.killpg(leader, signal.SIGKILL)
    except ProcessLookupError:
        pass
