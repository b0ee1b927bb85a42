"""Outputs, messages and the temporary file on devices without room."""

import contextlib
import dataclasses
import os
import pathlib
import re
import subprocess
import tempfile

from faults.verdict import Fault

SIZES = (0, 1, 100, 4095, 4096, 4097, 65536, 1 << 20)
SMALL_DEVICE = "a temporary file without room"
CAP_SYS_ADMIN = 21  # the bit of the capability that mounting takes


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


def may_mount():
    """Root in a container may lack the capability, too."""
    capabilities = re.search(r"^CapEff:\s*(\w+)", pathlib.Path("/proc/self/status").read_text(), re.MULTILINE)
    return bool(int(capabilities[1], 16) >> CAP_SYS_ADMIN & 1)


@contextlib.contextmanager
def small_device():
    """A device of one page for temporary files; None where this user may make none."""
    if not may_mount():
        yield None
        return
    with tempfile.TemporaryDirectory(prefix="vorn-faults-") as folder:
        subprocess.run(["mount", "-t", "tmpfs", "-o", "size=4096", "none", folder], check=True)
        try:
            yield folder
        finally:
            subprocess.run(["umount", folder], check=True)


def left_out(folder):
    """What is told of the faults that were not tried; `folder`: the small device, or None."""
    return [] if folder else [f"Left out: {SMALL_DEVICE}; this user may mount no device."]


def small_device_fault(folder):
    return Fault(SMALL_DEVICE, folder, {"temporary": folder})
