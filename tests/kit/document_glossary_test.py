"""The glossary: its words occur in the messages that it names, they stand in the order of the
alphabet, and its own links and those of the pages around it lead somewhere."""
import pathlib
import re
import sys
import unittest

from vornkit import CommandTest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "support"))
import documents  # noqa: E402

PAGE = ROOT / "docs" / "glossary.md"
ENTRY = re.compile(r"^## (.*?)\n(.*?)(?=^## |\Z)", re.MULTILINE | re.DOTALL)
CODE = re.compile(r"\[([EW]\d+)\]\(messages\.md#[ew]\d+\)")
HEADING = re.compile(r"^#+ (.*)$", re.MULTILINE)
LINK = re.compile(r"(?<!!)\[[^]]*\]\(([^)\s]+)\)")
# What messages say instead of the word.
OTHER_WORDS = {"Code of a duration": ["codes"], "Seed": ["RS"],
               "G-block, global block": ["G-block", "global-block"]}
# Words that stand in messages, which a reader may not know and so finds here.
NEEDED = ("DDF", "G-block", "I-block", "i-header", "i-no", "i-time", "i-events", "EOF", "fused", "output",
          "window", "percentage", "truncated", "initiator", "term", "const", "macro", "p-field", "loop")


def entries():
    return ENTRY.findall(PAGE.read_text())


def anchors(page):
    """As GitHub makes them of headings."""
    text = re.sub(r"^```.*?^```$", "", page.read_text(), flags=re.MULTILINE | re.DOTALL)
    return {re.sub(r"[^\w\- ]", "", re.sub(r"[`*]|\]\(.*?\)", "", heading)).strip().lower().replace(" ", "-")
            for heading in HEADING.findall(text)}


def stands_in(word, text):
    return word.lower().rstrip("s") in text.lower()


class Glossary(CommandTest):
    def test_each_word_stands_in_the_messages_named_behind_it(self):
        texts = {}
        for code in CODE.findall(PAGE.read_text()):
            if code not in texts:
                texts[code] = self.vornkit("explain", code).stdout.split("\n\n")[0]
        for heading, text in entries():
            words = OTHER_WORDS.get(heading) or heading.split(", ")
            for code in CODE.findall(text):
                with self.subTest(entry=heading, code=code):
                    self.assertTrue(any(stands_in(word, texts[code]) for word in words), texts[code])

    def test_the_words_of_messages_are_explained(self):
        headings = " ".join(heading for heading, _ in entries()).lower()
        for word in NEEDED:
            self.assertIn(word.lower(), headings)

    def test_the_order_is_that_of_the_alphabet(self):
        headings = [heading.lower() for heading, _ in entries()]
        self.assertEqual(headings, sorted(headings))

    def test_links_of_documents_lead_somewhere(self):
        for page in documents.pages():
            text = re.sub(r"^```.*?^```$|`[^`\n]*`", "", page.read_text(), flags=re.MULTILINE | re.DOTALL)
            for link in LINK.findall(text):
                if "://" in link:
                    continue
                path, _, anchor = link.partition("#")
                target = (page.parent / path).resolve() if path else page
                with self.subTest(page=str(page.relative_to(ROOT)), link=link):
                    self.assertTrue(target.exists())
                    if anchor:
                        self.assertIn(anchor, anchors(target) | set(re.findall(r'id="([^"]+)"', target.read_text())))


if __name__ == "__main__":
    unittest.main()
