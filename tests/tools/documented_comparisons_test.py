#!/usr/bin/env python3
"""Each statement in the second column of the tables of docs/coming-from.md runs, without a
warning. What is no whole score is put into one: statements into a block, commands before
one, and p-fields that a statement leaves out are given a value."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

VORN = pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")).resolve()
PAGE = pathlib.Path("docs/coming-from.md")
ROW = re.compile(r"^\| (.*?) \|(.*?)(?<!\\)\|(.*)\|$", re.MULTILINE)
CODE = re.compile(r"`([^`]+)`")
STATEMENT = re.compile(r"p(\d)(?:\(\w+\))? ")
BEGINS_SCORE = ("te(", "rs(", "#", ">", ";")
NEXT_STATEMENT = re.compile(r" (?=p\d(?:\(\w+\))? (?![-+*/%]))(?![^\[]*\])")  # none in brackets
BEATS = 20


def block_of(code):
    """A block with these statements and a plain one for each p-field that they leave out."""
    statements = NEXT_STATEMENT.split(code)
    given = [int(STATEMENT.match(statement)[1]) for statement in statements]
    missing = [f"p{number} 1" for number in range(2, max(given + [3]) + 1) if number not in given]
    starts = [statement for statement in statements if statement.startswith("p2")]
    others = [statement for statement in statements if statement not in starts]
    text = "\n".join([*starts, *missing, *others])
    return f"i1 = {max(given + [3])} 0 {BEATS} {{\n{text}\n}}\n"


def score_of(code):
    if code.startswith("i"):
        return code + "\n"
    if code.startswith(BEGINS_SCORE):
        return code + "\ni1 = 3 0 4 {\np2 1\np3 1\n}\n"
    return block_of(code)


def problem(code):
    with tempfile.TemporaryDirectory(prefix="vorn-test-") as work:
        (pathlib.Path(work) / "in.vorn").write_text(score_of(code))
        done = subprocess.run([VORN, "in.vorn", "out.sco"], cwd=work, capture_output=True, text=True,
                              stdin=subprocess.DEVNULL, timeout=60, check=False)
    if done.returncode == 0 and "WARNING" not in done.stderr:
        return []
    return [f"{code}\n{score_of(code)}{done.stderr}"]


def main():
    codes = [code for row in ROW.finditer(PAGE.read_text()) for code in CODE.findall(row[2] + row[3])]
    codes = [code for code in codes if STATEMENT.match(code) or
             code.startswith(("i1 =", "i2 =", *BEGINS_SCORE))]
    wrong = [text for code in codes for text in problem(code)]
    print("\n".join(wrong) or f"{len(codes)} statements run")
    return 1 if wrong or len(codes) < 100 else 0


sys.exit(main())
