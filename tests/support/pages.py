"""The pages of the project, and what a reader sees of them.

    for page in pages():            every Markdown file that belongs to the project
    prose(text)                     without code, names of files, addresses and comments, line for line
    links(text)                     (line, target) of each link and image
    kept_files("*")                 the files of the project
"""

import pathlib
import re
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
FENCED = re.compile(r"^(```+|~~~+).*?^\1\s*$", re.MULTILINE | re.DOTALL)
COMMENT = re.compile(r"<!--.*?-->", re.DOTALL)
CODE = re.compile(r"(?<!`)(`+)(?!`)(.+?)(?<!`)\1(?!`)", re.DOTALL)
INDENTED = re.compile(r"(?:(?<=\n\n)|\A)(?: {4,}|\t).*(?:\n(?: {4,}|\t).*|\n(?=\n(?: {4,}|\t)))*")
TARGET = re.compile(r"(?<=\]\()[^)\s]+")
PLAIN_ADDRESS = re.compile(r"<?\bhttps?://\S+")
FILE_NAME = re.compile(r"[\w./-]*\w\.[a-z]{2,4}\b")
TAG = re.compile(r"</?[a-zA-Z][^>]*>")
HTML_TARGET = re.compile(r'\b(?:src|href)="([^"]+)"')


def kept_files(pattern):
    """Kept files and those that are about to be; of an unpacked archive all but what was built."""
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "-z", pattern],
                            cwd=ROOT, capture_output=True, text=True, check=False)
    if listed.returncode == 0:
        return sorted(ROOT / name for name in set(listed.stdout.split("\0")) - {""} if (ROOT / name).is_file())
    return sorted(path for path in ROOT.rglob(pattern)
                  if path.is_file() and not {"build", "node_modules"} & set(path.relative_to(ROOT).parts))


def pages():
    return kept_files("*.md")


def blank(found):
    """Nothing but the line ends, so that lines keep their numbers."""
    return "\n" * found[0].count("\n")


def without_blocks(text):
    return INDENTED.sub(blank, COMMENT.sub(blank, FENCED.sub(blank, text)))


def prose(text):
    text = CODE.sub(blank, without_blocks(text))
    for address in (TARGET, PLAIN_ADDRESS, TAG, FILE_NAME):
        text = address.sub(blank, text)
    return text


def links(text):
    text = CODE.sub(blank, without_blocks(text))
    for found in [*TARGET.finditer(text), *HTML_TARGET.finditer(text)]:
        yield text.count("\n", 0, found.start()) + 1, found[found.lastindex or 0]
