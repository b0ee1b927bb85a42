#!/usr/bin/env python3
"""Every link within the pages leads to a file that is there and, behind a #, to a heading; what is
installed leads nowhere but to what is installed with it; and each script that a page names is there
and has the steps that the page gives it."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
import followed_links  # noqa: E402
import pages  # noqa: E402

BUILD = pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")).resolve().parent
SCRIPT = re.compile(r"(?:`|^    )(scripts/[\w/]+)((?: [a-z]+)*)", re.MULTILINE)
STEP = re.compile(r"^(?:check|make)_(\w+)\(\)", re.MULTILINE)  # what scripts of steps take as arguments


def script_problems(text):
    """What is wrong with the scripts that a page names, as code."""
    for name, arguments in SCRIPT.findall(text):
        script = pages.ROOT / name
        if not script.exists():
            yield f"there is no {name}"
        elif script.name in ("check", "release"):
            steps = STEP.findall(script.read_text())
            yield from (f"{name} has no {step}" for step in arguments.split() if step not in steps)


class Links(unittest.TestCase):
    def assert_whole(self, top):
        wrong = followed_links.broken_links(top)
        self.assertEqual(wrong, [], "\n" + "\n".join(wrong))

    def test_links_lead_somewhere(self):
        self.assertGreater(sum(1 for page in pages.pages() for _ in pages.links(page.read_text())), 100)
        with tempfile.TemporaryDirectory(prefix="vorn-test-") as folder:
            top = pathlib.Path(folder).resolve()
            for file in pages.kept_files("*"):
                copy = top / file.relative_to(pages.ROOT)
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(file, copy)
            self.assert_whole(top)

    def test_an_index_leads_to_every_page_beside_it(self):
        for folder in (pages.ROOT / "docs", pages.ROOT / "docs" / "development"):
            index = folder / "README.md"
            led_to = {(folder / target.partition("#")[0]).resolve() for _, target in pages.links(index.read_text())}
            self.assertEqual({page for page in folder.glob("*.md") if page != index} - led_to, set())

    def test_installed_pages_need_no_sources(self):
        with tempfile.TemporaryDirectory(prefix="vorn-test-") as folder:
            subprocess.run(["cmake", "--install", BUILD, "--prefix", folder], stdout=subprocess.DEVNULL, check=True)
            top = pathlib.Path(folder).resolve()
            installed = {page.name: page for page in top.rglob("*.md")}
            self.assertLess({"manual.md", "CONTRIBUTING.md", "architecture.md"}, set(installed))
            self.assert_whole(top)
            contributing = installed["CONTRIBUTING.md"].read_text()
        self.assertIn("`tests/README.md` tells how", contributing)
        self.assertIn("[CHANGELOG.md](CHANGELOG.md)", contributing)

    def test_scripts_and_their_steps_are_there(self):
        wrong = [f"{page.relative_to(pages.ROOT)}: {one}" for page in pages.pages()
                 for one in script_problems(page.read_text())]
        self.assertEqual(wrong, [])

    def test_missing_scripts_and_steps_are_found(self):
        page = "`scripts/none`, `scripts/check lint nothing`\n\n    scripts/release deb"
        self.assertEqual(list(script_problems(page)), ["there is no scripts/none", "scripts/check has no nothing"])

    def test_broken_links_are_found(self):
        with tempfile.TemporaryDirectory(prefix="vorn-test-") as folder:
            top = pathlib.Path(folder).resolve()
            (top / "inner").mkdir()
            (top / "page.md").write_text(
                "# A page\n\n## On `se(...)`: sets\n\n## A page\n\n[a](none.md) [b](#a-page) [c](page.md#nothing)\n"
                "[d](#on-se-sets) ![e](none.svg) `[f](none.md)` [g](inner) [h](https://none.invalid) [i](#a-page-1)\n")
            (top / "inner" / "other.md").write_text("[a](../page.md#a-page) [b](../page.md#a-page-2)\n")
            found = followed_links.broken_links(top)
        self.assertEqual([" ".join(one.split(": ")[:2]) for one in found], [
            "inner/other.md ../page.md#a-page-2", "page.md none.md", "page.md none.svg", "page.md page.md#nothing"])


if __name__ == "__main__":
    unittest.main()
