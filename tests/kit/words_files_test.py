"""What is made from the word list is what scripts/words makes of it now."""
import os
import pathlib
import subprocess
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]


class WordsFiles(unittest.TestCase):
    def check(self):
        return subprocess.run(["scripts/words", "--check"], cwd=TOP, capture_output=True, text=True, check=False)

    def test_nothing_has_drifted(self):
        done = self.check()
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))


if __name__ == "__main__":
    os.environ.setdefault("VORNKIT_PROGRAM", "build/dev/vornkit")
    unittest.main()
