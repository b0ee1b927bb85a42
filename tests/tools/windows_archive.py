#!/usr/bin/env python3
"""windows_archive.py <folder>: the unpacked archive for Windows, used under Wine as docs/windows.md tells. What
Csound is asked to play is played by the Csound of this system; packages_test.sh --bare runs this."""

import os
import pathlib
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
import windows_page  # noqa: E402
from sound import Sound  # noqa: E402

ARCHIVE = pathlib.Path(sys.argv.pop()).resolve()
WINE = "/usr/lib/wine/wine64"
# In the place of Csound: its arguments, one to a line.
CALLED = "@echo off\r\n:next\r\nif \"%~1\"==\"\" exit /b 0\r\necho %~1>>called.txt\r\nshift\r\ngoto next\r\n"


class WindowsArchive(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vorn-test-")
        self.addCleanup(folder.cleanup)
        self.top, self.work = pathlib.Path(folder.name) / "vorn", pathlib.Path(folder.name) / "my pieces"
        self.work.mkdir()
        shutil.copytree(ARCHIVE, self.top)
        (self.top / "bin" / "csound.cmd").write_bytes(CALLED.encode())
        (self.top / "bin" / "vorn").symlink_to(os.environ["VORN_PROGRAM"])  # for the Csound of this system
        windows_page.save_what_is_shown(self.work)

    def run_line(self, line):
        """One line of commands: its status, what it says, and what Csound is called with."""
        called = self.work / "called.txt"
        called.unlink(missing_ok=True)
        line = line.replace(windows_page.UNPACKED, self.windows_name(self.top))
        command = shlex.split(line.replace("\\", "\\\\"))  # what separates names there means something else to shlex
        environment = dict(os.environ, WINEDEBUG="-all", WINEPATH=self.windows_name(self.top / "bin"))
        done = subprocess.run([WINE, "cmd", "/c", *command], cwd=self.work, env=environment, capture_output=True,
                              timeout=120, check=False)
        words = called.read_text().splitlines() if called.exists() else []
        return done.returncode, (done.stdout + done.stderr).decode(errors="replace"), words

    @staticmethod
    def windows_name(path):
        return "Z:" + str(path).replace("/", "\\")

    def here(self, word):
        """The name of this system for a file that Wine names."""
        if word[1:2] != ":":
            return word
        done = subprocess.run([WINE, "winepath", "-u", word], capture_output=True, text=True, check=True,
                              env=dict(os.environ, WINEDEBUG="-all"))
        return done.stdout.strip()

    def assert_heard(self, words):
        environment = dict(os.environ, PATH=f"{self.top}/bin:{os.environ['PATH']}")
        file, said = windows_page.run_csound([self.here(word) for word in words], self.work, environment)
        self.assertGreater(Sound(file).peak(), .1)
        self.assertNotIn("WARNING", said)

    def test_the_commands_of_the_page(self):
        for line in windows_page.commands():
            with self.subTest(line=line):
                status, said, words = self.run_line(line)
                self.assertEqual(status, 0, said)
                if "csound" in line or "vorn-play" in line:
                    self.assert_heard(words)

    def test_lines_may_end_as_those_of_windows_do(self):
        text = (self.work / "one-note.vorn").read_text()
        (self.work / "Glöckchen 1.vorn").write_bytes(text.replace("\n", "\r\n").encode())
        for line in ("vorn one-note.vorn one-note.sco", "vorn \"Glöckchen 1.vorn\" \"Stück 1.sco\""):
            self.assertEqual(self.run_line(line)[0], 0)
        self.assertEqual((self.work / "Stück 1.sco").read_bytes(), (self.work / "one-note.sco").read_bytes())
        status, _, words = self.run_line("vorn-play \"Glöckchen 1.vorn\"")
        self.assertEqual((status, words[:2]), (0, ["-d", "-odac"]))

    def test_what_csound_asks_of_a_document_s_score(self):
        """It calls the program with the names of two temporary files in quotes."""
        names = [f"\"{self.windows_name(self.work / name)}\"" for name in ("one-note.vorn", "csound-1.sco")]
        status, said, _ = self.run_line("vorn -s " + " ".join(names))
        self.assertEqual(status, 0, said)
        self.assertIn(b"261.6255", (self.work / "csound-1.sco").read_bytes())

    def test_a_mistake_is_told_and_not_played(self):
        (self.work / "wrong.vorn").write_text("i1 = 4 0 2 {\np2 nonsense\n")
        status, said, words = self.run_line("vorn-play wrong.vorn")
        self.assertEqual((status, words), (1, []))
        self.assertIn("ERROR: Line 2:", said)
        self.assertEqual(self.run_line("vorn-play")[0], 2)

    def test_a_warning_is_told_and_played(self):
        (self.work / "short.vorn").write_text("i1 = 4 0 2 {\np2 1\np3 1\np4(hz) no c4 d e\n}\n")
        status, said, words = self.run_line("vorn-play short.vorn")
        self.assertEqual((status, words[:2]), (0, ["-d", "-odac"]))
        self.assertIn("WARNING: Line 4:", said)

    def test_the_archive_holds_what_the_page_names(self):
        for name in ("README.md", "docs/windows.md", "docs/windows/plain.orc", "editors/vscode/package.json",
                     "docs/tutorial/scores/lanterns.orc", "examples/clockwork/clockwork.csd"):
            self.assertTrue((ARCHIVE / name).is_file(), name)
        self.assertIn(b"\r\n", (ARCHIVE / "bin" / "vorn-play.cmd").read_bytes())


if __name__ == "__main__":
    unittest.main()
