"""A run of the program in a folder of its own, with a fault, and all that it leaves behind."""

import dataclasses
import hashlib
import os
import pathlib
import resource
import shutil
import signal
import subprocess
import tempfile

TIME_LIMIT = 60  # seconds
HANGS = "hangs"
OLDER_TEXT = b"older text\n" * 1000  # of the outputs: what a run must replace or leave, not mix


@dataclasses.dataclass(frozen=True)
class Outcome:
    status: object  # a number, below 0 minus a signal's; HANGS
    messages: str
    outputs: dict  # digests by name
    changed_inputs: list
    left: list  # temporary files


def digest(data):
    return hashlib.blake2b(data).digest()


def digests_of(folder):
    return {str(path.relative_to(folder)): digest(path.read_bytes())
            for path in folder.rglob("*") if path.is_file()}


def fill(folder, case):
    for name, data in case.inputs.items():
        (folder / name).parent.mkdir(parents=True, exist_ok=True)
        (folder / name).write_bytes(data)
    for name in case.arguments:
        if name.startswith(("out.", "run.")):
            (folder / name).write_bytes(OLDER_TEXT)


def begin_afresh(file_size):
    """A job in the background or under nohup ignores signals that its runs must meet."""
    for number in signal.valid_signals():
        if signal.getsignal(number) == signal.SIG_IGN:
            signal.signal(number, signal.SIG_DFL)
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    if file_size is not None:
        resource.setrlimit(resource.RLIMIT_FSIZE, (file_size, file_size))


def run(program, case, prefix=(), environment=None, file_size=None, error=subprocess.PIPE, temporary=None,
        disturb=lambda process: None):
    """`prefix`: a command that runs the program; `temporary`: a folder for its temporary file."""
    with tempfile.TemporaryDirectory(prefix="vorn-faults-") as base:
        work = pathlib.Path(base, "work")
        work.mkdir()
        fill(work, case)
        holder = pathlib.Path(temporary or base, "temporary")
        holder.mkdir()
        process = subprocess.Popen([*prefix, program, *case.arguments], cwd=work, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=error,
                                   preexec_fn=lambda: begin_afresh(file_size),
                                   env={**os.environ, "TMPDIR": str(holder), **(environment or {})})
        disturb(process)
        try:
            messages = process.communicate(timeout=TIME_LIMIT)[1]
            status = process.returncode
        except subprocess.TimeoutExpired:
            process.kill()
            messages, status = process.communicate()[1], HANGS
        after = digests_of(work)
        left = os.listdir(holder)
        shutil.rmtree(holder)
    changed = [name for name, data in case.inputs.items() if after.pop(name, None) != digest(data)]
    return Outcome(status, (messages or b"").decode(errors="replace"), after, changed, left)
