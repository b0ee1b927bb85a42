"""What the tutorial says of changed scores holds, and its solutions do what the exercises ask: each change under
"Change it and hear" is made, one at a time, and its notes are looked at."""
import collections
import os
import pathlib
import re
import statistics
import unittest

from vornkit import CommandTest

ROOT = pathlib.Path(__file__).resolve().parents[2]
LESSONS = ROOT / "docs" / "tutorial"
VORN = pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")).resolve()
Note = collections.namedtuple("Note", "instrument start length hertz level", defaults=(None,))
STEPS = dict(zip("c d e f g a b".split(), (0, 2, 4, 5, 7, 9, 11)))


def hertz(name):
    """Of `ef4`."""
    key = STEPS[name[0]] + {"s": 1, "f": -1}.get(name[1], 0) + 12 * int(name[-1])
    return 440 * 2 ** ((key - 57) / 12)


def grouped(notes):
    """Chords, from first to last, each as levels from the lowest note to the highest."""
    starts = sorted({note.start for note in notes})
    by_pitch = sorted(notes, key=lambda note: note.hertz)
    return [[note.level for note in by_pitch if note.start == start] for start in starts]


class DocumentChanges(CommandTest):
    def score(self, name, *changes):
        """Of the tutorial, with (old, new) put into it."""
        text = (LESSONS / "scores" / f"{name}.vorn").read_text()
        for old, new in changes:
            self.assertIn(old, text)
            text = text.replace(old, new, 1)
        return text

    def notes(self, name, *changes):
        return self.notes_of(self.score(name, *changes))

    def notes_of(self, text):
        """In the order of time; the text stays in in.vorn."""
        self.write("in.vorn", text)
        done = self.run_program(VORN, "-s", "in.vorn", "out.sco")
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        fields = [line[1:].split() for line in (self.folder / "out.sco").read_text().splitlines() if line[:1] == "i"]
        return sorted((Note(int(one[0]), *map(float, one[1:])) for one in fields), key=lambda note: note.start)

    def assert_names(self, notes, names):
        self.assertEqual(len(notes), len(names.split()))
        for note, name in zip(notes, names.split()):
            self.assertAlmostEqual(note.hertz, hertz(name), 2)

    def gaps(self, notes):
        return [round(later.start - note.start, 3) for note, later in zip(notes, notes[1:])]

    def test_one_note(self):
        for name in ("c5", "cs4", "ef4"):
            self.assert_names(self.notes("one-note", ("c4", name)), name)
        four = self.notes("one-note", ("p2 2", "p2 .5"))
        self.assertEqual([note.start for note in four], [0, .5, 1, 1.5])
        short = self.notes("one-note", ("p2 2", "p2 .5"), ("p3 1", "p3 .2"))
        self.assertEqual([(note.length, note.hertz) for note in short], [(.1, four[0].hertz)] * 4)
        self.write("in.vorn", self.score("one-note", ("c4", "h4")))
        done = self.vornkit("check", "in.vorn")
        self.assertEqual(done.returncode, 1)
        self.assertIn("in.vorn:5:", done.stdout)
        solution = self.notes("one-note-solution")
        self.assert_names(solution, "g3")
        self.assertEqual(solution[0].length, 5)

    def test_a_line(self):
        self.assert_names(self.notes("a-line", ("0 4 {", "0 8 {")), "d4 e4 g4 a4 c5 a4 g4 e4" + " e4" * 8)
        self.assert_names(self.notes("a-line", ("0 4 {", "0 2 {")), "d4 e4 g4 a4")
        told = self.vornkit("check", "in.vorn").stdout
        self.assertIn("warning", told)
        self.assertIn("c5 a4 g e", told)
        lengths = [note.length for note in self.notes("a-line", ("p3 1", "p3 1 .2 1 .2"))]
        self.assertEqual(lengths, [.5, .1, .5] + [.1] * 5)
        self.assert_names(self.notes("a-line", ("c5", "c")), "d4 e4 g4 a4 c4 a4 g4 e4")
        self.assert_names(self.notes("a-line", ("no d4 e g a c5 a4 g e", "no d4 x3 c4//"), ("0 4 {", "0 2.5 {")),
                          "d4 d4 d4 c4 c4")
        self.assert_names(self.notes("a-line-solution"), "e4 d4 c4 b3 a3 b3 c4 d4 e4 e4")

    def test_a_rhythm(self):
        sounding = self.notes("rhythm", ("p3 .9", "p3 2"))
        self.assertTrue(all(note.length > gap for note, gap in zip(sounding, self.gaps(sounding))))
        triplet = self.notes("rhythm", ("rh 4 8 8 8. 16 4", "rh 12 x3 8 8 8. 16 4"))
        self.assert_names(triplet[-3:], "d4 d4 d4")
        self.assertNotEqual(triplet[-4].hertz, triplet[-3].hertz)
        self.assertEqual(self.gaps(triplet)[:3], [.333, .334, .333])
        third_short = self.notes("rhythm", ("p3 .9", "p3 .9 .9 .2 .9"))
        shares = [note.length / gap for note, gap in zip(third_short, self.gaps(third_short))]
        self.assertEqual([round(share, 1) for share in shares[:6]], [.9, .9, .2, .9, .9, .9])
        waltz = self.notes("rhythm-solution")
        self.assertEqual(self.gaps(waltz), [2, 1, 1, .5])
        self.assertEqual([note.length > .5 * gap for note, gap in zip(waltz, [2, 1, 1, .5, .5])],
                         [True, False, True, False, False])

    def periods(self, name, *changes, least=1):
        """After how many notes lengths and pitches come again together."""
        notes = self.notes(name, *changes)[least - 1:]
        pairs = list(zip(self.gaps(notes), (note.hertz for note in notes)))
        return next(n for n in range(1, len(pairs)) if pairs[n:] == pairs[:-n])

    def test_loops(self):
        self.assertEqual(self.periods("loops"), 15)
        self.assertEqual(self.periods("loops", ("f4 >", "f4 e >")), 6)
        self.assertEqual(self.periods("loops", ("f4 >", "f4 e d >")), 21)
        self.assert_names(self.notes("loops", ("no < d4", "no a3 < d4"))[:8], "a3 d4 a4 g4 c5 f4 d4 a4")
        lengths = [note.length > .4 for note in self.notes("loops", ("p3 1", "p3 < 1 .3 >"))]
        self.assertEqual(lengths[:4], [True, False, True, False])
        self.assertEqual(self.periods("loops-solution", least=2), 12)
        self.assertEqual(self.notes("loops-solution")[1].start, 1)

    def test_movement(self):
        levels = {bend: [note.level for note in self.notes("crescendo", ("1 .05 .8", f"1 {bend}.05 .8"))]
                  for bend in ("", "e ", "l ")}
        middle = len(levels[""]) // 2
        self.assertTrue(levels["e "][middle] < levels[""][middle] < levels["l "][middle])
        softer = [note.level for note in self.notes("crescendo", (".05 .8", ".8 .05"))]
        self.assertEqual((softer, softer[0], softer[-1]), (sorted(softer, reverse=True), .8, .05))
        closer = self.gaps(self.notes("crescendo", ("rh < 8. 8. 8 >", "mo(20 1 1 .1)")))
        self.assertEqual(closer, sorted(closer, reverse=True))
        climb = [note.hertz for note in self.notes("crescendo", ("< d4 a g c5 f4 >", "mo(T 1 d4 d5)"))]
        self.assertEqual(climb, sorted(climb))
        self.assertLess(len(set(climb)), len(climb))
        solution = self.notes("crescendo-solution")
        peak = max(solution, key=lambda note: note.level)
        self.assertAlmostEqual(peak.start, 12, delta=.8)
        shares = [note.length / gap for note, gap in zip(solution, self.gaps(solution))]
        self.assertTrue(all(later < share for share, later in zip(shares, shares[1:])))

    def test_chords(self):
        for low, high in ((".8", ".2"), (".2", ".8")):
            changed = f"p5 < {low} .2 .2 {high} >"
            levels = grouped(self.notes("chords", ("p5 .5", changed)))
            self.assertEqual(levels, [[float(low), .2, .2, float(high)]] * 12)
        pairs = self.notes("chords", ("d3:a:d4:f x3  bf2:f3:d4:f x3  c3:g:e4:g x3  a2:e3:c4:e x3",
                                      "d3:a d4:f  d3:a d4:f"))
        self.assertEqual({len(chord) for chord in grouped(pairs)}, {2})
        self.assert_names(sorted(pairs[:4]), "d3 a3 d4 f4")
        self.assertEqual(grouped(self.notes("chords-solution")), [[.1, .2, .4, .8]] * 8)

    def test_two_voices(self):
        bass = [note for note in self.notes("two-voices", ("i2 = 5 4 16", "i2 = 5 0 20")) if note.instrument == 2]
        self.assert_names(bass, "d3 bf2 f3 c3 c3")
        self.assertEqual(bass[0].start, 0)
        self.assertEqual({note.instrument for note in self.notes("two-voices", ("i1 =", "i-1 ="))}, {2})
        self.assertIn("skipped", self.vornkit("check", "in.vorn").stdout)
        self.assertIn("skipped", self.run_program(VORN, "in.vorn", "out.sco").stderr.decode())
        self.assertIn("skipped", self.vornkit("play", "in.vorn", "--wav", "out.wav").stderr)
        self.assertEqual({note.instrument for note in self.notes("two-voices", ("i1 =", "i2 ="))}, {2})
        solution = self.notes("two-voices-solution")
        melody, higher = ([note for note in solution if note.level == level] for level in (.4, .2))
        for note, above in zip(melody, higher):
            self.assertAlmostEqual(above.start, note.start + 2, 3)
            self.assertAlmostEqual(above.hertz, note.hertz * 2, 2)

    def test_chance(self):
        melodies = {tuple(self.notes("chance", ("rs(8)", f"rs({seed})"))) for seed in (8, 9, 10, 11)}
        self.assertEqual(len(melodies), 4)
        for rule, repeats in (("1 [d4", True), ("1 x [d4", False)):
            pitches = [note.hertz for note in self.notes("chance", ("1 * [d4", rule))]
            self.assertEqual(any(one == other for one, other in zip(pitches, pitches[1:])), repeats, rule)
        often = [note.hertz for note in self.notes("chance", ("1 * [d4 f g a c5 d]", "1 [d4 d4 f g]"))]
        self.assertEqual(max(set(often), key=often.count), min(often))
        solution = self.notes("chance-solution")
        pitches, levels = [note.hertz for note in solution], [note.level for note in solution]
        gaps = self.gaps(solution)
        self.assertTrue(all(one != other for one, other in zip(pitches, pitches[1:])))
        self.assertEqual(set(gaps), {.5, 1})
        self.assertLess(gaps.count(1), gaps.count(.5))
        self.assertLess(sum(level > .6 for level in levels), len(levels) / 2)

    def test_a_cloud(self):
        keys = {round(note.hertz, 2) for note in self.notes("cloud", ("nox", "no"))}
        self.assertLess(len(keys), 61)
        rising = [note.hertz for note in self.notes("cloud", ("[c3 c8]", "[a6 c8]"))]
        quarter = len(rising) // 4
        means = [statistics.geometric_mean(rising[at:at + quarter]) for at in range(0, 4 * quarter, quarter)]
        self.assertEqual(means, sorted(means))
        self.assertNotEqual(self.notes("cloud", ("rs(3)", "rs(4)")), self.notes("cloud"))
        solution = [note.hertz for note in self.notes("cloud-solution")]
        spread = [max(part) / min(part) for part in (solution[:quarter], solution[-quarter:])]
        self.assertGreater(spread[0], 16)
        self.assertLess(spread[1], spread[0] / 2)
        self.assertAlmostEqual(solution[-1], 220, delta=2)

    def test_tempo(self):
        late, even = (self.notes("accelerando", ("160 f", f"160 {curve}")) for curve in "ef")
        self.assertGreater(late[-1].start, even[-1].start)
        self.assertEqual(self.notes("accelerando", ("160 f", "160")), late)
        slower = self.gaps([note for note in self.notes("accelerando", ("60 160", "160 60")) if note.instrument == 1])
        self.assertGreater(slower[40], slower[0])
        wide = "p2 .5\np3 < 4 -1 -1 -1 >\np4(hz) no < d3 x4 bf2 x4 f3 x4 c3 x4 >"
        apart = self.notes("accelerando", (wide, "p2 2\np3 .95\np4(hz) no < d3 bf2 f3 c3 >"))
        melody, bass = ([note.start for note in apart if note.instrument == voice] for voice in (1, 2))
        self.assertGreater(bass[8], melody[32] + .2)
        self.assertRegex(self.vornkit("check", "in.vorn").stdout, r"note: Beat \d+ comes at [\d.]+ seconds here and at")
        gaps = self.gaps([note for note in self.notes("accelerando-solution") if note.instrument == 1])
        self.assertAlmostEqual(gaps[0], 30 / 132, 3)
        self.assertAlmostEqual(gaps[30], 30 / 132, 2)
        self.assertAlmostEqual(gaps[-1], 30 / (50 + 82 / 8), 2)  # on its way, a beat before the end

    def test_names(self):
        once, twice = (self.notes("names", ("PART 16", f"PART {beats}")) for beats in (16, 32))
        self.assertAlmostEqual(twice[-1].start / once[-1].start, 2, delta=.03)
        first, second, third = ([note for note in self.notes("names-solution") if at <= note.start * 1.5 + .01 < at + 8]
                                for at in (0, 8, 16))
        self.assertEqual([note.hertz for note in first], [note.hertz for note in third])
        for note, above in zip(first, second):
            self.assertAlmostEqual(above.hertz / note.hertz, 2 ** (7 / 12), 3)

    def test_a_piece(self):
        beats = self.notes("lanterns", ("te(72)", "te(60)"))
        self.assertAlmostEqual(beats[-1].start / self.notes("lanterns")[-1].start, 72 / 60, 2)
        self.assertNotIn(5, {note.instrument for note in self.notes("lanterns", ("i5 =", "i-5 ="))})

    def test_checks_are_whole_commands(self):
        """With a score of the lessons behind, to be copied as they stand."""
        named = [file for lesson in LESSONS.glob("*.md")
                 for file in re.findall(r"`vornkit check ?([^`]*)`", lesson.read_text())]
        self.assertGreater(len(named), 2)
        self.assertEqual([file for file in named if not file or not (LESSONS / "scores" / file).exists()], [])

    def test_an_introduction(self):
        """As the solution of the last lesson says: eight beats more in each header."""
        shifted = {"0": "~BEGIN", "~ROUND": "~[ROUND + BEGIN]"}
        score = re.sub(r"^(i\d = 5 )(0|~ROUND|~\[[^]]*\])",
                       lambda header: header[1] + shifted.get(header[2], header[2][:-1] + " + BEGIN]"),
                       self.score("lanterns"), flags=re.MULTILINE)
        later, before = self.notes_of("#const BEGIN 8\n" + score), self.notes("lanterns")
        self.assertEqual(len(later), len(before))
        for note, one in zip(later, before):
            self.assertAlmostEqual(note.start, one.start + 8 * 60 / 72, 2)
        alone = [note for note in self.notes("lanterns-solution") if note.start < 8 * 60 / 72 - .01]
        self.assertEqual(({note.instrument for note in alone}, len(alone)), ({5}, 22))


if __name__ == "__main__":
    unittest.main()
