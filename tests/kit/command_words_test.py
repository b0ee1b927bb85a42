"""vornkit words: the list, single words, the data and its description, what is refused."""
import json
import pathlib
import unittest

import jsonschema
from vornkit import CommandTest

TOP = pathlib.Path(__file__).resolve().parents[2]
SCHEMA = json.loads((TOP / "kit/schema/words.schema.json").read_text())


class Words(CommandTest):
    def data(self, *arguments):
        done = self.vornkit("words", "--format", "json", *arguments)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        data = json.loads(done.stdout)
        jsonschema.validate(data, SCHEMA)
        return data["words"]

    def test_the_list_has_each_word_once_below_its_kind(self):
        done = self.vornkit("words")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        groups = [group.splitlines() for group in done.stdout.split("\n\n")]
        self.assertEqual(len(groups), len({word["kind"] for word in self.data()}))
        self.assertIn("Generators in a statement", [group[0] for group in groups])
        self.assertIn("\n  ho(time value)\n      One value held.\n", done.stdout)
        forms = [line for group in groups for line in group[1:] if not line.startswith("   ")]
        self.assertEqual(len(forms), len(self.data()))
        self.assertLessEqual(max(len(line) for line in done.stdout.splitlines()), 78)

    def test_every_kind_of_the_description_occurs(self):
        kinds = SCHEMA["$defs"]["word"]["properties"]["kind"]["enum"]
        in_turn = list(dict.fromkeys(word["kind"] for word in self.data()))
        self.assertEqual(in_turn, kinds)

    def test_a_word_is_told_of_in_each_of_its_kinds(self):
        self.assertEqual([word["kind"] for word in self.data("db")], ["input-type", "output-type"])
        self.assertEqual([word["kind"] for word in self.data("HO", "rs")],
                         ["generator", "global-command", "setting"])
        done = self.vornkit("words", "ho")
        self.assertEqual(done.stdout, "Generators in a statement\n  ho(time value)\n      One value held.\n")

    def test_data_tell_how_a_word_is_written(self):
        (octave, pitch) = self.data("opx", "od")
        self.assertEqual(octave["any_case"], True)
        self.assertNotIn("digits", pitch)
        self.assertEqual([word.get("digits") for word in self.data("re")], ["0-7", "0-7"])

    def test_an_example_is_read_by_vorn(self):
        (walk,) = self.data("rw")
        score = "i1 = 4, 0, 8 {\np2 1\np3 1\n" + walk["example"] + "\n}\n"
        self.write("walk.vorn", score)
        self.assertEqual(self.vornkit("check", "walk.vorn").returncode, 0)
        self.write("walk.vorn", score.replace("rw(", "rq("))
        self.assertEqual(self.vornkit("check", "walk.vorn").returncode, 1)

    def test_what_is_no_word_is_wrong_use(self):
        done = self.vornkit("words", "qq", "ho")
        self.assertEqual(done.returncode, 2)
        self.assertEqual(done.stderr, 'vornkit: there is no word "qq". "vornkit words" lists all.\n')
        self.assertIn("One value held.", done.stdout)
        self.assertIn("Did you mean `ra`?", self.vornkit("words", "random").stderr)
        self.assertIn("Did you mean `#define`?", self.vornkit("words", "#defien").stderr)
        self.assertEqual(self.vornkit("words", "T").returncode, 0)
        self.assertEqual(self.vornkit("words", "").returncode, 2)
        self.assertEqual(self.vornkit("words", "--format", "xml").returncode, 2)

    def test_help_has_an_example(self):
        self.assertIn("Example: vornkit words ra se", self.vornkit("words", "--help").stdout)


if __name__ == "__main__":
    unittest.main()
