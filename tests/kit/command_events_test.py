"""vornkit events: its JSON against the schema and the score, its CSV, and how it is refused."""
import csv
import io
import json
import os
import pathlib
import pty
import re
import shutil
import subprocess
import time
import unittest

import jsonschema

from vornkit import VORNKIT, CommandTest, shown_on

ROOT = pathlib.Path.cwd()
SCHEMA = json.loads((ROOT / "kit/schema/events.schema.json").read_text())


def validator_of(schema):
    """By the description at that place; what it refers to lies beside it."""
    text = json.loads(schema.read_text())
    return jsonschema.Draft202012Validator(text, resolver=jsonschema.RefResolver(schema.resolve().as_uri(), text))


VALIDATOR = validator_of(ROOT / "kit/schema/events.schema.json")
VORN = pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")).resolve()

SCORE = """te(0 8 60 120)
> f1 0 8192 10 1
i3 = 5 0 4 {
p2 1
p3 < .9 .8 -1 >
p4(db) db 70
p5(hz) no < c4 e g >
}
i-4 = 3 0 2 { p2 1 p3 1 }
i1 = 6 2 -3 {
p2 1
p3 1
p4(xx) 1 2 3
p5 re5 .1 .2 .3
p6(in) 1.5 2.5 3.5
}
i2 = 3 0 2 { p2 1 p3 0 }
"""
REFUSED = "i1 = 3 0 2 {\np2 1\np3 1\n}\ni1 = 3 0 2 {\np2 x\n}\n"


def written_lines(piece):
    """The i-statements of the score, from the written forms of the JSON."""
    for block in piece["blocks"]:
        names = [name for name in block["events"] if name.endswith("_written")]
        for values in zip(*(block["events"][name] for name in names)):
            yield [f"i{block['instrument']}", *(value for value in values if value is not None)]


