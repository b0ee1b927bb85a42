"""Runs several builds of Vorn on the same inputs and compares all that they leave.

    compare_programs.py <reference> [<name>=<command> ...] -- <folder of cases> ...

A case is a folder with in.vorn, as tests/README.md describes it. Compared are the
status, both standard streams and every file, byte for byte, with those of the
reference; only the six letters that chance gives the temporary file are passed over.
Prints a table of the builds and ends with 1 where one differs.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

TIME_LIMIT = 300  # seconds of a run; emulation is slow
AT_ONCE = 2  # runs
SHOWN = 3  # differing cases of a build that are named
INPUTS = {".vorn", ".inc"}
WORD = re.compile(r"\"([^\"]*)\"|'([^']*)'|(\S+)")
TEMPORARY = re.compile(rb"/tmp/vorn[A-Za-z0-9]{6}\b")


def arguments_of(case):
    if not (case / "args").exists():
        return ["in.vorn", "out.sco"]
    return ["".join(groups) for groups in WORD.findall((case / "args").read_text(encoding="latin-1"))]


def copy_inputs(case, folder):
    for path in case.rglob("*"):
        if path.suffix in INPUTS and path.is_file():
            target = folder / path.relative_to(case)
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(path, target)


def whole(file):
    file.seek(0)
    return file.read()


def run_once(command, case):
    """All that a run leaves, by name."""
    with tempfile.TemporaryDirectory(prefix="vorn-same-") as name:
        folder = Path(name)
        copy_inputs(case, folder)
        words = [os.fsencode(word) for word in command]
        words += [word.encode("latin-1") for word in arguments_of(case)]
        # Files, not pipes: what a run leaves behind, as Wine does its services, would hold a pipe open.
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            try:
                run = subprocess.run(words, cwd=folder, stdin=subprocess.DEVNULL, stdout=out, stderr=err,
                                     timeout=TIME_LIMIT, check=False)
            except subprocess.TimeoutExpired:
                return {"status": "no end"}
            streams = {name: TEMPORARY.sub(b"", whole(file))
                       for name, file in (("standard output", out), ("standard error", err))}
        left = {str(path.relative_to(folder)): path.read_bytes()
                for path in folder.rglob("*") if path.is_file()}
        return {"status": run.returncode, **streams, **left}


def outcome(command, case):
    """That of a program which began: what stands between, as Wine does, now and then fails without a word."""
    left = run_once(command, case)
    if left["status"] == 1 and not left["standard output"] and not left["standard error"]:
        left = run_once(command, case)
    return left


def outcomes(command, cases):
    words = [os.path.abspath(word) if "/" in word else word for word in command.split()]
    with ThreadPoolExecutor(max_workers=AT_ONCE) as pool:
        return list(pool.map(lambda case: outcome(words, case), cases))


def main():
    split = sys.argv.index("--")
    programs = [argument.split("=", 1) for argument in sys.argv[2:split]]
    cases = sorted(path.parent for root in sys.argv[split + 1:] for path in Path(root).rglob("in.vorn"))
    reference = outcomes(sys.argv[1], cases)
    print(f"{'build':16}{'cases':>8}{'differing':>11}  the first of them")
    failed = not cases
    for name, command in programs:
        compared = zip(cases, reference, outcomes(command, cases))
        different = [case for case, wanted, left in compared if left != wanted]
        shown = ", ".join("/".join(case.parts[-2:]) for case in different[:SHOWN])
        print(f"{name:16}{len(cases):8}{len(different):11}  {shown}", flush=True)
        failed = failed or bool(different)
    return 1 if failed else 0


sys.exit(main())
