"""Changes longer than one token: of conditions, returns and calls.

Each routine looks at the tokens from `at` on and gives the end of what it would
replace and the texts to put there, or nothing.
"""

from mutation.tokens import closing, text_at

NOT_CALLED = {"if", "for", "while", "switch", "sizeof", "static_assert"}


def condition_change(tokens, at):
    """if (...), while (...): as if it never held, and an if as if it always did."""
    if text_at(tokens, at) not in ("if", "while") or text_at(tokens, at + 1) != "(":
        return None
    last = closing(tokens, at + 1)
    if {"=", ";"} & {token.text for token in tokens[at + 2:last]}:
        return None
    word = tokens[at].text
    return tokens[last].end, ["if (false)", "if (true)"] if word == "if" else ["while (false)"]


def statement_end(tokens, at):
    while text_at(tokens, at) not in (";", "{", "}", ""):
        at += 1
    return at if text_at(tokens, at) == ";" else None


def return_change(tokens, at):
    """return expression; of any type: as if it were nothing, 0 or false."""
    last = statement_end(tokens, at) if tokens[at].text == "return" else None
    if last is None or last - at == 1 or last - at == 2 and tokens[at + 1].kind != "name":
        return None
    if tokens[at + 1].text in ("true", "false", "nullptr"):
        return None
    return tokens[last].end, ["return {};"]


def call_change(tokens, at):
    """name(...); as a statement of its own: left out."""
    if tokens[at].kind != "name" or tokens[at].text in NOT_CALLED:
        return None
    if text_at(tokens, at - 1) not in (";", "{", "}", ")", "else"):
        return None
    behind = at + 1
    while text_at(tokens, behind) in ("::", ".", "->"):
        behind += 2
    last = closing(tokens, behind) if text_at(tokens, behind) == "(" else None
    return (tokens[last + 1].end, [";"]) if last and text_at(tokens, last + 1) == ";" else None
