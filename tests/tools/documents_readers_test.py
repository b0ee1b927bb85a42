#!/usr/bin/env python3
"""Each page speaks to its readers: those for composers have no words of who builds programs, and what is installed
names nothing that only the sources have, whether or not the pages for developers are installed with it."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
import pages  # noqa: E402

BUILD = pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")).resolve().parent
FOR_COMPOSERS = ("README.md", "docs/*.md", "docs/tutorial/*.md", "examples/README.md", "editors/README.md")
OF_BUILDERS = re.compile(r"SOURCE_DATE_EPOCH|\bhardened\b|\bsanitizers?\b|\bbuiltins\b|\b(?:src|tests|scripts/lib)/"
                         r"|scripts/(?!demo|test\b|playground|release)")
OF_SOURCES = re.compile(r"scripts/|\bbuild/|cmake|in the sources|where installed:|-->")
LINK = re.compile(r"\]\(([^)#: ]+)[)#]")


def for_composers(top):
    return sorted(page for pattern in FOR_COMPOSERS for page in top.glob(pattern))


def places(pattern, top):
    """Where a page for composers has what the pattern describes."""
    for page in for_composers(top):
        for number, line in enumerate(page.read_text().splitlines(), 1):
            for found in pattern.finditer(line):
                yield f"{page.relative_to(top)}:{number}: {found[0]}"


class Readers(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vorn-test-")
        self.addCleanup(folder.cleanup)
        self.prefix = pathlib.Path(folder.name)

    def install(self, *options):
        """Where the documents are then."""
        subprocess.run(["cmake", "--install", BUILD, "--prefix", self.prefix, *options], check=True,
                       stdout=subprocess.DEVNULL)
        return self.prefix / "share" / "doc" / "vorn"

    def test_pages_for_composers_have_no_words_of_builders(self):
        self.assertGreater(len(for_composers(pages.ROOT)), 25)
        self.assertEqual(list(places(OF_BUILDERS, pages.ROOT)), [])

    def test_installed_pages_need_no_sources(self):
        top = self.install()
        self.assertEqual(len(for_composers(top)), len(for_composers(pages.ROOT)))
        self.assertEqual(list(places(OF_SOURCES, top)), [])
        readme = (top / "README.md").read_text()
        self.assertIn("\n\nTo hear them, with", readme)
        self.assertLess(readme.index("## More to hear\n"), readme.index("\n\n    vornkit play docs/tutorial/"))
        self.assertNotIn("\n\n\n", readme)

    def test_pages_without_such_parts_are_installed_as_they_are(self):
        top = self.install()
        for page in for_composers(pages.ROOT):
            if "<!-- in the sources: -->" not in page.read_text() and page.name != "README.md":
                self.assertEqual((top / page.relative_to(pages.ROOT)).read_bytes(), page.read_bytes(), page.name)

    def test_what_is_installed_twice_is_the_same(self):
        first, second = ((self.install() / "README.md").read_text() for _ in range(2))
        self.assertEqual(first, second)

    def test_pages_for_developers_can_be_left_out(self):
        top = self.install("--component", "Unspecified")
        self.assertFalse((top / "CONTRIBUTING.md").exists())
        for page in for_composers(top):
            missing = [target for target in LINK.findall(pages.without_blocks(page.read_text()))
                       if not (page.parent / target).exists()]
            self.assertEqual(missing, [], page.name)
        self.assertIn("| change Vorn itself | `CONTRIBUTING.md`, `docs/development/` |", (top / "README.md").read_text())


if __name__ == "__main__":
    unittest.main()
