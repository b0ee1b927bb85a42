"""The commands of docs/windows.md, for tests on systems that are not Windows: Csound is the one of this system
and writes a file where it would play."""

import pathlib
import re
import shlex
import shutil
import subprocess

import documents

PAGE = documents.ROOT / "docs" / "windows.md"
UNPACKED = "C:\\vorn"  # where the page has the archive
FILE_NAMES = {"csd": "piece.csd", "vorn": "one-note.vorn"}


def commands():
    """The lines of all its blocks of commands, in order."""
    return [line for block in documents.blocks(PAGE) if block.kind == "bat" for line in block.text.splitlines()]


def save_what_is_shown(folder):
    """As the reader of the page does."""
    for block in documents.blocks(PAGE):
        if block.kind in FILE_NAMES:
            (folder / FILE_NAMES[block.kind]).write_text(block.text)


def run_csound(arguments, folder, environment=None):
    """The sound file, and what Csound said."""
    played = ["-o", "played.wav"]
    if "-o" in arguments:
        played = []
    words = ["csound", *(word for word in arguments if word != "-odac"), *played]
    done = subprocess.run(words, cwd=folder, env=environment, capture_output=True, timeout=300, check=False,
                          stdin=subprocess.DEVNULL)
    said = (done.stdout + done.stderr).decode(errors="replace")
    if done.returncode != 0:
        raise AssertionError(f"{shlex.join(words)}\n{said}")
    return folder / (words[words.index("-o") + 1]), re.sub(r"\x1b\[m", "", said)


def lay_out(top, program):
    """What the archive for Windows holds, with this system's program."""
    (top / "bin").mkdir(parents=True)
    (top / "bin" / "vorn").symlink_to(program)
    for name in ("docs", "examples"):
        shutil.copytree(documents.ROOT / name, top / name)


def as_here(line, top):
    """A line of commands as this system takes it."""
    words = line.replace(UNPACKED, str(top)).replace("\\", "/").split()
    return ["cp" if word == "copy" else word for word in words]
