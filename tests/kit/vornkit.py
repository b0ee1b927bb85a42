"""What tests of the command share: running it in a folder of their own."""
import contextlib
import os
import pathlib
import signal
import subprocess
import tempfile
import unittest

VORNKIT = os.environ.get("VORNKIT_PROGRAM", "build/dev/vornkit")

# A shell lets what it runs in the background ignore these, and so would the programs begun here.
signal.signal(signal.SIGINT, signal.default_int_handler)
for number in (signal.SIGQUIT, signal.SIGHUP):
    signal.signal(number, signal.SIG_DFL)


def shown_on(terminal):
    """All bytes that programs which have ended wrote to it: it hands them on line by line."""
    shown = b""
    with contextlib.suppress(OSError):  # its other end is closed
        while part := os.read(terminal, 65536):
            shown += part
    return shown


class CommandTest(unittest.TestCase):
    """Each test has an empty folder, which is the current one of the programs it runs."""

    def setUp(self):
        self._folder = tempfile.TemporaryDirectory(prefix="vornkit-test-")
        self.addCleanup(self._folder.cleanup)
        self.folder = pathlib.Path(self._folder.name)

    def write(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(text if isinstance(text, bytes) else text.encode())
        return path

    def run_program(self, *arguments, **options):
        options.setdefault("timeout", 120)
        return subprocess.run([str(one) for one in arguments], cwd=self.folder, capture_output=True,
                              check=False, **options)

    def vornkit(self, *arguments, **options):
        """The finished run: returncode, stdout and stderr as text."""
        program = pathlib.Path(VORNKIT).resolve()
        done = self.run_program(program, *arguments, **options)
        done.stderr = done.stderr.decode(errors="replace")
        if not options.pop("bytes", False):
            done.stdout_bytes = done.stdout
            done.stdout = done.stdout.decode(errors="replace")
        return done

    def files(self):
        return sorted(str(path.relative_to(self.folder)) for path in self.folder.rglob("*") if path.is_file())
