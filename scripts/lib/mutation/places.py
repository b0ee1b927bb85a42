"""Where a source can be changed in one small way, and how.

Reads C++ as clang-format lays it out: a binary operator has white space on both
sides, while a pointer's star or a template's angle bracket has none before it.
What does not compile in the end was no place; the caller finds that out.
"""

from collections import Counter, namedtuple

from mutation.statements import call_change, condition_change, return_change
from mutation.tokens import closing, tokenize

# text[start:end] of the file becomes `new`; `line` is where it starts. Of equal
# changes to equal lines of one file this is the nth, from 1.
Place = namedtuple("Place", "file number line start end old new nth")

BINARY = {"<": ("<=", ">="), ">": (">=", "<="), "<=": ("<", ">"), ">=": (">", "<"), "==": ("!=",),
          "!=": ("==",), "&&": ("||",), "||": ("&&",), "+": ("-",), "-": ("+",), "*": ("/",),
          "/": ("*",), "%": ("*",), "<<": (">>",), ">>": ("<<",), "&": ("|",), "|": ("&",),
          "+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "/=": ("*=",), "|=": ("&=",), "&=": ("|=",)}
UNARY = {"++": ("--",), "--": ("++",), "!": ("",), "-": ("",)}
WORDS = {"true": ("false",), "false": ("true",)}


def token_changes(token, text):
    if token.kind in ("number", "char"):
        return [f"({token.text} + 1)", f"({token.text} - 1)"]
    if token.kind == "name":
        return WORDS.get(token.text, ())
    before, behind = text[token.start - 1].isspace(), text[token.end:token.end + 1].isspace()
    if before and behind:
        return BINARY.get(token.text, ())
    return UNARY.get(token.text, ()) if token.text in ("++", "--") or not behind else ()


def changes(text):
    """Every (start, end, new text), those of one start one behind the other."""
    tokens = tokenize(text)
    silent_until = 0
    for at, token in enumerate(tokens):
        if token.text == "static_assert":
            silent_until = tokens[closing(tokens, at + 1)].end
        if token.start < silent_until:
            continue
        for new in token_changes(token, text):
            yield token.start, token.end, new
        for longer in (condition_change, return_change, call_change):
            found = longer(tokens, at)
            for new in found[1] if found else ():
                yield token.start, found[0], new


def find_places(file, text):
    counts = Counter()
    for start, end, new in changes(text):
        number = text.count("\n", 0, start) + 1
        line, old = text.splitlines()[number - 1].strip(), " ".join(text[start:end].split())
        counts[line, old, new] += 1
        yield Place(file, number, line, start, end, old, new, counts[line, old, new])
