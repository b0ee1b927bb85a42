#!/usr/bin/env python3
"""Every score shown in README.md, docs/ and examples/README.md runs without an error, unless
the message that refuses it stands below it; what is shown as its outcome or message is what
comes out. A score that is a file as well is shown as it stands there, and every such file of
docs/ is shown."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
import documents  # noqa: E402

VORN = pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")).resolve()
# Pages whose scores are all files, so that a reader can take them from there.
PAGES_OF_FILES = ("docs/tutorial/", "docs/recipes.md")


def run(score):
    """Status, score and messages; includes are found as if the score lay in its folder."""
    with tempfile.TemporaryDirectory(prefix="vorn-test-") as work:
        folder = pathlib.Path(work) / "scores"
        if score.block.file is None:
            folder.mkdir()
        else:
            shutil.copytree(score.block.file.parent, folder)
        shown, out = folder / "shown.vorn", folder / "shown.sco"
        shown.write_text(score.block.text)
        done = subprocess.run([VORN, shown.name, out.name], cwd=folder, capture_output=True, text=True,
                              errors="replace", stdin=subprocess.DEVNULL, timeout=60, check=False)
        return done.returncode, out.read_text() if out.exists() else "", done.stderr


def outcome_problems(score):
    status, output, said = run(score)
    place = score.block.place
    if status != 0 and not (status == 1 and score.messages):
        return [f"{place}: status {status}\n{said}"]
    wrong = [f"{shown.place}: not what comes out:\n{output}" for shown in score.yields
             if shown.text.strip("\n") != output.strip("\n")]
    return wrong + [f"{shown.place}: not what is said:\n{said}" for shown in score.messages
                    if shown.text not in said]


def file_problems(block):
    if block.file is None:
        page = str(block.page.relative_to(documents.ROOT))
        is_loose = block.kind == "vorn" and page.startswith(PAGES_OF_FILES)
        return [f"{block.place}: names no file"] if is_loose else []
    if not block.file.exists():
        return [f"{block.place}: there is no {block.file}"]
    return [] if block.text == block.file.read_text() else [f"{block.place}: not the text of {block.file}"]


def main():
    shown = [block for page in documents.pages() for block in documents.blocks(page)]
    wrong = [problem for block in shown for problem in file_problems(block)]
    files = {block.file for block in shown}
    wrong += [f"{file}: no page shows it" for file in documents.score_files() if file not in files]
    scores = [score for page in documents.pages() for score in documents.shown_scores(page)]
    wrong += [problem for score in scores for problem in outcome_problems(score)]
    print("\n".join(wrong) or f"{len(scores)} scores are shown as they are")
    return 1 if wrong or not scores else 0


sys.exit(main())
