#!/usr/bin/env python3
"""Every example under examples/ that an orchestra belongs to is turned into a score,
which a real Csound then performs without a word of complaint. The orchestra is
<name>.orc beside <name>.vorn. An example without an orchestra must be one for MIDI,
that is, its case in tests/cases/examples/ must have the option -m."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

COMPLAINT = re.compile(r"error|warning|deleted|flushed|undefined|illegal|invalid|unknown|not found", re.IGNORECASE)
HARMLESS = re.compile(r"^\s*0 errors in performance\s*$")
CONTROL = re.compile(r"\x1b\[[0-9;]*m")
PERFORMED = re.compile(r"^\s*0 errors in performance", re.MULTILINE)
CLIPPED = re.compile(r"overall samples out of range:(.*)")
TIME_LIMIT = 300  # seconds


def run(*command, folder=None):
    return subprocess.run([str(word) for word in command], cwd=folder, capture_output=True,
                          text=True, errors="replace", stdin=subprocess.DEVNULL, timeout=TIME_LIMIT, check=False)


def make_score(example, score):
    program = pathlib.Path(os.environ["VORN_PROGRAM"]).resolve()
    result = run(program, example.resolve(), score, folder=example.parent)
    return [] if result.returncode == 0 else [f"{example} is refused:\n{result.stderr}"]


def is_for_midi(example):
    arguments = pathlib.Path("tests/cases/examples") / example.stem / "args"
    return arguments.exists() and any(word.startswith("-m") for word in arguments.read_text().split())


def uneven_events(example, score):
    """Csound compares p-fields only with those of the first event that makes an instance."""
    counts = {}
    for line in score.read_text().splitlines():
        if line.startswith("i"):
            counts.setdefault(line.split()[0], set()).add(len(line.split()))
    return [f"{example}: {name} has events of {sorted(found)} p-fields"
            for name, found in counts.items() if len(found) > 1]


def complaints(example, work):
    score, orchestra = work / "score.sco", example.with_suffix(".orc")
    wrong = make_score(example, score) or uneven_events(example, score)
    if wrong or (is_for_midi(example) and not orchestra.exists()):
        return wrong
    if not orchestra.exists():
        return [f"{example} has no orchestra and is not for MIDI"]
    result = run("csound", "-n", "-d", "-m7", orchestra, score)
    said = CONTROL.sub("", result.stdout + result.stderr)
    wrong = [f"{example}: {line.strip()}" for line in said.splitlines()
             if COMPLAINT.search(line) and not HARMLESS.match(line)]
    if result.returncode != 0 or not PERFORMED.search(said):
        wrong.append(f"{example}: Csound gave up, status {result.returncode}\n{said}")
    if any(figure != "0" for figure in " ".join(CLIPPED.findall(said)).split()):
        wrong.append(f"{example}: samples out of range")
    return wrong


def main():
    examples = sorted(pathlib.Path("examples").glob("*/*.vorn"))
    examples = [example for example in examples if example.stem == example.parent.name]
    wrong = [] if examples else ["examples/ is empty"]
    for folder in sorted(path for path in pathlib.Path("examples").iterdir() if path.is_dir()):
        if not (folder / f"{folder.name}.vorn").exists():
            wrong.append(f"{folder} holds no {folder.name}.vorn")
    for example in examples:
        with tempfile.TemporaryDirectory(prefix="vorn-test-") as work:
            wrong += complaints(example, pathlib.Path(work))
    print("\n".join(wrong) or f"{len(examples)} examples performed or checked")
    return 1 if wrong else 0


sys.exit(main())
