"""vornkit check: notes on what is legal and probably not meant."""
import pathlib
import unittest

from vornkit import CommandTest

EXAMPLES = pathlib.Path("examples").resolve()
SCORE = """i1 = 5, 0, -4 {
p2 1
p3 .5
p4 0,5 60-62
p5 60 ; vornkit: ignore L14
}
"""


class Lint(CommandTest):
    def codes(self, *arguments):
        done = self.vornkit("check", *arguments)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return [line.split("[")[-1].rstrip("]") for line in done.stdout.splitlines()
                if ": note: " in line and line.endswith("]")]

    def test_a_note_tells_file_line_column_and_marks_the_place(self):
        self.write("in.vorn", SCORE)
        done = self.vornkit("check", "in.vorn", "--ignore", "L3")
        self.assertEqual(done.returncode, 0)
        lines = done.stdout.splitlines()
        self.assertEqual(lines[0], 'in.vorn:4:4: note: "0,5" is read as two values, 0 and 5. [L2]')
        self.assertEqual(lines[1:3], ["p4 0,5 60-62", "   ^^^"])

    def test_notes_are_ignored_by_code_in_every_form(self):
        self.write("in.vorn", SCORE)
        self.assertEqual(self.codes("in.vorn"), ["L2", "L3"])
        self.assertEqual(self.codes("--ignore", "L2", "in.vorn"), ["L3"])
        self.assertEqual(self.codes("--ignore", "l2,L3", "in.vorn"), [])
        self.assertEqual(self.codes("--ignore", "L2", "--ignore", "L3", "in.vorn"), [])

    def test_a_code_that_no_note_has_is_wrong_use(self):
        self.write("in.vorn", SCORE)
        for code in ("L99", "W10", "L"):
            self.assertEqual(self.vornkit("check", "in.vorn", "--ignore", code).returncode, 2, code)

    def test_midi_is_asked_for(self):
        self.write("in.vorn", SCORE + SCORE)
        self.assertNotIn("L13", self.codes("in.vorn"))
        self.assertEqual(self.codes("--midi", "in.vorn"), ["L14", "L2", "L3", "L13", "L2", "L3"])

    def test_what_lint_finds_does_not_refuse_a_score_but_an_error_does(self):
        self.write("in.vorn", SCORE + "i2 = 3, 0, {\n")
        done = self.vornkit("check", "in.vorn")
        self.assertEqual(done.returncode, 1)
        self.assertLess(done.stdout.index("[L2]"), done.stdout.index("[E"))

    def test_an_included_file_has_its_own_places(self):
        self.write("part.inc", "p4 1 2\n   0,5\n")
        self.write("in.vorn", "i1 = 4, 0, -4 {\np2 1\np3 .5\n#include |part.inc|\n}\n")
        done = self.vornkit("check", "in.vorn")
        self.assertIn("part.inc:2:4: note: ", done.stdout)

    def test_examples_are_as_they_are_meant(self):
        found = {}
        scores = [*EXAMPLES.glob("*/*.vorn"), *(EXAMPLES.parent / "docs").rglob("*.vorn")]
        self.assertGreater(len(scores), 50)
        for score in sorted(scores):
            done = self.vornkit("check", score, "--relative")
            notes = [line for line in done.stdout.splitlines() if ": note: " in line and line.endswith("]")]
            if notes:
                found[score.stem] = [note.split("[")[-1].rstrip("]") for note in notes]
        self.assertEqual(found, {})


if __name__ == "__main__":
    unittest.main()
