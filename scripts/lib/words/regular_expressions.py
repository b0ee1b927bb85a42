"""How lists of words are written in the files that they go into.

A template holds {{list kinds}}: "list" is one of the forms below, "kinds" are kinds of
words joined by "+".
"""
import json
import re


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
