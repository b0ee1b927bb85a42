#!/usr/bin/env python3
"""What docs/manual.md and docs/preprocessor.md say without showing a score for it: how far
starts drift, what MIDI files cut, how often a file may be included, where files may come
from. The figures are worked out from runs and looked for in the text."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import mido

ROOT = pathlib.Path(__file__).resolve().parents[2]
VORN = pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")).resolve()
MANUAL = " ".join((ROOT / "docs" / "manual.md").read_text().replace("\n> ", "\n").split())
TICKS = 480  # of a second, in MIDI files


class Surprises(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vorn-test-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_score(self, text, *options, out="out"):
        (self.folder / "in.vorn").write_text(text)
        return subprocess.run([VORN, *options, "in.vorn", out], cwd=self.folder, capture_output=True, text=True,
                              timeout=120, check=False, stdin=subprocess.DEVNULL)

    def starts(self, text):
        self.assertEqual(self.run_score(text, "-s").returncode, 0)
        return [float(line.split()[1]) for line in (self.folder / "out").read_text().splitlines() if line[:1] == "i"]

    def milliseconds_early(self, interval, exact):
        return round(1000 * (exact - self.starts(f"i1 = 3 0 -10001 {{\np2 {interval}\np3 .1\n}}\n")[-1]))

    def test_starts_drift_as_told(self):
        self.assertEqual(self.milliseconds_early(".25", 2500), 0)
        tenths, thirds = self.milliseconds_early(".1", 1000), self.milliseconds_early("rh 12", 10000 / 3)
        self.assertIn(f"of .1 the last start is {tenths} milliseconds early, of a third {thirds}.", MANUAL)

    def test_a_bar_of_triplets_has_thirteen_unless_counted(self):
        triplets = "i1 = 3 0 LENGTH {\np2 rh 12\np3 .9\n}\n"
        for length, notes in (("4", 13), ("-12", 12), ("3.99", 12)):
            self.assertEqual(len(self.starts(triplets.replace("LENGTH", length))), notes)

    def test_midi_files_cut_times_as_told(self):
        score = "i1 = 5 0 -200 {\np2 rh 12\np3 .9\np4 16000\np5 60\n}\nno block at all\n"
        done = self.run_score(score, "-m", out="out.mid")
        self.assertEqual(done.returncode, 0)
        self.assertIn("400 events generated", done.stderr)
        now, last = 0, 0
        for message in mido.MidiFile(self.folder / "out.mid").tracks[1]:
            now += message.time
            last = now if message.type == "note_on" and message.velocity > 0 else last
        early = 1000 * (199 / 3 - last / TICKS)
        self.assertIn(f"the last begins {round(early, -1):.0f} milliseconds too early", MANUAL)

    def test_midi_figures_count_the_last_length_twice(self):
        done = self.run_score("i1 = 5 0 -4 {\np2 1\np3 1\np4 16000\np5 60\n}\n", "-m")
        self.assertRegex(done.stderr, r"Total i-block duration: +5\.00 \(secs\)")

    def test_letters_behind_an_upper_case_note_are_lower_case(self):
        score = "i1 = 4 0 -3 {\np2 1\np3 1\np4 no NOTE\n}\n"
        self.assertEqual([self.run_score(score.replace("NOTE", note)).returncode for note in ("C4", "Ef4", "CS4")],
                         [0, 0, 1])

    def test_values_that_run_together(self):
        for values, count in (("60-62", 2), ("64.5.5", 2), ("0,5", 2)):
            self.run_score(f"i1 = 4 0 -{count} {{\np2 1\np3 1\np4 {values} 7\n}}\n")
            written = re.findall(r"([-.\d]+) $", (self.folder / "out").read_text(), re.MULTILINE)
            self.assertEqual(len(set(written)), count, values)
            self.assertNotIn("7.000", written)

    def test_a_walk_steps_back_from_an_end_twice_as_far(self):
        self.run_score("i1 = 4 0 -2000 {\np2 1\np3 1\np4 no rw(T 1 [c4 gs5] .2 c5)\n}\n")
        walk = [float(note) for note in re.findall(r"([-.\d]+) $", (self.folder / "out").read_text(), re.MULTILINE)]
        steps = [(abs(note - before), min(before - 48, 68 - before)) for before, note in zip(walk, walk[1:])]
        self.assertEqual(max(step for step, _ in steps), 4)
        self.assertEqual(max(step for step, from_end in steps if from_end > 2), 2)

    def test_a_rest_in_the_starts_counts_back(self):
        self.assertGreater(len(self.starts("i1 = 3 0 8 {\np2 < 1 -1 .5 >\np3 1\n}\n")), 8)

    def test_tempi_out_of_range_are_told_as_in_the_table(self):
        (row,) = re.findall(r"\| tempo \|([^|]+\|[^|]+)", MANUAL)
        for tempo, words in (("0 8 60 4001", "out of range"), ("0 10001 60 60", "out of range"),
                             ("4001", "Format te(f): f = real number."), (".5", "Format te(f): f = real number.")):
            self.assertIn(words, self.run_score(f"te({tempo})\ni1 = 3 0 1 {{\np2 1\np3 1\n}}\n").stderr, tempo)
            self.assertIn(f'"{words}"', row)

    def test_twelve_files_a_run(self):
        (self.folder / "one.inc").write_text("> one\n")
        for includes, status in ((11, 0), (12, 1)):
            done = self.run_score("#include |one.inc|\n" * includes)
            self.assertEqual(done.returncode, status)
            self.assertEqual("Too many embedded include files! (Max = 12)" in done.stderr, status == 1)

    def test_what_is_open_is_not_included(self):
        clash = "You can't use a filename multiple times!"
        (self.folder / "one.inc").write_text("#include |in.vorn|\n")
        for name in ("in.vorn", "./in.vorn", "one.inc", "out", "/dev/stderr"):
            self.assertIn(clash, self.run_score(f"#include |{name}|\n").stderr, name)
        self.assertEqual(self.run_score("#include |/dev/null|\n", out="/dev/null").returncode, 0)

    def test_includes_come_before_conditions_and_from_the_current_folder(self):
        self.assertIn("Bad include file name", self.run_score("#if(0)\n#include |none.inc|\n#endif\n").stderr)
        (self.folder / "inner").mkdir()
        (self.folder / "inner" / "outer.inc").write_text("#include |two.inc|\n")
        (self.folder / "inner" / "two.inc").write_text("> two\n")
        self.assertEqual(self.run_score("#include |inner/outer.inc|\n").returncode, 1)
        (self.folder / "two.inc").write_text("> two\n")
        self.assertEqual(self.run_score("#include |inner/outer.inc|\n").returncode, 0)

    def test_lines_are_counted_with_includes(self):
        (self.folder / "long.inc").write_text("> a\n" * 30)
        self.assertIn("Line 32:", self.run_score("#include |long.inc|\nnonsense\n").stderr)

    def test_devices_are_pipes(self):
        score = "i1 = 3 0 1 {\np2 1\np3 1\n}\n"
        done = subprocess.run([VORN, "-s", "/dev/stdin", "/dev/stdout"], input=score, capture_output=True, text=True,
                              timeout=60, check=True)
        self.run_score(score, "-s")
        self.assertEqual(done.stdout, (self.folder / "out").read_text())


if __name__ == "__main__":
    unittest.main()
