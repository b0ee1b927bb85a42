#!/usr/bin/env python3
"""The lists of errors and warnings in docs/messages.md show the texts that Vorn
prints, by number; and they show every one that some case expects."""

import pathlib
import re
import sys

PAGE = pathlib.Path("docs/messages.md")
SOURCE = pathlib.Path("src/input/message_table.cpp")
NAMES = pathlib.Path("src/input/errors.h")
STRING = r'"((?:[^"\\]|\\.)*)"'
ENTRY = re.compile(r"\{(?:(\d+)|(\w+)::(\w+)),\s*((?:" + STRING + r"\s*)+)\}")
NAMESPACE = re.compile(r"^namespace vorn::(\w+) \{(.*?)^\}", re.MULTILINE | re.DOTALL)
CONSTANT = re.compile(r"^constexpr int (\w+) = (\d+);", re.MULTILINE)
ROW = re.compile(r"^\| \[[EW](\d+)\]\(#[ew]\1\) \| (.*) \|$", re.MULTILINE)


def numbers():
    """The numbers by namespace and name."""
    return {(space, name): int(number) for space, body in NAMESPACE.findall(NAMES.read_text())
            for name, number in CONSTANT.findall(body)}


def table(name):
    """The texts of one table in the source, their line ends included."""
    named = numbers()
    body = re.search(name + r"\[\] = \{(.*?)\n\};", SOURCE.read_text(), re.DOTALL)[1]
    entries = ((int(entry[1] or named[entry[2], entry[3]]), "".join(re.findall(STRING, entry[4])))
               for entry in ENTRY.finditer(body))
    return {number: text.replace('\\"', '"').replace("\\n", "\n") for number, text in entries}


def section(heading):
    return re.search(rf"^### {heading}$(.*?)(?=^#|\Z)", PAGE.read_text(), re.MULTILINE | re.DOTALL)[1]


def problems(heading, texts, expected):
    rows = {int(number): text for number, text in ROW.findall(section(heading))}
    wrong = [f"{heading}: {number} reads {text!r}, not {texts.get(number)!r}"
             for number, text in rows.items() if text.split() != texts.get(number, "").split()]
    wrong += [f"{heading}: {number} is missing, {text!r}"
              for number, text in texts.items() if number not in rows and text.strip() in expected]
    return wrong, len(rows)


def main():
    outcomes = pathlib.Path("tests/cases").glob("*/*/expected.err")
    expected = "".join(path.read_text(errors="replace") for path in outcomes)
    wrong_errors, errors = problems("Errors", table("ERROR_TABLE"), expected)
    wrong_warnings, warnings = problems("Warnings", table("WARNING_TABLE"), expected)
    wrong = wrong_errors + wrong_warnings
    if errors == 0 or warnings == 0:
        wrong.append("no rows found")
    print("\n".join(wrong) or f"{errors} errors and {warnings} warnings are told as they are printed")
    return 1 if wrong else 0


sys.exit(main())
