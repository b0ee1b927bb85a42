"""vornkit explain: codes in every form, the list, the data, what is refused."""
import json
import unittest

from vornkit import CommandTest


class Explain(CommandTest):
    def explain(self, *arguments):
        return self.vornkit("explain", *arguments)

    def test_every_spelling_of_a_code_is_the_same(self):
        texts = {self.explain(code).stdout for code in ("E27", "e27", "27", "[E27]")}
        self.assertEqual(len(texts), 1)
        text = texts.pop()
        self.assertTrue(text.startswith("E27: Data is out of bounds.\n\n"), text)
        self.assertIn("\n    p4 c4 d e }\n", text)
        self.assertIn("\n    p4 no c4 d e }\n", text)
        self.assertEqual(self.explain("EINCLUDE").stdout, self.explain("Einclude").stdout)

    def test_several_at_once_stand_in_the_order_asked_for(self):
        done = self.explain("W10", "eblank", "27")
        heads = [line.split(":")[0] for line in done.stdout.splitlines() if line[:1] in "EW" and ": " in line[:10]]
        self.assertEqual(heads, ["W10", "Eblank", "E27"])
        self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_sentences_are_wrapped(self):
        for line in self.explain("E27", "E39", "Eendless").stdout.splitlines():
            self.assertLessEqual(len(line), 78)

    def test_without_a_code_all_are_listed_a_line_each(self):
        done = self.explain()
        lines = done.stdout.splitlines()
        self.assertEqual(done.returncode, 0)
        self.assertIn("E42         Percentages must add up to 1.0.", lines)
        self.assertIn("Wtempo      A tempo conflicts with the end of the one before it", lines)
        codes = [line.split()[0] for line in lines]
        self.assertEqual(len(codes), len(set(codes)))
        self.assertNotIn("E4", codes)
        self.assertGreater(len(codes), 130)

    def test_data(self):
        data = json.loads(self.explain("--format", "json", "e9", "w20").stdout)
        self.assertEqual(data["version"], 1)
        disk, late = data["explanations"]
        self.assertEqual((disk["code"], late["code"]), ("E9", "W20"))
        self.assertNotIn("score", disk)
        self.assertIn("No score can show this", disk["unprovoked"])
        self.assertIn("i1 = 3, 300, 4 {\n", late["score"])
        self.assertIn("i1 = 3, 30, 4 {\n", late["cured"])
        everything = json.loads(self.explain("--format", "json").stdout)["explanations"]
        self.assertEqual([one["code"] for one in everything],
                         [line.split()[0] for line in self.explain().stdout.splitlines()])

    def test_the_score_of_an_explanation_is_refused_with_its_code(self):
        one = json.loads(self.explain("--format", "json", "42").stdout)["explanations"][0]
        self.write("wrong.vorn", one["score"])
        self.write("right.vorn", one["cured"])
        wrong = self.vornkit("check", "wrong.vorn")
        self.assertEqual(wrong.returncode, 1)
        self.assertIn("[E42]", wrong.stdout + wrong.stderr)
        self.assertEqual(self.vornkit("check", "right.vorn").returncode, 0)

    def test_messages_without_a_number_show_their_code(self):
        self.write("in.vorn", "#include |no such.vorn|\n")
        done = self.vornkit("check", "in.vorn")
        self.assertIn("[Einclude]", done.stdout + done.stderr)

    def test_reserved_numbers_say_that_nothing_raises_them(self):
        done = self.explain("E4")
        self.assertEqual(done.returncode, 0)
        self.assertIn("nothing raises it", done.stdout)

    def test_unknown_codes_are_wrong_use_and_name_the_nearest(self):
        done = self.explain("E66")
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertEqual(done.stderr, 'vornkit: there is no code "E66". Did you mean E65, E64 or E63? '
                                      '"vornkit explain" lists all.\n')
        done = self.explain("einculde", "27")
        self.assertEqual(done.returncode, 2)
        self.assertIn("Did you mean Einclude?", done.stderr)
        self.assertIn("E27: ", done.stdout)
        for code in ("", "E", "99999999999999999999", "Xylophone", "E27x", "\u00e4"):
            done = self.explain(code)
            self.assertEqual((done.returncode, done.stdout), (2, ""), code)
            self.assertRegex(done.stderr, "no code")

    def test_what_is_no_code_is_told_as_it_was_typed(self):
        for typed in ("foo", "FOO", "e999", "w99"):
            self.assertIn(f'there is no code "{typed}"', self.explain(typed).stderr)
        self.assertIn('"no" is no code but a word of scores: "vornkit words no" tells of it.',
                      self.explain("no").stderr)

    def test_an_unknown_form_is_wrong_use(self):
        self.assertEqual(self.explain("--format", "xml", "E27").returncode, 2)

    def test_help_has_an_example(self):
        done = self.explain("--help")
        self.assertEqual(done.returncode, 0)
        self.assertIn("Example: vornkit explain E27", done.stdout)


if __name__ == "__main__":
    unittest.main()
