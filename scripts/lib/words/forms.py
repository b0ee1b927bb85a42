"""How lists of words are written in the files that they go into.

A template holds {{list kinds}}: "list" is one of the forms below, "kinds" are kinds of
words joined by "+".
"""
import json
import re

BOTH_CASES = re.compile("[a-z]")


def in_json(text):
    return json.dumps(text)[1:-1]


def regex_class(letters):
    """A character class with each letter in both cases."""
    escaped = [re.escape(letter) if letter in "+-*/]^\\" else letter for letter in letters]
    return "[" + "".join(sorted(set(escaped) | {letter.upper() for letter in escaped})) + "]"


class TextMate:
    """Regular expressions of Oniguruma, in strings of JSON."""

    @staticmethod
    def words(words, kinds):
        return "|".join(in_json(re.escape(word)) for word in words.letters(kinds))

    @staticmethod
    def marks(words, kinds):
        return "|".join(in_json(re.escape(mark)) for mark in words.marks(kinds))

    @staticmethod
    def letters(words, kinds):
        return in_json(regex_class(words.letters(kinds)))

    @staticmethod
    def exact(words, kinds):
        return in_json("[" + "".join(re.escape(word) for word in reversed(words.spellings(kinds))) + "]")


class Vim:
    """Regular expressions of Vim that begin with \\v, between slashes."""

    SPECIAL = "/~[]{}()<>=+*?|@%&^$.\\"

    @classmethod
    def escaped(cls, word):
        return "".join("\\" + letter if letter in cls.SPECIAL else letter for letter in word)

    @classmethod
    def words(cls, words, kinds):
        return "|".join(cls.escaped(word) for word in words.letters(kinds))

    @classmethod
    def marks(cls, words, kinds):
        return "|".join(cls.escaped(mark) for mark in words.marks(kinds))

    @staticmethod
    def letters(words, kinds):
        return regex_class(words.letters(kinds))

    @staticmethod
    def exact(words, kinds):
        letters = "".join(word for word in words.spellings(kinds) if word != "-")
        return "[" + letters + ("-" if "-" in words.spellings(kinds) else "") + "]"


class Emacs:
    """Lists of Lisp."""

    @staticmethod
    def quoted(text):
        return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'

    @classmethod
    def words(cls, words, kinds):
        return "(" + " ".join(cls.quoted(word) for word in words.spellings(kinds)) + ")"

    @classmethod
    def forms(cls, words, kinds):
        """What is told of each word: an association list."""
        told = {}
        for kind in kinds.split("+"):
            for word in words.of_kind(kind):
                told.setdefault(word["word"], []).append(word["signature"] + ": " + word["text"])
        rows = [f"({cls.quoted(word)} . {cls.quoted('  '.join(texts))})" for word, texts in told.items()]
        return "(" + "\n    ".join(rows) + ")"


class Man:
    """Tagged lists of mdoc."""

    DELIMITERS = ".,:;()[]?!|"  # a macro takes them out of its arguments

    @staticmethod
    def escaped(text):
        for mark, name in (("\\", "\\e"), ("~", "\\(ti"), ("^", "\\(ha"), ("'", "\\(aq")):
            text = text.replace(mark, name)
        return text

    @classmethod
    def form(cls, word):
        text = word["signature"]
        if not text.startswith(word["word"]):
            text = word["word"] + "   as in   " + text
        begins = "\\&" if text[0] in cls.DELIMITERS else ""
        ends = "\\&" if text[-1] in cls.DELIMITERS else ""
        return f'"{begins}{cls.escaped(text)}{ends}"'

    @classmethod
    def list(cls, words, kinds):
        lines = [".Bl -tag -width Ds"]
        for kind in kinds.split("+"):
            for word in words.of_kind(kind):
                lines += [".It Li " + cls.form(word), cls.escaped(word["text"]).replace(". ", ".\n")]
        return "\n".join(lines + [".El"])
