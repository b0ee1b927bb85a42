"""vornkit as a whole: help, wrong use, an output that takes nothing."""
import os
import pathlib
import signal
import subprocess
import time
import unittest

from vornkit import VORNKIT, CommandTest

SUBCOMMANDS = ("check", "explain", "events", "midi", "picture", "play", "watch", "vary", "new")


class Vornkit(CommandTest):
    def test_help_begins_with_an_example(self):
        for arguments in ((), *((name,) for name in SUBCOMMANDS)):
            done = self.vornkit(*arguments, "--help")
            self.assertEqual((done.returncode, done.stderr), (0, ""), arguments)
            example = done.stdout.find(" ".join(("vornkit", *arguments)))
            self.assertIn("Example", done.stdout)
            self.assertTrue(0 <= example < done.stdout.find("Usage:"), arguments)

    def test_wrong_use_has_status_2_and_says_what_is_wrong(self):
        for arguments in ((), ("chekc",), ("--speed",), ("check",), ("explain", "--speed")):
            done = self.vornkit(*arguments)
            self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)
            self.assertNotEqual(done.stderr, "", arguments)

    def test_an_output_that_takes_nothing_is_told(self):
        self.write("wrong.vorn", "oops\n")
        for arguments in (("explain",), ("explain", "E27", "--format", "json"), ("check", "wrong.vorn"), ("--help",)):
            with open("/dev/full", "wb") as full:
                done = subprocess.run([pathlib.Path(VORNKIT).resolve(), *arguments], cwd=self.folder, stdout=full,
                                      stderr=subprocess.PIPE, check=False, timeout=120)
            self.assertEqual(done.returncode, 2, arguments)
            self.assertIn(b"cannot write all to standard output", done.stderr, arguments)

    def test_an_interrupted_run_leaves_no_temporary_file(self):
        self.write("long.vorn", "i1 = 4 0 -10000000 {\np2 .001\np3 1\np4 ra(T 1 [60 72])\n}\n")
        temporary = self.folder / "tmp"
        temporary.mkdir()
        for arguments in (("check", "long.vorn"), ("midi", "long.vorn", "long.mid")):
            running = subprocess.Popen([pathlib.Path(VORNKIT).resolve(), *arguments], cwd=self.folder,
                                       env={**os.environ, "TMPDIR": str(temporary)}, stderr=subprocess.DEVNULL)
            while running.poll() is None and not any(temporary.iterdir()):
                time.sleep(0.01)
            running.send_signal(signal.SIGINT)
            self.assertEqual(running.wait(60), -signal.SIGINT, arguments)
            self.assertEqual(list(temporary.iterdir()), [], arguments)
        self.assertEqual(self.files(), ["long.vorn"])


if __name__ == "__main__":
    unittest.main()
