#!/usr/bin/env python3
"""docs/messages.md says of every message what the programs say of it: `vornkit explain`
its cause and cure, `vorn` and `vornkit check` the message that its score provokes."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts" / "lib" / "messages"))
import message_page  # noqa: E402

VORN, VORNKIT = (pathlib.Path(os.environ.get(f"{name.upper()}_PROGRAM", f"build/dev/{name}")).resolve()
                 for name in ("vorn", "vornkit"))


class MessagesPage(unittest.TestCase):
    def test_it_is_what_the_programs_say(self):
        done = subprocess.run(["bash", ROOT / "scripts" / "messages", "--check"], capture_output=True, text=True,
                              check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_every_score_is_followed_by_its_message(self):
        page = (ROOT / "docs" / "messages.md").read_text()
        entries = re.findall(r"^### ([EWL]\w+)$\n(.*?)(?=^### |\Z)", page, re.MULTILINE | re.DOTALL)
        shown = [(code, entry) for code, entry in entries if "```mistake" in entry]
        self.assertGreater(len(shown), 100)
        for code, entry in shown:
            self.assertRegex(entry, r"```told\n[^`]+```", code)

    def test_no_message_stands_for_two_names(self):
        told = {code: text for code, text in message_page.MessagePage(VORN, VORNKIT).printed.items() if code.isalpha()}
        self.assertGreater(len(told), 8)
        self.assertEqual(len(set(told.values())), len(told), told)

    def test_what_vorn_says_beside_a_message_is_quoted(self):
        page = " ".join((ROOT / "docs" / "messages.md").read_text().split())
        for code, line in (("W14", "Old duration"), ("L17", "Oops"), ("L17", r"\(N\.B\. No I-Block")):
            with self.subTest(code=code, line=line):
                said = re.search(rf"^\t?{line}.*", self.said_of_the_score_of(code), re.MULTILINE)[0]
                self.assertIn(f"`{' '.join(said.split())}`", page)

    @staticmethod
    def said_of_the_score_of(code):
        programs = message_page.MessagePage(VORN, VORNKIT)
        (row,) = [row for row in programs.explanations if row["code"] == code]
        with tempfile.TemporaryDirectory(prefix="vorn-test-") as folder:
            (pathlib.Path(folder) / "score.vorn").write_text(row["score"])
            return programs.run(VORN, "score.vorn", "score.sco", folder=folder).stderr

    def test_a_message_ends_with_its_caret(self):
        told = "\nVorn\n\nInput\t= \"score.vorn\"\n\nERROR: Line 2:Bad thing.\np2 x\n   ^\nmore"
        row = {"code": "E99", "title": "Bad thing."}
        self.assertEqual(message_page.MessagePage.own_words(row, told), "ERROR: Line 2:Bad thing.\np2 x\n   ^")


if __name__ == "__main__":
    unittest.main()
