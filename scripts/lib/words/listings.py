"""How lists of words are written in the files of Lisp and of mdoc; see regular_expressions.py."""


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
