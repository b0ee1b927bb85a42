"""Writes the files that are made from the words, which standard input has as JSON."""
import json
import pathlib
import re
import sys
import textwrap

import listings
import regular_expressions
import snippets
from word_list import WordList

TEMPLATES = pathlib.Path("scripts/lib/words")
MADE_FROM_TEMPLATES = [
    ("editors/vscode/syntaxes/vorn.tmLanguage.json", regular_expressions.TextMate),
    ("editors/vim/syntax/vorn.vim", regular_expressions.Vim),
    ("editors/emacs/vorn-words.el", listings.Emacs),
    ("man/vorn.5", listings.Man),
]
SNIPPETS = "editors/vscode/snippets/vorn.json"


def wrapped_prose(text):
    """A man page's lines of prose are short, as mandoc wants them."""
    lines = []
    for line in text.splitlines():
        is_prose = line[:1] not in (".", "") and len(line) > 78
        lines += textwrap.wrap(line, 78, break_on_hyphens=False) if is_prose else [line]
    return "\n".join(lines) + "\n"


def from_template(path, form, words):
    template = (TEMPLATES / pathlib.Path(path).name).read_text()
    made = re.sub(r"\{\{(\w+) ([a-z:+-]+)\}\}",
                  lambda found: getattr(form, found[1])(words, found[2]), template)
    if path.endswith(".json"):
        return json.dumps(json.loads(made), indent=4, ensure_ascii=False) + "\n"
    return wrapped_prose(made) if form is listings.Man else made


def read(path):
    return pathlib.Path(path).read_text() if pathlib.Path(path).is_file() else None


def main():
    words = WordList(json.load(sys.stdin))
    files = {path: from_template(path, form, words) for path, form in MADE_FROM_TEMPLATES}
    files[SNIPPETS] = snippets.text(words)
    if sys.argv[1:] != ["--check"]:
        for path, text in files.items():
            pathlib.Path(path).write_text(text)
        return 0
    other = [path for path, text in files.items() if read(path) != text]
    for path in other:
        print(f"{path} is not what vornkit words makes of it: run scripts/words", file=sys.stderr)
    return 1 if other else 0


sys.exit(main())
