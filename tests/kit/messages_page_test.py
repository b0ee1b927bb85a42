#!/usr/bin/env python3
"""docs/messages.md says of every message what the programs say of it: `vornkit explain`
its cause and cure, `vorn` and `vornkit check` the message that its score provokes."""

import pathlib
import re
import subprocess
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts" / "lib" / "messages"))
import message_page  # noqa: E402


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

    def test_a_message_ends_with_its_caret(self):
        told = "\nVorn\n\nInput\t= \"score.vorn\"\n\nERROR: Line 2:Bad thing.\np2 x\n   ^\nmore"
        row = {"code": "E99", "title": "Bad thing."}
        self.assertEqual(message_page.MessagePage.own_words(row, told), "ERROR: Line 2:Bad thing.\np2 x\n   ^")


if __name__ == "__main__":
    unittest.main()
