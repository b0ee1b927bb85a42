#!/usr/bin/env python3
"""vornkit check from outside: statuses, streams, data, bad input."""
import json
import os
import pathlib
import pty
import resource
import subprocess
import unittest

import jsonschema
import vornkit

TOP = pathlib.Path(__file__).resolve().parents[2]
SCHEMA = json.loads((TOP / "kit/schema/check.schema.json").read_text())
MISTAKES = TOP / "tests/kit/mistakes"
WELL = "i1 = 4 0 4 {\np2 1\np3 1\np4 60 }\n"
BAD = "i1 = 4 0 4 {\np2 1\np3 1\np4 60 c4 }\n"
BAD_TEXT = ("bad.vorn:4:7: error: Data is out of bounds. [E27]\n"
            "p4 60 c4 }\n"
            "      ^^\n"
            "help: write `no` before note names\n")


def processor_time(program, *arguments, cwd):
    """Seconds of processor time of one run, whose output is dropped."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run([program, *arguments], cwd=cwd, stdout=subprocess.DEVNULL, check=False, timeout=120)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


class CheckTest(vornkit.CommandTest):
    def check(self, *arguments, **options):
        return self.vornkit("check", *arguments, **options)

    def data(self, *arguments, **options):
        done = self.check("--format", "json", *arguments, **options)
        report = json.loads(done.stdout)
        jsonschema.validate(report, SCHEMA)
        return report

    def on_terminal(self, *arguments, **environment):
        """What a run writes to a terminal."""
        ours, theirs = pty.openpty()
        program = pathlib.Path(vornkit.VORNKIT).resolve()
        variables = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
        with subprocess.Popen([program, "check", *arguments], cwd=self.folder, stdout=theirs,
                              env={**variables, **environment}) as run:
            os.close(theirs)
            text = b""
            try:
                while part := os.read(ours, 65536):
                    text += part
            except OSError:  # the other end is closed
                pass
            run.wait()
        os.close(ours)
        return text.decode(errors="replace").replace("\r\n", "\n")

    # --- what is said ---

    def test_says_nothing_when_all_is_well(self):
        self.write("well.vorn", WELL)
        done = self.check("well.vorn")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_an_empty_score_is_told_to_be_empty(self):
        self.write("comment.vorn", "; to be written\n")
        self.write("header.vorn", "#define A #60#\ni1 = 4 0 -3 {\n")
        for name in ("/dev/null", "comment.vorn", "header.vorn"):
            done = self.check(name)
            self.assertEqual((done.returncode, done.stdout, done.stderr),
                             (0, "", f'vornkit: "{name}" has no block, so there is nothing to play\n'))
        self.write("parts.inc", "#define A #60#\n#const B 2\n")
        self.assertEqual(self.check("parts.inc").stderr, "")

    def test_tells_mistakes_on_standard_output(self):
        self.write("bad.vorn", BAD)
        done = self.check("bad.vorn")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (1, BAD_TEXT, ""))

    def test_checks_each_score(self):
        self.write("well.vorn", WELL)
        self.write("bad.vorn", BAD)
        done = self.check("bad.vorn", "well.vorn", "bad.vorn")
        self.assertEqual((done.returncode, done.stdout), (1, BAD_TEXT * 2))

    def test_reads_standard_input(self):
        done = self.check("-", input=BAD.encode())
        self.assertEqual((done.returncode, done.stdout), (1, BAD_TEXT.replace("bad.vorn", "<stdin>")))

    def test_a_warning_leaves_the_status_alone(self):
        self.write("long.vorn", WELL.replace("60", "60 62 64 65 67"))
        done = self.check("long.vorn")
        self.assertEqual(done.returncode, 0)
        self.assertTrue(done.stdout.startswith("long.vorn:4:16: warning: "), done.stdout)

    def test_finds_includes_beside_their_file_when_asked(self):
        self.write("a/all.vorn", "#include |part.inc|\n")
        self.write("a/part.inc", WELL)
        self.assertEqual(self.check("a/all.vorn").returncode, 1)
        self.assertEqual(self.check("--relative", "a/all.vorn").returncode, 0)

    def test_an_include_that_is_not_found_is_told_by_its_whole_path(self):
        self.write("a/all.vorn", "#include |parts/bass.inc|\n")
        here = self.folder.resolve()
        for options, place in (([], here), (["--relative"], here / "a")):
            said = self.check(*options, "a/all.vorn").stdout
            self.assertIn(f'help: looked for "{place}/parts/bass.inc" and found nothing there', said)
            self.assertIn("help: names count from the folder that Vorn runs in", said)
        self.write("whole.vorn", f"#include |{here}/bass.inc|\n")
        said = self.check("whole.vorn").stdout
        self.assertIn(f'help: looked for "{here}/bass.inc" and found nothing there', said)
        self.assertNotIn("names count from", said)

    def test_what_leaves_a_score_accepted_is_no_error(self):
        self.write("open.vorn", "#if(~VERSE)\n" + WELL + "#endif\n")
        score, = self.data("open.vorn")["scores"]
        self.assertEqual((score["accepted"], [one["level"] for one in score["diagnostics"]]), (True, ["warning"]))
        self.write("both.vorn", "#if(~VERSE)\n#endif\n" + BAD)
        score, = self.data("both.vorn")["scores"]
        self.assertEqual((score["accepted"], [one["level"] for one in score["diagnostics"]]),
                         (False, ["warning", "error"]))

    def test_warnings_that_are_not_told_are_counted(self):
        self.write("many.vorn", "i1 = 3 0 -1 {\np2 1\np3 1 2 }\n" * 10_100)
        told = self.data("many.vorn")["scores"][0]["diagnostics"]
        warnings = [one for one in told if one["level"] == "warning"]
        self.assertEqual(len(warnings), 10_001)
        self.assertEqual((warnings[-1]["code"], warnings[-1]["repeats"]), ("Wmore", 100))

    def test_a_text_without_an_end_is_given_up_soon(self):
        program = pathlib.Path(vornkit.VORNKIT).resolve()
        with open("/dev/zero", "rb") as endless:
            check = subprocess.Popen([program, "check", "-"], stdin=endless, stdout=subprocess.PIPE)
        with check.stdout:
            told = check.stdout.read().decode()
        _, status, used = os.wait4(check.pid, 0)
        check.returncode = os.waitstatus_to_exitcode(status)
        self.assertIn("more than 100000000 characters. [Eendless]", told)
        self.assertIn("help: give the text as a file", told)
        self.assertNotEqual(check.returncode, 0)
        self.assertLess(used.ru_maxrss, 600_000)  # kilobytes

    def test_a_file_may_be_longer_than_what_has_no_end(self):
        line = "; " + "x" * 997 + "\n"
        self.write("long.vorn", line * 100_001 + BAD)
        self.write("all.vorn", "#include |long.vorn|\n")
        told = BAD_TEXT.replace("bad.vorn:4", "long.vorn:100005")
        self.assertEqual(self.check("long.vorn", env={**os.environ, "TMPDIR": str(self.folder)}).stdout, told)
        self.assertEqual(self.files(), ["all.vorn", "long.vorn"])
        self.assertEqual(self.check("all.vorn").stdout, told)
        with open(self.folder / "long.vorn", "rb") as text:
            self.assertEqual(self.check("-", stdin=text).stdout, told.replace("long.vorn", "<stdin>"))

    def test_a_file_without_room_for_a_copy_is_told(self):
        self.write("long.vorn", "; " + "x" * 100_000_000 + "\n" + WELL)
        most = (50_000_000, 50_000_000)
        done = self.check("long.vorn", env={**os.environ, "TMPDIR": str(self.folder)},
                          preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, most))
        self.assertEqual((done.returncode, self.files()), (1, ["long.vorn"]))
        self.assertIn(f"vornkit: cannot write {self.folder}/vornkit.vorn: File too large", done.stderr)

    def test_a_file_that_memory_could_not_hold_is_refused(self):
        with open(self.folder / "huge.vorn", "wb") as file:
            file.truncate(1_000_000_001)
        self.assert_wrong_use(self.check("huge.vorn"), 'cannot read "huge.vorn": File too large')

    def test_names_may_hold_anything(self):
        for name in ["mit Leerzeichen.vorn", "Gl\u00f6ckchen.vorn", "a'b\"c.vorn", "$(date).vorn", "-x.vorn"]:
            self.write(name, BAD)
            done = self.check("--", name)
            self.assertEqual((done.returncode, done.stderr), (1, ""))
            self.assertTrue(done.stdout.endswith(BAD_TEXT.partition(":")[2]), done.stdout)

    # --- terminals ---

    def test_colors_only_on_a_terminal_that_wants_them(self):
        self.write("bad.vorn", BAD)
        self.assertIn("\x1b[1;31merror:\x1b[0m", self.on_terminal("bad.vorn"))
        self.assertEqual(self.on_terminal("bad.vorn", NO_COLOR="1"), BAD_TEXT)

    def test_a_terminal_gets_no_control_characters_of_the_score(self):
        self.write("bad.vorn", BAD.replace("c4", "\x1b[2J"))
        self.assertNotIn("\x1b[2J", self.on_terminal("bad.vorn"))
        self.assertIn("\\x1B[2J", self.on_terminal("bad.vorn"))
        self.assertIn("\x1b[2J", self.check("bad.vorn").stdout)

    # --- data ---

    def test_the_same_as_data(self):
        self.write("bad.vorn", BAD)
        self.assertEqual(self.data("bad.vorn"), {"version": 1, "scores": [{
            "score": "bad.vorn", "accepted": False, "diagnostics": [{
                "level": "error", "code": "E27", "text": "Data is out of bounds.",
                "place": {"file": "bad.vorn", "line": 4, "column": 7, "end_line": 4, "end_column": 9,
                          "offset": 29, "end_offset": 31},
                "source": {"text": "p4 60 c4 }", "column": 7, "end_column": 9},
                "expansion": None, "notes": [],
                "advice": ["write `no` before note names"],
                "edits": [{"place": {"file": "bad.vorn", "line": 4, "column": 7, "end_line": 4,
                                     "end_column": 7, "offset": 29, "end_offset": 29},
                           "replacement": "no "}],
                "fix": {"title": "write `no` here", "replacement": "no ", "file": "bad.vorn", "line": 4,
                        "column": 7, "end_line": 4, "end_column": 7, "offset": 29, "end_offset": 29},
                "repeats": 1}]}]})

    def test_data_of_an_expansion_of_several_lines(self):
        self.write("bad.vorn", "#define A #60\n62 h4\n64#\n" + WELL.replace("60", "$A"))
        expansion = self.data("bad.vorn")["scores"][0]["diagnostics"][0]["expansion"]
        self.assertEqual((expansion["before"], expansion["line"], expansion["after"]),
                         (["p4 60"], {"text": "62 h4", "column": 4, "end_column": 6}, ["64 }"]))

    def test_a_fix_is_one_change_of_the_file_in_which_it_stands(self):
        self.write("bad.vorn", "; \u00f6\n#include |part.inc|\n")
        self.write("part.inc", "; \u00fc\n/* \u00e4 */ \n" + WELL.replace("= 4 0 4", "= 4 0,5 4,5"))
        fix = self.data("bad.vorn")["scores"][0]["diagnostics"][0]["fix"]
        self.assertEqual(fix, {"title": "write `0.5 4.5` instead of `0,5 4,5`", "replacement": "0.5 4.5",
                               "file": "part.inc", "line": 3, "column": 8, "end_line": 3, "end_column": 15,
                               "offset": 22, "end_offset": 29})

    def test_the_document_shows_what_is_told(self):
        self.write("piece.vorn", WELL.replace("= 4 0 4", "= 4 0 0,9"))
        document = (TOP / "docs/check.md").read_text()
        self.assertIn("```text\n" + self.check("piece.vorn").stdout + "```", document)
        fix = self.data("piece.vorn")["scores"][0]["diagnostics"][0]["fix"]
        self.assertIn("```json\n" + json.dumps(fix, indent=2) + "\n```", document)

    def test_no_fix_where_no_cure_is_certain(self):
        self.write("bad.vorn", WELL.replace("60", "loud"))
        self.assertIsNone(self.data("bad.vorn")["scores"][0]["diagnostics"][0]["fix"])

    def test_data_of_what_is_well(self):
        self.write("well.vorn", WELL)
        self.assertEqual(self.data("well.vorn"),
                         {"version": 1, "scores": [{"score": "well.vorn", "accepted": True, "diagnostics": []}]})

    def test_data_of_every_mistake_is_as_the_schema_says(self):
        report = self.data(*[folder / "in.vorn" for folder in sorted(MISTAKES.iterdir())])
        told = [one for score in report["scores"] for one in score["diagnostics"]]
        self.assertGreaterEqual(sum(one["expansion"] is not None for one in told), 2)
        self.assertGreaterEqual(sum(one["fix"] is not None for one in told), 60)

    def test_bytes_that_are_no_text_become_replacement_characters(self):
        self.write("bad.vorn", BAD.encode().replace(b"c4", b"\xff\xfe"))
        place = self.data("bad.vorn")["scores"][0]["diagnostics"][0]
        self.assertIn("\ufffd", place["source"]["text"])

    # --- wrong use ---

    def assert_wrong_use(self, done, words):
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertIn(words, done.stderr)

    def test_wrong_use(self):
        self.write("well.vorn", WELL)
        (self.folder / "folder").mkdir()
        self.assert_wrong_use(self.check(), "SCORE is required")
        self.assert_wrong_use(self.check("none.vorn"), "cannot read \"none.vorn\": No such file")
        self.assert_wrong_use(self.check("folder"), "cannot read \"folder\": Is a directory")
        self.assert_wrong_use(self.check("--format", "xml", "well.vorn"), "xml")
        self.assert_wrong_use(self.check("-", "-", input=b""), "give \"-\" once")
        self.assert_wrong_use(self.check(""), "cannot read \"\"")

    @unittest.skipIf(os.geteuid() == 0, "root reads everything")
    def test_a_file_that_may_not_be_read(self):
        self.write("closed.vorn", WELL).chmod(0)
        self.assert_wrong_use(self.check("closed.vorn"), "Permission denied")

    def test_the_other_scores_are_checked_all_the_same(self):
        self.write("bad.vorn", BAD)
        done = self.check("none.vorn", "bad.vorn")
        self.assertEqual((done.returncode, done.stdout), (2, BAD_TEXT))

    def test_a_report_that_cannot_be_written(self):
        self.write("bad.vorn", BAD)
        self.write("other.vorn", BAD)
        program = pathlib.Path(vornkit.VORNKIT).resolve()
        with open(self.folder / "other.vorn", "rb") as unwritable:
            done = subprocess.run([program, "check", "bad.vorn"], cwd=self.folder, stdout=unwritable,
                                  stderr=subprocess.PIPE, check=False, timeout=60)
        self.assertEqual(done.returncode, 2)
        self.assertIn(b"cannot write all to standard output", done.stderr)

    def test_help_begins_with_an_example(self):
        done = self.check("--help")
        self.assertEqual(done.returncode, 0)
        self.assertIn("vornkit check piece.vorn", done.stdout)

    # --- large and strange texts ---

    def test_strange_texts(self):
        texts = {"empty": b"", "zeros": bytes(1000), "all": bytes(range(256)) * 50, "brace": b"{" * 5000,
                 "call": b"$" * 5000, "hash": b"#" * 5000, "open": b"i1=4 0 4{p2(", "cut": b"\xe2\x80",
                 "deep": b"/*" * 5000, "paren": b"i1=4 0 4{p2 1 p3 1 p4 " + b"ra(" * 5000}
        for name, text in texts.items():
            self.write(name, text)
            done = self.check(name)
            self.assertIn(done.returncode, (0, 1), name)
            has_nothing = name == "empty"
            self.assertEqual(bool(done.stderr), has_nothing, name)
            self.data(name)

    def test_a_line_of_five_megabytes(self):
        self.write("long.vorn", "i1 = 4 0 -2000000 { p2 1 p3 1 p4 " + "60 " * 1_700_000 + "c4 }")
        done = self.check("long.vorn")
        self.assertEqual(done.returncode, 1)
        self.assertLess(len(done.stdout), 1000)
        self.assertIn(":1:5100034: error:", done.stdout)

    def test_lines_of_nine_megabytes(self):
        """Mistakes that look around for what belongs to them do not look through all of it."""
        block = "i1 = 4 0 4 {\np2 1\np3 1\n"
        texts = {"number": block + "p4 " + "6" * 9_000_000 + " }\n",
                 "commas": block + "p4 ra(T " + "0,5 " * 2_250_000 + "}\n",
                 "parentheses": block + "p4 " + "(" * 9_000_000,
                 "comments": block + "p4 60 " + "/*" * 4_500_000,
                 "name": block + "p4 $" + "A" * 9_000_000,
                 "flats": block + "p4 no " + "db4 " * 2_250_000 + "e4 }\n"}
        for name, text in texts.items():
            self.write(name, text)
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            done = self.check("--format", "json", name)
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            self.assertLess(after.ru_utime - before.ru_utime, 20, name)
            self.assertEqual((done.returncode, done.stderr), (0 if name in ("number", "flats") else 1, ""), name)
            self.assertLess(len(done.stdout), 5000, name)

    def test_a_hundred_thousand_warnings(self):
        self.write("many.vorn", "rd(2)\n" * 100_000)
        done = self.check("many.vorn")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(done.stdout.count("[W26]"), 10_000)

    def test_one_byte(self):
        for byte in b"}{i#<\"(>$~\x00\xff\x80e9 \n":
            self.write("one.vorn", bytes([byte]))
            self.assertIn(self.check("one.vorn").returncode, (0, 1), byte)
            self.data("one.vorn")

    def test_an_include_of_itself(self):
        self.write("a/loop.vorn", "#include |loop.vorn|\n")
        done = self.check("--relative", "a/loop.vorn")
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stdout.startswith("a/loop.vorn:1:1: error: You can't use a filename multiple times!"))
        self.assertIn("take out the include that leads back", done.stdout)

    def test_includes_that_lead_back_by_another_name(self):
        self.write("loop.vorn", "#include |other.inc|\n")
        self.write("other.inc", "#include |linked.vorn|\n")
        (self.folder / "linked.vorn").symlink_to("loop.vorn")
        done = self.check("loop.vorn")
        self.assertTrue(done.stdout.startswith("other.inc:1:1: error: You can't use a filename"), done.stdout)
        with open(self.folder / "loop.vorn", encoding="utf-8") as score:
            done = self.check("-", stdin=score)
        self.assertTrue(done.stdout.startswith("other.inc:1:1: error: You can't use a filename"), done.stdout)

    def test_what_the_check_itself_writes_cannot_be_read(self):
        for name in ("/dev/stdout", "/proc/self/fd/2"):
            self.write("in.vorn", f"#include |{name}|\n")
            self.assertIn("You can't use a filename multiple times!", self.check("in.vorn").stdout)
            self.assertIn("You can't use a filename multiple times!", self.check(name).stderr)

    def test_the_copy_of_the_run_cannot_be_read(self):
        """One descriptor of the check is the copy, which would grow."""
        told = []
        for number in range(3, 10):
            self.write("in.vorn", f"; a line\n#include |/proc/self/fd/{number}|\n{WELL}")
            told.append(self.check("in.vorn").stdout)
        self.assertEqual(sum("You can't use a filename multiple times!" in one for one in told), 1, told)

    def test_a_file_that_is_included_again_behind_itself(self):
        self.write("all.vorn", "#include |part.inc|\n#include |part.inc|\n" + WELL)
        self.write("part.inc", "; nothing\n")
        self.assertEqual(self.check("all.vorn").returncode, 0)

    def test_a_million_lines(self):
        self.write("many.vorn", "; nothing\n" * 1_000_000 + BAD)
        done = self.check("many.vorn")
        self.assertTrue(done.stdout.startswith("many.vorn:1000004:7: error:"), done.stdout)

    def test_many_warnings_behind_many_lines(self):
        """Finding a place must not take the longer the further it is down."""
        block = WELL.replace("60", "60 62 64 65 67")
        self.write("many.vorn", block * 20_000)
        seconds = processor_time(pathlib.Path(vornkit.VORNKIT).resolve(), "check", "many.vorn", cwd=self.folder)
        self.assertLess(seconds, 20)


if __name__ == "__main__":
    unittest.main()
