"""vornkit midi: what other programs read in its files, and how it is refused."""
import os
import unittest

import mido

from vornkit import CommandTest

SCORE = """te(90)
i1 = 5 0 8 {
p2 1 .5
p3 .9
p4 16000
p5 no < c4 e g c5 >
}
i12 = 5 2 -4 {
p2 2
p3 1
p4 db 70
p5 36 38
}
"""


class MidiCommand(CommandTest):
    def test_every_reader_takes_the_file(self):
        self.write("piece.vorn", SCORE)
        done = self.vornkit("midi", "--channel", "12=10", "--program", "1=33", "piece.vorn", "piece.mid")
        self.assertEqual((done.returncode, done.stdout), (0, ""))
        text = self.run_program("midicsv", "piece.mid").stdout.decode()
        self.assertIn('1, 0, Title_t, "piece"', text)
        self.assertIn("1, 0, Tempo, 666667", text)  # 60,000,000 / 90
        self.assertIn("2, 0, Program_c, 0, 32", text)
        self.assertIn("3, 960, Note_on_c, 9, 36", text)  # beat 2
        song = mido.MidiFile(self.folder / "piece.mid")
        self.assertEqual([track.name for track in song.tracks], ["piece", "i1", "i12"])
        # The last note begins at beat 8 and lasts for two beats of 2/3 of a second.
        self.assertAlmostEqual(song.length, 10 * 60 / 90, places=3)
        self.fluidsynth_plays("piece.mid", song.length)

    def fluidsynth_plays(self, name, seconds):
        font = next(path for path in ("/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/sounds/sf2/default-GM.sf2")
                    if os.path.exists(path))
        done = self.run_program("fluidsynth", "-ni", "-F", "out.wav", "-r", "22050", font, name)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertNotIn(b"error", done.stderr.lower())
        frames = (self.folder / "out.wav").stat().st_size / 4  # two channels of 16 bits
        self.assertGreater(frames / 22050, seconds - 0.1)

    def test_ten_thousand_tenths_end_on_the_tick(self):
        self.write("long.vorn", "i1 = 5 0 -10001 {\np2 .1\np3 1\np4 9000\np5 60\n}\n")
        self.assertEqual(self.vornkit("midi", "long.vorn", "long.mid").returncode, 0)
        last = self.run_program("midicsv", "long.mid").stdout.decode().split("Note_on_c")[-2].split("\n")[-1]
        self.assertEqual(last.strip(), "2, 480000,")

    def test_standard_input_and_output(self):
        self.write("piece.vorn", SCORE)
        self.vornkit("midi", "--quiet", "piece.vorn", "piece.mid")
        piped = self.vornkit("midi", "--quiet", "-", "-", input=SCORE.encode())
        self.assertEqual(piped.returncode, 0)
        # But for the title, which is that of the input, the same bytes.
        self.assertEqual(piped.stdout_bytes[-200:], (self.folder / "piece.mid").read_bytes()[-200:])

    def test_a_mistake_is_told_and_nothing_written(self):
        self.write("bad.vorn", "i1 = 5 0 4 {\np2 1\np3 1\np4 nonsense\n}\n")
        self.write("old.mid", "older")
        done = self.vornkit("midi", "bad.vorn", "old.mid")
        self.assertEqual(done.returncode, 1)
        self.assertIn("bad.vorn:4:", done.stderr)
        self.assertEqual((self.folder / "old.mid").read_bytes(), b"older")
        self.assertEqual(self.files(), ["bad.vorn", "old.mid"])

    def test_an_instrument_that_the_score_has_not_is_told(self):
        self.write("piece.vorn", SCORE)
        done = self.vornkit("midi", "--channel", "3=10", "--program", "12=5", "--program", "4=2", "piece.vorn", "x.mid")
        self.assertEqual(done.returncode, 0)
        self.assertIn("note: the score has no instrument 3 for channel 10\n", done.stderr)
        self.assertIn("note: the score has no instrument 4 for program 2\n", done.stderr)
        self.assertNotIn("instrument 12", done.stderr)

    def test_a_moving_tempo_is_told_and_no_other(self):
        score = "te(TEMPO)\ni1 = 5 0 4 {\np2 1\np3 .9\np4 16000 32767\np5 60 }\n"
        for tempo, told in (("0 4 60 120", True), ("90", False)):
            self.write("piece.vorn", score.replace("TEMPO", tempo))
            done = self.vornkit("midi", "piece.vorn", "piece.mid")
            self.assertEqual("note: the tempo changes, so the file counts seconds" in done.stderr, told)

    def test_soft_scores_are_loud_and_velocities_stay(self):
        score = "i1 = 5 0 -4 {\np2 1\np3 .9\np4 LEVELS\np5 60 62 64 65 }\n"
        for levels, velocities, note in (
                ("1000 2000 3000 4000", [64, 90, 110, 127], "the amplitude 4000 is 127"),
                ("60 80 100 127", [60, 80, 100, 127], "")):
            self.write("piece.vorn", score.replace("LEVELS", levels))
            done = self.vornkit("midi", "piece.vorn", "piece.mid")
            self.assertEqual(done.stderr != "", note != "", done.stderr)
            self.assertIn(note, done.stderr)
            messages = mido.MidiFile(self.folder / "piece.mid").tracks[1]
            self.assertEqual([one.velocity for one in messages if one.type == "note_on"], velocities)

    def test_help_tells_how_levels_become_velocities(self):
        said = self.vornkit("midi", "--help").stdout
        for words in ("Whole numbers up to 127 are velocities already", "where 32767 is 127",
                      "the loudest of the score is 127"):
            self.assertIn(words, said)

    def test_wrong_use_is_told_with_status_two(self):
        self.write("piece.vorn", SCORE)
        for arguments, said in ((["piece.vorn"], "OUT"),
                                (["piece.vorn", "piece.vorn"], "is read for this"),
                                (["piece.vorn", "."], "is a folder"),
                                (["piece.vorn", "no/such/x.mid"], "cannot write no/such/x.mid"),
                                (["--pitch", "p3", "piece.vorn", "x.mid"], "p4 to p128"),
                                (["--pitch", "p99", "piece.vorn", "x.mid"], "no block of the score has a p99"),
                                (["piece.vorn", ""], "the output has no name"),
                                (["--channel", "99999999999=3", "piece.vorn", "x.mid"], "write instrument=number"),
                                (["--channel", "3=17", "piece.vorn", "x.mid"], "from 1 to 16"),
                                (["--program", "3:17", "piece.vorn", "x.mid"], "instrument=number")):
            done = self.vornkit("midi", *arguments)
            self.assertEqual(done.returncode, 2, arguments)
            self.assertIn(said, done.stderr)
        self.assertEqual(self.files(), ["piece.vorn"])

    def test_names_with_blanks_quotes_and_other_letters(self):
        name = "l'été \"1\" – ü.vorn"
        self.write(name, SCORE)
        self.assertEqual(self.vornkit("midi", "--quiet", name, "ö ü.mid").returncode, 0)
        self.assertTrue((self.folder / "ö ü.mid").exists())

    @unittest.skipIf(not os.path.exists("/dev/full"), "no full device here")
    def test_a_full_disk_is_told(self):
        self.write("piece.vorn", SCORE)
        done = self.vornkit("midi", "--quiet", "piece.vorn", "/dev/full")
        self.assertEqual(done.returncode, 2)
        self.assertIn("No space left", done.stderr)

    def test_an_output_without_rights_keeps_the_older_file(self):
        if os.geteuid() == 0:
            self.skipTest("nothing is refused to root")
        self.write("piece.vorn", SCORE)
        self.folder.chmod(0o555)
        self.assertEqual(self.vornkit("midi", "piece.vorn", "x.mid").returncode, 2)
        self.folder.chmod(0o755)


if __name__ == "__main__":
    unittest.main()
