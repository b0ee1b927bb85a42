#!/usr/bin/env python3
"""Every score shown in README.md and docs/ is the input of a case, and what is
shown as its outcome is what that case expects: fenced blocks marked "vorn" and
"score", the latter belonging to the block before it."""

import pathlib
import re
import sys

FENCE = re.compile(r"^```(vorn|score)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def blocks(document):
    return FENCE.findall(document.read_text())


def main():
    inputs = pathlib.Path("tests/cases").glob("*/*/in.vorn")
    cases = {path.read_text(errors="replace"): path.parent for path in inputs}
    documents = [pathlib.Path("README.md"), *sorted(pathlib.Path("docs").glob("*.md"))]
    shown = [(document, kind, text) for document in documents for kind, text in blocks(document)]
    wrong = [] if shown else ["no examples found"]
    case = None
    for document, kind, text in shown:
        if kind == "vorn":
            case = cases.get(text)
            if case is None:
                wrong.append(f"{document}: no case reads\n{text}")
        elif case is None or text.strip("\n") != (case / "expected.score").read_text().strip("\n"):
            wrong.append(f"{document}: {case} does not expect\n{text}")
    print("\n".join(wrong) or f"{len(shown)} blocks are cases")
    return 1 if wrong else 0


sys.exit(main())
