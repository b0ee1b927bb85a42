#!/usr/bin/env python3
"""What docs/windows.md tells readers without vornkit to write gives sound: its commands, its document for
Csound, and its plain orchestra with each score of the tutorial."""

import math
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
import documents  # noqa: E402
import windows_page  # noqa: E402
from sound import Sound  # noqa: E402

VORN = pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")).resolve()
ORCHESTRA = documents.ROOT / "docs" / "windows" / "plain.orc"
SCORES = documents.ROOT / "docs" / "tutorial" / "scores"


class WindowsPage(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vorn-test-")
        self.addCleanup(folder.cleanup)
        self.top, self.work = pathlib.Path(folder.name) / "vorn", pathlib.Path(folder.name) / "work"
        self.work.mkdir()
        windows_page.lay_out(self.top, VORN)
        self.environment = dict(os.environ, TMPDIR=folder.name, PATH=f"{self.top}/bin:{os.environ['PATH']}")

    def run_command(self, words):
        done = subprocess.run(words, cwd=self.work, env=self.environment, capture_output=True, timeout=60, check=False)
        self.assertEqual(done.returncode, 0, done.stderr)

    def assert_heard(self, file, said, lowest=-20):
        decibels = 20 * math.log10(Sound(file).peak())
        self.assertTrue(lowest < decibels < -1, f"{file.name}: {decibels} dB")
        self.assertNotIn("WARNING", said)

    def test_the_commands_give_sound(self):
        windows_page.save_what_is_shown(self.work)
        heard = 0
        for line in windows_page.commands():
            program, *arguments = windows_page.as_here(line, self.top)
            if program == "csound":
                heard += 1
                self.assert_heard(*windows_page.run_csound(arguments, self.work, self.environment))
            elif program != "vorn-play":  # which is a file of commands for Windows
                self.run_command([program, *arguments])
        self.assertEqual(heard, 4)

    def test_the_plain_orchestra_plays_the_tutorial(self):
        scores = sorted(SCORES.glob("*.vorn"))
        self.assertGreaterEqual(len(scores), 24)
        for score in scores:
            with self.subTest(score=score.name):
                self.run_command(["vorn", "-s", score, "piece.sco"])
                self.assert_heard(*windows_page.run_csound(["-d", ORCHESTRA, "piece.sco"], self.work), lowest=-14)


if __name__ == "__main__":
    unittest.main()
