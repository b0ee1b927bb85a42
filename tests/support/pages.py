"""The pages of the project, and what a reader sees of them.

    for page in pages():            every Markdown file that belongs to the project
    prose(text)                     without code, names of files, addresses and comments, line for line
    links(text)                     (line, target) of each link and image
    anchors(text)                   what a link behind a # may name
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
HEADING = re.compile(r"^#{1,6} +(.*?) *#*$", re.MULTILINE)


def pages():
    """Kept files and those that are about to be; of an unpacked archive all but what was built."""
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "-z", "*.md"],
                            cwd=ROOT, capture_output=True, text=True, check=False)
    if listed.returncode == 0:
        return sorted(ROOT / name for name in set(listed.stdout.split("\0")) - {""} if (ROOT / name).exists())
    return sorted(path for path in ROOT.rglob("*.md")
                  if not {"build", "node_modules"} & set(path.relative_to(ROOT).parts))


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


def anchors(text):
    """As the pages of repositories name their headings: letters, digits, hyphens; twice said, numbered."""
    told = {}
    for heading in HEADING.findall(FENCED.sub(blank, text)):
        words = re.sub(r"\]\([^)]*\)", "]", heading).lower()
        anchor = re.sub(r"[^\w\- ]", "", words).replace(" ", "-")
        told[anchor] = told.get(anchor, -1) + 1
        yield anchor if told[anchor] == 0 else f"{anchor}-{told[anchor]}"
