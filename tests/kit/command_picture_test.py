"""vornkit picture: the structure of what it draws, and how it is refused."""
import re
import struct
import unittest
import xml.etree.ElementTree as ElementTree

from vornkit import CommandTest

SVG = "{http://www.w3.org/2000/svg}"

SCORE = """te(120)
i1 = 6 0 4 {
p2 1
p3 .5
p4 70 60
p5 no c4 e r g
p6 .5
}
i7 = 3 1 2 {
p2 .5
p3 .1
}
"""


class PictureCommand(CommandTest):
    def draw(self, *options, score=SCORE, name="piece.vorn", output="piece.svg"):
        self.write(name, score)
        done = self.vornkit("picture", name, "-o", output, *options)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        return (self.folder / output).read_bytes()

    def tree(self, *options, **others):
        return ElementTree.fromstring(self.draw(*options, **others))

    def groups(self, tree, kind):
        return [group for group in tree.iter(SVG + "g") if group.get("class") == kind]

    def texts(self, element):
        return [text.text for text in element.iter(SVG + "text")]

    def marks(self, group):
        """Bars: every move of a path that has a colour."""
        paths = [path for path in group.iter(SVG + "path") if re.match(r"c\d s\d$", path.get("class"))]
        return sum(path.get("d").count("M") for path in paths)

    def test_panels_and_lanes(self):
        tree = self.tree()
        self.assertEqual(len(self.groups(tree, "panel")), 2)
        first, second = self.groups(tree, "panel")
        self.assertEqual([self.marks(group) for group in self.groups(first, "roll")], [3])
        self.assertEqual([self.marks(group) for group in self.groups(first, "lane")], [3, 3])
        self.assertEqual([self.marks(group) for group in self.groups(second, "strokes")], [4])
        self.assertIn("Instrument 1", self.texts(first))
        self.assertIn("3 events, 1 rest", self.texts(first))
        self.assertIn("line 2", self.texts(first))
        self.assertIn("line 9", self.texts(second))
        self.assertEqual(first.get("aria-label"), "Instrument 1: 3 events, 1 rest")
        self.assertEqual(self.groups(first, "lane")[0].get("aria-label"), "P4, level, from 60 to 70")

    def test_every_pitch_has_a_row_of_a_keyboard(self):
        self.write("a.vorn", "i1 = 4 0 -8 {\np2 1\np3 1\np4 no d4 e g a c5 a4 g e\n}\n")
        tree = ElementTree.fromstring(self.vornkit("picture", "a.vorn", "-o", "-").stdout)
        roll, = self.groups(tree, "roll")
        self.assertEqual(self.texts(roll)[2:], ["d4", "e", "g", "a", "c5"])  # behind "P4" and "pitch"
        band, = [path for path in roll.iter(SVG + "path") if path.get("class") == "band"]
        self.assertEqual(band.get("d").count("M"), 4)  # ef, fs, af and bf; cs would be a row more
        # Its lines are as wide as the rows are apart: nothing between c and d is of neither.
        rows = {text.text: float(text.get("y")) for text in roll.iter(SVG + "text")}
        self.assertAlmostEqual(float(band.get("stroke-width")), (rows["d4"] - rows["c5"]) / 10, places=1)

    def test_it_can_be_read_without_being_seen(self):
        tree = self.tree("--title", "A & B")
        self.assertEqual(tree.get("role"), "img")
        named = {element.get("id"): element.text for element in tree if element.get("id")}
        self.assertEqual(tree.get("aria-labelledby").split(), list(named))
        title, description = named.values()
        self.assertEqual(title, "A & B")
        self.assertIn("7 events", description)
        self.assertIn("Instrument 1: 3 events; P5, pitch", description)
        self.assertIn("P6, 0.5 throughout", description)

    def test_the_range_that_is_told_is_that_of_the_events(self):
        # Not that of the axis, which may have room for names beyond it.
        self.write("a.vorn", "i1 = 4 0 -5 {\np2 1\np3 1\np4 no c4 d e f g\n}\n")
        self.assertIn("P4, pitch, from c4 to g4", self.vornkit("picture", "a.vorn", "-o", "-").stdout)

    def test_size_and_round_axes(self):
        tree = self.tree("--width", "800")
        self.assertEqual(tree.get("width"), "800")
        self.assertEqual(tree.get("viewBox"), "0 0 800 " + tree.get("height"))
        labels = self.texts(tree)
        for axis in ("beats", "seconds"):
            first = labels.index(axis) + 1
            values = [float(one) for one in labels[first:first + 3]]
            step = values[1] - values[0]
            self.assertIn(f"{step:.0e}"[0], "125")
            self.assertAlmostEqual(values[2] - values[1], step)

    def test_no_label_covers_another(self):
        for width in ("360", "700", "1600"):
            places = {}
            for text in self.tree("--width", width).iter(SVG + "text"):
                places.setdefault(float(text.get("y")), []).append(self.extent(text))
            for row in places.values():
                row.sort()
                for one, other in zip(row, row[1:]):
                    self.assertLess(one[1], other[0], (width, one, other))
                self.assertLessEqual(row[-1][1], float(width), (width, row[-1]))

    def extent(self, text):
        """Left and right edge, by half the size a letter, which is about the truth."""
        classes = text.get("class").split()
        size = {"title": 22, "heading": 14, "text": 12, "label": 11}[classes[0]]
        width = len(text.text) * size * 0.5
        left = float(text.get("x")) - (width if "end" in classes else width / 2 if "middle" in classes else 0)
        return left, left + width, text.text

    def test_themes(self):
        self.assertIn(b"prefers-color-scheme:dark", self.draw())
        light = self.draw("--theme", "light")
        self.assertNotIn(b"prefers-color-scheme", light)
        self.assertIn(b"#ffffff", light)
        self.assertNotIn(b"#ffffff", self.draw("--theme", "dark"))

    def test_equal_scores_are_equal_bytes(self):
        self.assertEqual(self.draw(), self.draw())
        self.assertEqual(self.draw(output="a.png"), self.draw(output="b.png"))

    def test_markup_in_names_stays_text(self):
        name = '<script>&".vorn'
        tree = self.tree(name=name)
        self.assertEqual(tree.find(SVG + "title").text, name)
        self.assertIn(name, self.texts(tree))
        page = self.draw(name=name, output="page.html").decode()
        self.assertNotIn("<script", page)
        self.assertIn("&lt;script&gt;&amp;&quot;", page)

    def test_png_has_the_width_that_was_asked_for(self):
        bytes_of = self.draw("--width", "640", output="piece.png")
        self.assertEqual(bytes_of[:8], b"\x89PNG\r\n\x1a\n")
        width, height = struct.unpack(">II", bytes_of[16:24])
        svg = self.tree("--width", "640")
        self.assertEqual(width, 640)
        self.assertAlmostEqual(height, float(svg.get("height")), delta=1)

    def test_page_has_a_table_of_the_blocks(self):
        page = self.draw(output="page.html").decode()
        self.assertTrue(page.startswith("<!doctype html>"))
        body = page[page.index("<tbody>"):page.index("</tbody>")]
        rows = [re.findall(r"<t[hd][^>]*>([^<]*)<", row) for row in body.split("</tr>")[:-1]]
        self.assertEqual(rows[0], ["line 2", "1", "0", "0 s", "1.75 s", "3", "1", "P5", "P4", "6"])
        self.assertEqual(rows[1][:4], ["line 9", "7", "1", "0.5 s"])
        self.assertIn('lang="en"', page)

    def test_a_hundred_thousand_events_are_a_small_file(self):
        score = "i1 = 5 0 -100000 {\np2 .01\np3 2\np4 ra(T 1 [60 80])\np5 ra(T 1 [30 90])\n}\n"
        drawn = self.draw(score=score)
        self.assertLess(len(drawn), 1_000_000)
        tree = ElementTree.fromstring(drawn)
        self.assertIn("events at once", " ".join(self.texts(tree)))

    def test_part_of_a_score(self):
        tree = self.tree("--from", "1.5", "--to", "1.7")
        self.assertEqual([self.marks(group) for group in self.groups(tree, "roll")], [1])
        self.assertIn("from second 1.5", " ".join(self.texts(tree)))

    def test_standard_input_and_output(self):
        done = self.vornkit("picture", "-", "-o", "-", input=SCORE.encode())
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(len(self.groups(ElementTree.fromstring(done.stdout), "panel")), 2)
        self.assertEqual(self.files(), [])

    def test_a_refused_score_leaves_nothing(self):
        self.write("wrong.vorn", "i1 = 4 0 -2 {\np2 1\np3 1\np4 no h4\n}\n")
        self.write("old.svg", "old")
        done = self.vornkit("picture", "wrong.vorn", "-o", "old.svg")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn("wrong.vorn:4:7: error:", done.stderr)
        self.assertEqual((self.folder / "old.svg").read_text(), "old")

    def test_wrong_use(self):
        self.write("piece.vorn", SCORE)
        for options in (["-o", "piece.gif"], ["-o", "piece.svg", "--pitch", "p3"], ["-o", "no/such/folder.svg"],
                        ["-o", "piece.svg", "--from", "3", "--to", "2"], ["-o", "a.svg", "--width", "10"],
                        ["-o", "a.svg", "--theme", "blue"], ["-o", "a.svg", "--level", "p77"],
                        *(["-o", "a.svg", "--width", width] for width in ("nan", "inf", "-inf", "0", "-5", "1e300", "")),
                        ["-o", "a.svg", "--from", "nan"], ["-o", "a.svg", "--to", "nan"], []):
            done = self.vornkit("picture", "piece.vorn", *options)
            self.assertEqual((done.returncode, done.stdout), (2, ""), options)
            self.assertNotEqual(done.stderr, "", options)
            self.assertNotIn("->", done.stderr, options)
        self.assertEqual(self.files(), ["piece.vorn"])

    def test_it_does_not_overwrite_what_it_reads(self):
        self.write("piece.svg", SCORE)
        done = self.vornkit("picture", "piece.svg", "-o", "piece.svg")
        self.assertEqual(done.returncode, 2)
        self.assertEqual((self.folder / "piece.svg").read_text(), SCORE)

    def test_a_missing_converter_is_named(self):
        self.write("piece.vorn", SCORE)
        done = self.vornkit("picture", "piece.vorn", "-o", "piece.png", env={"PATH": str(self.folder)})
        self.assertEqual(done.returncode, 2)
        self.assertIn("librsvg2-bin", done.stderr)
        self.assertEqual(self.files(), ["piece.vorn"])

    def test_a_picture_too_tall_for_png_is_told(self):
        fields = "".join(f"p{field} 1 2\n" for field in range(4, 20))
        blocks = (f"i{number} = 19 0 2 {{\np2 1\np3 1\n{fields}}}\n" for number in range(1, 60))
        self.write("tall.vorn", "".join(blocks))
        done = self.vornkit("picture", "tall.vorn", "-o", "tall.png")
        self.assertEqual(done.returncode, 2)
        self.assertRegex(done.stderr, r"^vornkit: rsvg-convert: .* Write \.svg, or a part with --from and --to\.\n$")
        self.assertEqual(self.files(), ["tall.vorn"])

    def test_included_blocks_are_named_by_their_file(self):
        self.write("parts/bass.inc", "i1 = 4 0 -2 {\np2 1\np3 1\np4 no c2 d2\n}\n")
        tree = self.tree("--relative", name="parts/whole.vorn", score="#include |bass.inc|\n" + SCORE)
        self.assertIn("bass.inc:1", self.texts(tree))

    def test_help_shows_an_example(self):
        done = self.vornkit("picture", "--help")
        self.assertEqual(done.returncode, 0)
        self.assertIn("vornkit picture piece.vorn -o piece.svg", done.stdout)


if __name__ == "__main__":
    unittest.main()