class EventsCommand(CommandTest):
    def events_json(self, *arguments, status=0, **options):
        done = self.vornkit("events", *arguments, **options)
        self.assertEqual(done.returncode, status, done.stderr)
        piece = json.loads(done.stdout)
        VALIDATOR.validate(piece)
        for block in piece["blocks"]:
            for name, column in block["events"].items():
                self.assertEqual(len(column), block["count"], name)
        return piece

    def test_what_is_installed_describes_it(self):
        self.run_program("cmake", "--install", pathlib.Path(VORNKIT).resolve().parent, "--prefix", self.folder / "there")
        [schema] = (self.folder / "there").rglob("events.schema.json")
        link = (schema.parents[2] / "docs/events.md").read_text().split("[events.schema.json](")[1].split(")")[0]
        self.assertEqual((schema.parents[2] / "docs" / link).resolve(), schema.resolve())
        self.write("bad.vorn", REFUSED)
        piece = json.loads(self.vornkit("events", "bad.vorn").stdout)
        self.assertNotEqual(piece["diagnostics"], [])
        validator_of(schema).validate(piece)

    def test_the_json_tells_all_of_the_score(self):
        self.write("piece.vorn", SCORE)
        piece = self.events_json("piece.vorn")
        self.assertEqual((piece["version"], piece["score"], piece["status"]), (1, "piece.vorn", 0))
        tempo, = piece["tempos"]
        self.assertEqual((tempo["line"], tempo["start_tempo"], tempo["end_beat"]), (1, 60, 8))
        line, = piece["direct_lines"]
        self.assertEqual((line["line"], line["before_block"], line["text"].strip()), (2, 1, "f1 0 8192 10 1"))
        self.assertEqual([(b["block"], b["block_in_score"], b["instrument"], b["line"], b["skipped"], b["count"])
                          for b in piece["blocks"]],
                         [(1, 1, 3, 3, False, 3), (2, None, -4, 9, True, 0), (3, 2, 1, 10, False, 3),
                          (4, None, 2, 17, False, 0)])
        self.assertEqual([(f["pfield"], f["input"], f["output"], f["line"]) for f in piece["blocks"][0]["fields"]],
                         [(2, "re", "re", 4), (3, "re", "re", 5), (4, "db", "db", 6), (5, "no", "hz", 7)])
        third = piece["blocks"][2]["events"]
        self.assertEqual(third["p4_written"], [None] * 3)
        self.assertEqual((third["p5"], third["p5_written"]), ([0.1, 0.2, 0.3], ["0.10000", "0.20000", "0.30000"]))
        self.assertEqual((third["p6"], third["p6_written"]), ([1.5, 2.5, 3.5], ["2", "3", "4"]))
        self.assertEqual(third["beat"], [2, 3, 4])

    def test_written_forms_are_those_of_the_score(self):
        for score in sorted((ROOT / "examples").glob("*/*.vorn")):
            for beside in score.parent.iterdir():  # what it includes
                shutil.copy(beside, self.folder)
            with self.subTest(score.name):
                self.check_written_forms(score.name)

    def check_written_forms(self, score):
        self.assertEqual(self.run_program(VORN, score, "out.sco").returncode, 0)
        lines = [line.split() for line in (self.folder / "out.sco").read_text().splitlines()
                 if re.match(r"i\d", line)]
        self.assertTrue(lines)
        self.assertEqual(list(written_lines(self.events_json(score))), lines)

    def test_rests_are_told_on_request(self):
        self.write("piece.vorn", SCORE)
        block = self.events_json("--rests", "piece.vorn")["blocks"][0]
        self.assertEqual(block["count"], 4)
        self.assertEqual([duration > 0 for duration in block["events"]["duration"]], [True, True, False, True])
        for name in ("start_written", "p5_written"):
            self.assertEqual([text is None for text in block["events"][name]], [False, False, True, False])
        self.assertEqual(block["events"]["p5"], [48, 52, 55, 48])

    def test_the_csv_is_the_same_table(self):
        name = 'a "quoted", name.vorn'
        self.write(name, SCORE)
        self.assertEqual(self.vornkit("events", name, "-o", "out.csv").returncode, 0)
        blocks = self.events_json(name)["blocks"]
        rows = list(csv.DictReader(io.StringIO((self.folder / "out.csv").read_text())))
        self.assertEqual(len(rows), sum(block["count"] for block in blocks))
        self.assertEqual(list(rows[0])[:9], ["block", "instrument", "file", "line", "start", "start_written",
                                             "duration", "duration_written", "beat"])
        self.assertEqual(list(rows[0])[-1], "p6_written")
        row = 0
        for block in blocks:
            for at in range(block["count"]):
                self.check_row(rows[row], name, block, at)
                row += 1

    def check_row(self, row, name, block, at):
        self.assertEqual([row["block"], row["instrument"], row["file"], row["line"]],
                         [str(block["block"]), str(block["instrument"]), name, str(block["line"])])
        for column in list(row)[4:]:
            values = block["events"].get(column)
            expected = None if values is None else values[at]
            if expected is None:
                self.assertEqual(row[column], "", column)
            elif column.endswith("_written"):
                self.assertEqual(row[column], expected)
            else:
                self.assertEqual(float(row[column]), expected)

    def test_what_is_no_number_is_null_and_tells_itself_in_its_written_form(self):
        self.write("odd.vorn", "i1 = 4 0 -2 {\np2 1\np3 1\np4(db) re 0 1\n}\n")
        events = self.events_json("odd.vorn")["blocks"][0]["events"]
        self.assertEqual((events["p4"], events["p4_written"]), ([0, 1], ["-inf", "0.0"]))
        # More than a float holds, over more than a float holds.
        self.write("huge.vorn", "i1 = 4 0 -1 {\np2 1\np3 1\np4 " + "9" * 50 + "\n}\n")
        events = self.events_json("huge.vorn")["blocks"][0]["events"]
        self.assertEqual((events["p4"], events["p4_written"]), ([None], ["-nan"]))
        table = self.vornkit("events", "huge.vorn", "--format", "csv").stdout
        self.assertTrue(table.endswith(",,-nan\n"), table)

    def test_included_files_are_named(self):
        self.write("parts/low.vorn", "\ni1 = 3 0 1 { p2 1 p3 1 }\n")
        self.write("parts/all.vorn", '#include |low.vorn|\n')
        piece = self.events_json("--relative", "parts/all.vorn")
        self.assertEqual((piece["blocks"][0]["file"], piece["blocks"][0]["line"]), ("parts/low.vorn", 2))

    def test_bytes_that_are_no_text_stay_readable(self):
        self.write("odd.vorn", b"> f1 \xfe\xe9 \"x\\ \x01\ni1 = 3 0 1 { p2 1 p3 1 }\n")
        text = self.events_json("odd.vorn")["direct_lines"][0]["text"]
        self.assertIn("\ufffd\ufffd \"x\\ ", text)

    def test_standard_input_and_output(self):
        piece = self.events_json("-", input=SCORE.encode())
        self.assertEqual((piece["score"], piece["blocks"][0]["file"]), ("<stdin>", "<stdin>"))
        done = self.vornkit("events", "--format", "csv", "-", input=SCORE.encode())
        self.assertTrue(done.stdout.startswith("block,instrument,file,line,"))

    def test_the_format_is_what_is_asked_or_what_the_name_says(self):
        self.write("piece.vorn", SCORE)
        for arguments, begins in ((("-o", "a.json"), "{"), (("-o", "a.csv"), "block"),
                                  (("-o", "a.json", "--format", "csv"), "block"),
                                  (("-o", "a.txt", "--format", "json"), "{")):
            done = self.vornkit("events", "piece.vorn", *arguments)
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""), arguments)
            self.assertTrue((self.folder / arguments[1]).read_text().startswith(begins), arguments)

    def test_a_refused_score_tells_its_mistake_and_what_came_before(self):
        self.write("bad.vorn", REFUSED)
        done = self.vornkit("events", "bad.vorn", "-o", "out.json")
        self.assertEqual(done.returncode, 1)
        self.assertIn("bad.vorn:6:4: error: ", done.stderr)
        piece = json.loads((self.folder / "out.json").read_text())
        VALIDATOR.validate(piece)
        self.assertEqual((piece["status"], len(piece["blocks"]), piece["blocks"][0]["count"]), (1, 1, 2))
        told = piece["diagnostics"][0]
        place = told["place"]
        self.assertEqual((told["level"], place["file"], place["line"], place["column"]), ("error", "bad.vorn", 6, 4))

    def test_a_refused_score_leaves_an_older_csv(self):
        self.write("bad.vorn", REFUSED)
        self.write("old.csv", "older")
        self.assertEqual(self.vornkit("events", "bad.vorn", "-o", "old.csv").returncode, 1)
        self.assertEqual((self.folder / "old.csv").read_text(), "older")
        self.assertEqual(self.vornkit("events", "bad.vorn", "--format", "csv").stdout, "")
        self.assertEqual(self.files(), ["bad.vorn", "old.csv"])

    def test_wrong_use_is_told_with_status_two(self):
        self.write("piece.vorn", SCORE)
        self.write("also.json", SCORE)
        for arguments, said in (([], "SCORE"), (["none.vorn", "-o", "x.json"], "none.vorn"),
                                (["piece.vorn", "-o", "x.txt"], "neither in .json nor in .csv"),
                                (["piece.vorn", "-o", "no/such/x.json"], "cannot write no/such/x.json"),
                                (["piece.vorn", "-o", ".", "--format", "csv"], "is a folder"),
                                (["also.json", "-o", "also.json"], "is read for this"),
                                (["piece.vorn", "--format", "xml"], "--format")):
            done = self.vornkit("events", *arguments)
            self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)
            self.assertIn(said, done.stderr)
        self.assertEqual(self.files(), ["also.json", "piece.vorn"])

    def test_a_score_on_standard_input_is_not_written_over(self):
        self.write("piece.json", SCORE)
        with open(self.folder / "piece.json", encoding="utf-8") as score:
            done = self.vornkit("events", "-", "-o", "piece.json", stdin=score)
        self.assertEqual((done.returncode, (self.folder / "piece.json").read_text()), (2, SCORE))
        self.assertIn("is read for this", done.stderr)

    @unittest.skipIf(not os.path.exists("/dev/full"), "no full device here")
    def test_a_full_disk_is_told(self):
        self.write("piece.vorn", SCORE)
        done = self.vornkit("events", "piece.vorn", "-o", "/dev/full", "--format", "csv")
        self.assertEqual(done.returncode, 2)
        self.assertIn("No space left", done.stderr)

    def test_the_help_shows_an_example(self):
        done = self.vornkit("events", "--help")
        self.assertEqual(done.returncode, 0)
        self.assertIn("vornkit events piece.vorn -o piece.json", done.stdout)

    def test_what_takes_long_is_shown_on_a_terminal(self):
        terminal, other_end = pty.openpty()
        program = pathlib.Path(VORNKIT).resolve()
        with subprocess.Popen([program, "events", "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                              stderr=other_end, cwd=self.folder) as running:
            os.close(other_end)
            time.sleep(1.6)  # the score does not come
            output, _ = running.communicate(SCORE.encode(), timeout=60)
        said = shown_on(terminal).decode()
        os.close(terminal)
        self.assertIn("reading -, 1 s", said)
        self.assertTrue(said.endswith("\r\x1b[K"), said)
        self.assertTrue(output.startswith(b"{"))

    def test_the_document_shows_what_pandas_prints(self):
        document = (ROOT / "docs/events.md").read_text()
        fences = {kind: re.findall(rf"^```{kind}\n(.*?)^```$", document, re.MULTILINE | re.DOTALL)
                  for kind in ("vorn", "python", "text")}
        self.assertEqual(len(fences["python"][0].splitlines()), 3)
        self.write("arpeggio.vorn", fences["vorn"][0])
        for name in ("arpeggio.json", "arpeggio.csv"):
            self.assertEqual(self.vornkit("events", "arpeggio.vorn", "-o", name).returncode, 0)
        script = "".join(fences["python"]) + 'assert len(pandas.read_csv("arpeggio.csv")) == len(events)\n'
        done = self.run_program("/usr/bin/python3", "-c", script)
        self.assertEqual((done.stdout.decode(), done.stderr.decode()), (fences["text"][0], ""))


if __name__ == "__main__":
    unittest.main()
