"""C++ as a list of tokens, without white space, comments, text and directives."""

import re
from collections import namedtuple

Token = namedtuple("Token", "kind text start end")

TOKEN = re.compile(
    r"""(?P<skip> \s+ | //[^\n]* | /\*.*?\*/ | ^[ \t]*\#(?:\\\n|[^\n])* | R"\(.*?\)" | "(?:\\.|[^"\\\n])*" )
      | (?P<char> '(?:\\'|\\[^']+|[^'\\])' )
      | (?P<number> \.?\d(?:'?[\w.]|(?<=[eEpP])[+-])* )
      | (?P<name> [A-Za-z_]\w* )
      | (?P<operator> <<= | >>= | -> | :: | \+\+ | -- | << | >> | && | \|\| | [-+*/%&|^<>=!]= | . )""",
    re.VERBOSE | re.DOTALL | re.MULTILINE)


def tokenize(text):
    found = [Token(match.lastgroup, match.group(), match.start(), match.end())
             for match in TOKEN.finditer(text)]
    return [token for token in found if token.kind != "skip"]


def closing(tokens, at):
    """The index of the parenthesis that closes the one at `at`."""
    depth = 0
    for index in range(at, len(tokens)):
        depth += {"(": 1, ")": -1}.get(tokens[index].text, 0)
        if depth == 0:
            return index
    return len(tokens) - 1


def text_at(tokens, at):
    return tokens[at].text if 0 <= at < len(tokens) else ""
