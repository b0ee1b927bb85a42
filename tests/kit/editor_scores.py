"""The scores that editors are tested with; the first is the TextMate grammar's, too."""
import json
import pathlib

_DATA = json.loads((pathlib.Path(__file__).parent / "editor_pieces.json").read_text())
SCORE = "\n".join(_DATA["score"]) + "\n"

# Line, piece, which of the equal pieces of the line, and what it is.
PIECES = [tuple(piece) for piece in _DATA["pieces"]]

# An error, warnings and notes.
BAD = """\
te(400)
i1 = 4 0 4 {
p2 1
p3 1
p4 0,5 }
i2 = 4 0 4 {
p2 1
p3 1
p4 c4 }
"""


def column(line, piece, which):
    """Where the piece begins in its line, from 0; bytes and characters are the same here."""
    text = SCORE.splitlines()[line - 1]
    at = -1
    for _ in range(which):
        at = text.index(piece, at + 1)
    return at
