#!/usr/bin/env python3
"""The words of all pages are in the dictionary of British English or in docs/development/words.list,
where the words of the field stand. What is shown as code is not read, nor the program's own
messages, which docs/messages.md quotes as they are."""

import re
import subprocess
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
import pages  # noqa: E402

WORDS = pages.ROOT / "docs" / "development" / "words.list"
QUOTED = re.compile(r"^(?:\*\*.*\*\*|\| \[[EWL].*|- \[[EWL]\w*\]\(.*|### [EWL]\w*)$|\[[EWL]\w+\]\(#\w+\)", re.MULTILINE)
MESSAGES = "docs/messages.md"


def text_of(page):
    text = page.read_text()
    return pages.prose(QUOTED.sub("", text) if str(page).endswith(MESSAGES) else text)


def refused(text, *options):
    """The words that the dictionary does not know, each once."""
    done = subprocess.run(["hunspell", "-l", "-i", "utf-8", "-d", "en_GB", *options], input=text,
                          capture_output=True, text=True, timeout=300, check=True)
    return {word.removesuffix("'s") for word in done.stdout.split()}


def unknown_words(text):
    """Those that neither the dictionary nor the list knows; names with digits are none."""
    listed = WORDS.read_text().split()
    return sorted(word for word in refused(text, "-p", WORDS) if word.isalpha() and word not in listed)


def places(word, texts):
    found = re.compile(rf"(?<!\w){re.escape(word)}(?!\w)")
    for page, text in texts.items():
        for number, line in enumerate(text.split("\n"), 1):
            if found.search(line):
                yield f"{page.relative_to(pages.ROOT)}:{number}: {word}"


class Spelling(unittest.TestCase):
    def test_all_words_are_known(self):
        texts = {page: text_of(page) for page in pages.pages()}
        self.assertGreater(len(texts), 20)
        wrong = [place for word in unknown_words("\n".join(texts.values())) for place in places(word, texts)]
        self.assertEqual(wrong, [], "\nMend them, or put words of the field into docs/development/words.list:\n"
                         + "\n".join(wrong))

    def test_the_list_holds_no_word_that_no_page_needs(self):
        needed = refused("\n".join(text_of(page) for page in pages.pages()))
        self.assertEqual([word for word in WORDS.read_text().split() if word not in needed], [])

    def test_a_misspelt_word_is_found(self):
        self.assertEqual(unknown_words("A word and a wrod, of the tempo."), ["wrod"])

    def test_code_is_not_read(self):
        self.assertEqual(pages.prose("a `wrod` b\n\n```\nwrod\n```\n\n    wrod\n\n[c](wrod.md)").split(),
                         ["a", "b", "[c]()"])

    def test_the_list_is_in_order(self):
        words = WORDS.read_text().split("\n")[:-1]
        self.assertEqual(words, sorted(set(words), key=lambda word: (word.lower(), word)))


if __name__ == "__main__":
    unittest.main()
