"""How lists of words are written in the files that they go into.

A template holds {{list kinds}}: "list" is one of the forms below, "kinds" are kinds of
words joined by "+".
"""


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
