"""The man pages: clean, and telling of the options that the commands have, no more and no fewer."""
import pathlib
import re
import subprocess
import unittest

import options
from vornkit import CommandTest

MAN = pathlib.Path(__file__).resolve().parents[2] / "man"


def page(name):
    return (MAN / name).read_text()


def section(text, title):
    found = re.search(rf"^\.Sh {title}\n(.*?)(?=^\.Sh |\Z)", text, re.M | re.S)
    return found[1] if found else ""


def described(text):
    """The options with an entry: each name, and whether it takes a value; and the entries by name."""
    names, entries = {}, {}
    for entry in re.findall(r"^\.It Fl (.*\n(?:(?!\.It |\.El).*\n)*)", section(text, "DESCRIPTION"), re.M):
        words = entry.splitlines()[0].split()
        takes_value = "Ar" in words
        spelt = words[:words.index("Ar")] if takes_value else words
        for word in spelt:
            if word == ",":
                continue
            names["-" + word] = takes_value
            entries["-" + word] = entry
    return names, entries


def in_synopsis(text):
    return {"-" + name for name in re.findall(r"\bFl (\S+)", section(text, "SYNOPSIS"))}


class ManPages(CommandTest):
    def test_mandoc_has_nothing_to_say(self):
        pages = sorted(path.name for path in MAN.iterdir())
        self.assertGreater(len(pages), 12)
        done = subprocess.run(["mandoc", "-T", "lint", *pages], cwd=MAN, capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_each_subcommand_has_a_page(self):
        subcommands = options.subcommands()
        pages = {path.stem.removeprefix("vornkit-") for path in MAN.glob("vornkit-*.1")}
        self.assertEqual(pages, set(subcommands))
        top = page("vornkit.1")
        self.assertEqual(re.findall(r"^\.It Cm (\S+)", top, re.M), subcommands)
        self.assertEqual(set(re.findall(r"^\.Xr vornkit-(\S+) 1", section(top, "SEE ALSO"), re.M)), pages)

    def test_options_are_those_of_the_help(self):
        for subcommand in options.subcommands():
            known = options.of_subcommand(subcommand)
            text = page(f"vornkit-{subcommand}.1")
            names, entries = described(text)
            self.assertEqual(names, {name: option.takes_value for name, option in known.items()}, subcommand)
            for name, option in known.items():
                for word in option.choices + option.defaults:
                    self.assertIn(word, entries[name], f"{subcommand} {name}")

    def test_the_synopsis_has_them_all_once(self):
        for subcommand in options.subcommands():
            shortest = {min(option.names, key=len) for option in options.of_subcommand(subcommand).values()}
            synopsis = in_synopsis(page(f"vornkit-{subcommand}.1"))
            self.assertEqual(synopsis - {"-h"}, shortest - {"-h"}, subcommand)

    def test_arguments_are_those_of_the_usage(self):
        for subcommand in options.subcommands():
            synopsis = section(page(f"vornkit-{subcommand}.1"), "SYNOPSIS")
            arguments = re.findall(r"^\.(?:Op )?Ar ([A-Z]+)", synopsis, re.M)
            self.assertEqual(arguments, options.arguments(subcommand), subcommand)

    def test_options_of_examples_exist(self):
        for path in MAN.glob("vornkit*.1"):
            for line in re.findall(r"^(?:\.Dl )?(vornkit \w+.*)", section(path.read_text(), "EXAMPLES"), re.M):
                known = options.of_subcommand(line.split()[1])
                for name in re.findall(r" (--?[a-z-]+)", line):
                    self.assertIn(name, known, line)

    def test_vorn_has_the_options_that_it_prints(self):
        names, _ = described(page("vorn.1"))
        self.assertEqual(names, options.of_vorn())
        self.assertEqual(in_synopsis(page("vorn.1")), set(names))  # each by itself: they cannot be joined

    def test_scores_on_the_page_of_the_language_are_accepted(self):
        blocks = re.findall(r"^\.Bd -literal[^\n]*\n(.*?)^\.Ed", page("vorn.5"), re.M | re.S)
        scores = [block for block in blocks if "{" in block]
        self.assertEqual(len(scores), 3)
        for score in scores:
            self.write("page.vorn", score)
            done = self.vornkit("check", "page.vorn")
            self.assertEqual((done.returncode, done.stdout), (0, ""))


if __name__ == "__main__":
    unittest.main()
