"""The page of all messages: page.txt with what `vornkit explain` tells of each code, and
below each score that it shows what `vorn` prints, or `vornkit check` of what is legal.

    page = MessagePage(vorn, vornkit).text()
"""

import json
import pathlib
import re
import subprocess
import tempfile

FRAME = pathlib.Path(__file__).parent / "page.txt"
SCORE = "score.vorn"  # some messages name it
INCLUDED = ("drums.vorn", "i9 = 3, 0, 16 {\np2 1  p3 1 }\n")  # is there to be included
CARET = re.compile(r"\s*\^\s*")
TIME_LIMIT = 60  # seconds


def table(rows, text_of):
    return "\n".join(f"| [{row['code']}](#{row['code'].lower()}) | {text_of(row)} |" for row in rows)


def as_words(text):
    """A message of many lines in one, as tables and titles show it."""
    return " ".join(text.split())


def fenced(kind, text):
    return "\n".join([f"```{kind}", text.rstrip("\n"), "```"])


class MessagePage:
    def __init__(self, vorn, vornkit):
        self.vorn, self.vornkit = vorn, vornkit
        told = json.loads(self.run(vornkit, "explain", "--format", "json").stdout)
        self.explanations = [row for row in told["explanations"] if not row["code"].endswith("other")]
        self.printed = {row["code"]: self.message(row) for row in self.explanations if "score" in row}

    @staticmethod
    def run(*command, folder=None):
        return subprocess.run([str(word) for word in command], cwd=folder, capture_output=True, text=True,
                              errors="replace", timeout=TIME_LIMIT, check=False, stdin=subprocess.DEVNULL)

    def message(self, row):
        with tempfile.TemporaryDirectory(prefix="vorn-messages-") as folder:
            for name, text in ((SCORE, row["score"]), INCLUDED):
                (pathlib.Path(folder) / name).write_text(text)
            if row["code"].startswith("L"):
                return self.note(row["code"], self.run(self.vornkit, "check", "--midi", SCORE, folder=folder).stdout)
            return self.own_words(row, self.run(self.vorn, SCORE, "score.sco", folder=folder).stderr)

    @staticmethod
    def note(code, told):
        notes = re.split(r"(?<=\n)\n*(?=\S+:\d+:\d+: |\d+ notes?)", told)
        return next(note for note in notes if f"[{code}]" in note).strip("\n")

    @staticmethod
    def own_words(row, told):
        """The message among all that a run says: from its first line to its caret or a gap."""
        start = r"^(ERROR: |WARNING: |Include |Bad |Too ).*"
        title = re.escape(row["title"].split(" (N.B.")[0][:18]) if row["code"][1:].isdigit() else ""
        found = re.search(start + title + r"(?s:.*)", told, re.MULTILINE)
        lines = []
        for line in found[0].split("\n"):
            if not line.strip() or (lines and line.startswith(("ERROR", "WARNING"))):
                break
            lines.append(line.rstrip())
            if CARET.fullmatch(line):
                break
        return "\n".join(lines)

    def of_kind(self, kind, numbered):
        return [row for row in self.explanations
                if row["code"][0] == kind and row["code"][1:].isdigit() == numbered]

    def without_line(self):
        """All that is known to be told without a line, as a list of sentences."""
        rows = [row for row in self.explanations if row["code"] in self.printed and row["code"][0] != "L"]
        rows = [row for row in rows if not re.search(r"\bLine \d", self.printed[row["code"]])]
        return "\n".join(f"- [{row['code']}](#{row['code'].lower()}): {row['title']}" for row in rows)

    def entry(self, row):
        parts = [f"### {row['code']}", f"**{row['title']}**", row["cause"]]
        if "score" in row:
            parts += [fenced("mistake", row["score"]), fenced("told", self.printed[row["code"]])]
        parts += [row[key] for key in ("unprovoked", "cure") if key in row]
        if "cured" in row:
            parts.append(fenced("mended", row["cured"]))
        return "\n\n".join(parts)

    def text(self):
        fields = {
            "NO_LINE": self.without_line(),
            "ERRORS": table(self.of_kind("E", True), lambda row: as_words(row["title"])),
            "UNNUMBERED": table(self.of_kind("E", False), lambda row: row["title"]),
            "WARNINGS": table(self.of_kind("W", True) + self.of_kind("W", False), lambda row: as_words(row["title"])),
            "NOTES": table(self.of_kind("L", True), lambda row: row["title"]),
            "ONE_BY_ONE": "\n\n".join(self.entry(row) for row in self.explanations),
        }
        return re.sub(r"^[A-Z_]+$", lambda field: fields[field[0]], FRAME.read_text(), flags=re.MULTILINE)
