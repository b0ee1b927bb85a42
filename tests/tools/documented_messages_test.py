#!/usr/bin/env python3
"""Every message shown in README.md and docs/ is what a run prints: a fenced block
marked "message" stands in the expected.err of the case whose input is shown in
the block marked "vorn" before it."""

import pathlib
import re
import sys

FENCE = re.compile(r"^```(vorn|message)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def main():
    inputs = pathlib.Path("tests/cases").glob("*/*/in.vorn")
    cases = {path.read_text(errors="replace"): path.parent for path in inputs}
    documents = [pathlib.Path("README.md"), *sorted(pathlib.Path("docs").glob("*.md"))]
    shown = [(document, *block) for document in documents for block in FENCE.findall(document.read_text())]
    wrong = []
    messages = 0
    case = None
    for document, kind, text in shown:
        if kind == "vorn":
            case = cases.get(text)
            continue
        messages += 1
        if case is None or text not in (case / "expected.err").read_text():
            wrong.append(f"{document}: {case} does not expect\n{text}")
    if messages == 0:
        wrong.append("no messages found")
    print("\n".join(wrong) or f"{messages} messages are those of cases")
    return 1 if wrong else 0


sys.exit(main())
