"""The words of the language, chosen by kind."""
import re


def generator_class(word):
    """What stands within the parentheses of a generator, as its form tells."""
    form = word["signature"]
    if "equation" in form:
        return "equation"
    curve = "-curve" if "[curve]" in form else ""
    if "range" in form or "[low high]" in form or "from to" in form:
        return "range" + curve
    return "set" + curve if "[value ...]" in form or "[element ...]" in form else "value"


class WordList:
    def __init__(self, data):
        self._words = data["words"]

    def of_kind(self, kind):
        """The words of "kind", or of "generator:range", generators by what stands within."""
        kind, _, subset = kind.partition(":")
        found = [word for word in self._words if word["kind"] == kind]
        if subset:
            found = [word for word in found if generator_class(word) == subset]
        if not found:
            raise SystemExit(f"no word of kind {kind} {subset}")
        return found

    def spellings(self, kinds):
        """Of "kind+kind", each once and longer ones first, so that no word hides a longer one."""
        found = {word["word"] for kind in kinds.split("+") for word in self.of_kind(kind)}
        return sorted(found, key=lambda word: (-len(word), word))

    def letters(self, kinds):
        return [word for word in self.spellings(kinds) if re.fullmatch("[A-Za-z0-9#@]+", word)]

    def marks(self, kinds):
        return [word for word in self.spellings(kinds) if not re.fullmatch("[A-Za-z0-9#@]+", word)]
