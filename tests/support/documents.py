"""What documents show: their fenced blocks, scores with what is said to come of them.

    [bell.vorn](scores/bell.vorn)     a link at the end of the last line before a block names its file

    ```vorn                           a score
    ```score                          what it yields
    ```message                        what the run says of it; an error if nothing is yielded
"""

import dataclasses
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
FENCE = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
KINDS_OF_FILES = (".vorn", ".orc", ".txt")
FILE_LINK = re.compile(r"\]\(([^)\s]+\.(?:vorn|orc|txt))\)$")


@dataclasses.dataclass
class Block:
    page: pathlib.Path
    line: int
    kind: str
    text: str
    file: pathlib.Path | None  # that the line before it links to

    @property
    def place(self):
        return f"{self.page.relative_to(ROOT)}:{self.line}"


@dataclasses.dataclass
class ShownScore:
    block: Block
    yields: list = dataclasses.field(default_factory=list)
    messages: list = dataclasses.field(default_factory=list)


def pages():
    return [ROOT / "README.md", *sorted((ROOT / "docs").rglob("*.md")),
            *sorted((ROOT / "examples").glob("*.md"))]


def blocks(page):
    text = page.read_text()
    for fence in FENCE.finditer(text):
        before = text[:fence.start()].rstrip("\n").rsplit("\n", 1)[-1]
        links = FILE_LINK.findall(before)
        file = (page.parent / links[-1]).resolve() if links else None
        yield Block(page, text.count("\n", 0, fence.start()) + 1, fence[1], fence[2], file)


def shown_scores(page):
    score = None
    for block in blocks(page):
        if block.kind == "vorn":
            score = ShownScore(block)
            yield score
        elif block.kind == "score":
            score.yields.append(block)
        elif block.kind == "message":
            score.messages.append(block)


def score_files():
    """What documents show and keep as files of their own."""
    return sorted(file for file in (ROOT / "docs").rglob("*") if file.suffix in KINDS_OF_FILES)
