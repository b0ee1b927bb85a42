"""Outputs, messages and the temporary file on devices without room."""

import contextlib
import dataclasses
import os
import subprocess
import tempfile

from faults.verdict import Fault

SIZES = (0, 1, 100, 4095, 4096, 4097, 65536, 1 << 20)


def on_full_device(case):
    """The case once for each output that it names, with the full device in its place."""
    for place, name in enumerate(case.arguments):
        if name.startswith(("out.", "run.")):
            arguments = (*case.arguments[:place], "/dev/full", *case.arguments[place + 1:])
            yield dataclasses.replace(case, arguments=arguments), Fault("an output on /dev/full", name, {})


def faults():
    for size in SIZES:
        yield Fault("files of a limited size", f"{size} bytes", {"file_size": size})
    full = os.open("/dev/full", os.O_WRONLY)
    yield Fault("messages on /dev/full", "", {"error": full}, messages_may_lack=True)


@contextlib.contextmanager
def small_device():
    """A device of one page for temporary files; None where this user may make none."""
    with tempfile.TemporaryDirectory(prefix="vorn-faults-") as folder:
        mounted = os.geteuid() == 0 and subprocess.run(
            ["mount", "-t", "tmpfs", "-o", "size=4096", "none", folder]).returncode == 0
        try:
            yield folder if mounted else None
        finally:
            if mounted:
                subprocess.run(["umount", folder], check=True)


def small_device_fault(folder):
    return Fault("a temporary file without room", folder, {"temporary": folder})
