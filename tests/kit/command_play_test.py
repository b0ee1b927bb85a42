"""vornkit play: what sounds, what it says of it, and how it is refused."""
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import time
import unittest

from vornkit import VORNKIT, CommandTest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from sound import Sound  # noqa: E402

SCORE = "i1 = 5 0 -3 {\np2 1\np3 .5\np4 .5\np5(hz) no a4 c5 e4\n}\n"
KEYS = [440 * 2 ** (step / 12) for step in range(-24, 25)]
ORCHESTRA = """sr = 44100
ksmps = 10
nchnls = 1
0dbfs = 1
instr 1
asound oscili p4 * GAIN, p5
out asound
endin
"""


class PlayCommand(CommandTest):
    def setUp(self):
        super().setUp()
        (self.folder / "tmp").mkdir()
        self.surroundings = dict(os.environ, TMPDIR=str(self.folder / "tmp"), HOME=str(self.folder))

    def play(self, *arguments, **options):
        return self.vornkit("play", *arguments, env=options.pop("env", self.surroundings), **options)

    def nothing_temporary_is_left(self):
        # Libraries of fluidsynth leave a folder of their own.
        return not [name for name in os.listdir(self.folder / "tmp") if not name.startswith("pulse-")]

    def is_csound_at_work(self):
        """Whether a Csound runs in this test's folder."""
        time.sleep(.5)
        folders = []
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if (process / "comm").read_text() == "csound\n":
                    folders.append(os.readlink(process / "cwd"))
            except OSError:  # gone, or somebody else's
                pass
        return str(self.folder.resolve()) in folders

    def render(self, score, *arguments):
        self.write("piece.vorn", score)
        done = self.play("piece.vorn", *arguments, "--wav", "piece.wav")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertTrue(self.nothing_temporary_is_left())
        return Sound(self.folder / "piece.wav"), done.stdout

    def test_the_built_in_orchestra_plays_the_notes(self):
        sound, said = self.render(SCORE)
        self.assertRegex(said, r"^piece\.vorn: 2\.\d s, peak -\d\.\d dB\n$")
        for start, steps in ((0, 0), (1, 3), (2, -5)):
            self.assertEqual(sound.pitch(KEYS, start + .05, .4), KEYS[24 + steps])
            self.assertLess(sound.peak(start + .7, .3), .01)  # a pause

    def test_the_built_in_orchestra_plays_on_behind_time_that_the_score_skips(self):
        sound, said = self.render("> a 0 0 1\n" + SCORE)
        self.assertRegex(said, r"^piece\.vorn: 1\.\d s, peak -\d\.\d dB\n$")
        for start, steps in ((0, 3), (1, -5)):
            self.assertEqual(sound.pitch(KEYS, start + .05, .4), KEYS[24 + steps])

    def test_warnings_are_told_as_check_words_them_and_the_sound_comes(self):
        self.write("piece.vorn", SCORE.replace("c5 e4", "c5 e4 g4").replace("p4 .5", "p4 0.5.4"))
        checked = self.vornkit("check", "piece.vorn").stdout
        self.assertIn("[L3]", checked)
        warning = checked[checked.index("piece.vorn:5:"):]
        self.assertIn("help: 1 value of P5 has no event: the block has 3.", warning)
        done = self.play("piece.vorn", "--wav", "piece.wav")
        self.assertEqual((done.returncode, done.stderr), (0, warning))
        self.assertRegex(done.stdout, r"^piece\.vorn: 2\.\d s, peak -\d\.\d dB\n$")

    def test_of_many_warnings_the_first_ones_are_told(self):
        self.write("piece.vorn", SCORE.replace("e4", "e4 g4") * 25)
        told = self.play("piece.vorn", "--wav", "piece.wav").stderr
        self.assertEqual(told.count("[W10]"), 20)
        self.assertTrue(told.endswith("vornkit: and 5 more warnings; vornkit check tells them all\n"))

    def test_pitch_and_level_come_from_whatever_the_blocks_have(self):
        # Keys and decibels in one block, frequency and amplitude in the next.
        sound, _ = self.render("i1 = 5 0 -1 {\np2 1\np3 1000.5\np4 60\np5 57\n}\n"
                               "i1 = 5 1 -1 {\np2 1\np3 1000.5\np4 440\np5(in) db 80\n}\n", "--pitch", "p5")
        self.assertEqual(sound.pitch(KEYS, .05, .4), KEYS[12])

    def test_many_notes_at_once_do_not_clip(self):
        blocks = [f"i{n} = 5 0 -1 {{\np2 1\np3 1002\np4 32000\np5(hz) no c3:e:g:c4:e:g:c5:e\n}}\n" for n in range(1, 13)]
        sound, _ = self.render("".join(blocks))
        self.assertGreater(sound.peak(), .1)
        self.assertLess(sound.peak(), .9)

    def test_instruments_sound_differently(self):
        partials = set()
        for instrument in (1, 2, 3, 4, 5, 6):
            score = "".join(f"i{n} = 5 0 -1 {{\np2 1\np3 1000.5\np4 {'.5' if n == instrument else '0'}\np5 69\n}}\n"
                            for n in (1, 2, 3, 4, 5, 6))
            sound, _ = self.render(score)
            first = sound.strength(440, .1, .3)
            partials.add(tuple(round(sound.strength(440 * n, .1, .3) / first, 1) for n in (2, 3, 4)))
        self.assertEqual(len(partials), 6)

    def test_an_orchestra_of_ones_own(self):
        self.write("own.orc", ORCHESTRA.replace("GAIN", "1"))
        sound, said = self.render(SCORE, "own.orc")
        self.assertEqual(said, "piece.vorn: 2.5 s, peak -6.0 dB\n")
        self.assertAlmostEqual(sound.peak(), .5, places=3)
        self.assertEqual(sound.channels, 1)

    def test_clipping_is_told_with_its_cure(self):
        self.write("own.orc", ORCHESTRA.replace("GAIN", "4"))
        self.write("piece.vorn", SCORE)
        done = self.play("piece.vorn", "own.orc", "--wav", "piece.wav")
        self.assertEqual(done.returncode, 0)
        self.assertEqual(done.stdout, "piece.vorn: 2.5 s, peak 6.0 dB\n")
        self.assertRegex(done.stderr, r"^vornkit: \d+ samples are too loud .* lower the levels by 6\.0 dB or more\n$")

    def test_silence_is_told(self):
        self.write("own.orc", ORCHESTRA.replace("GAIN", "0"))
        self.assertEqual(self.render(SCORE, "own.orc")[1], "piece.vorn: 2.5 s, silent\n")

    def test_complaints_lead_to_the_block(self):
        self.write("own.orc", ORCHESTRA.replace("p4 * GAIN, p5", "p4, p5, 77"))
        self.write("common.inc", "i2 = 5 0 -2 {\np2 1\np3 1\np4 .5\np5 440\n}\n")
        self.write("piece.vorn", "; a comment\n#include |common.inc|\n" + SCORE)
        done = self.play("piece.vorn", "own.orc", "--wav", "piece.wav")
        self.assertEqual(done.returncode, 1)
        self.assertIn("common.inc:1:1: error: instr 2 is not defined in the orchestra; 2 events are left out, "
                      "the first at 0.000 [Csound]\ni2 = 5 0 -2 {\n^\n", done.stderr)
        self.assertIn("piece.vorn:3:1: error: Invalid ftable no. 77.000000 (oscili, line 6 of the orchestra); "
                      "3 events are left out, the first at 0.000 [Csound]\n", done.stderr)

    def test_a_refused_orchestra_leaves_the_older_sound(self):
        self.write("own.orc", ORCHESTRA.replace("oscili", "oscilly"))
        self.write("piece.vorn", SCORE)
        self.write("piece.wav", "older")
        done = self.play("piece.vorn", "own.orc", "--wav", "piece.wav")
        self.assertEqual(done.returncode, 2)
        self.assertIn("own.orc (1), line 6:", done.stderr)
        self.assertEqual((self.folder / "piece.wav").read_bytes(), b"older")
        self.assertEqual(self.files(), ["own.orc", "piece.vorn", "piece.wav"])

    def test_an_orchestra_that_lacks_an_instrument_leaves_the_older_sound(self):
        self.write("own.orc", ORCHESTRA.replace("GAIN", "1"))
        self.write("piece.wav", "older")
        for score in (SCORE.replace("i1", "i7"), SCORE + SCORE.replace("i1", "i7")):
            self.write("piece.vorn", score)
            done = self.play("piece.vorn", "own.orc", "--wav", "piece.wav")
            self.assertEqual((done.returncode, done.stdout), (1, ""))
            self.assertIn("instr 7 is not defined in the orchestra", done.stderr)
            self.assertIn('"piece.wav" is not written', done.stderr)
            self.assertEqual((self.folder / "piece.wav").read_bytes(), b"older")
            self.assertTrue(self.nothing_temporary_is_left())

    def test_a_mistake_in_the_score_stops_all(self):
        self.write("piece.vorn", SCORE.replace("no a4", "no h4"))
        done = self.play("piece.vorn", "--wav", "piece.wav")
        self.assertEqual((done.returncode, self.files()), (1, ["piece.vorn"]))
        self.assertIn("piece.vorn:5:", done.stderr)

    def test_midi_is_played_by_fluidsynth(self):
        sound, said = self.render(SCORE, "--midi")
        self.assertRegex(said, r"^piece\.vorn: \d\.\d s, peak -\d+\.\d dB\n$")
        self.assertEqual(sound.pitch(KEYS[12:37], .1, .3), KEYS[24])
        self.vornkit("midi", "--quiet", "piece.vorn", "piece.mid")
        done = self.play("piece.mid", "--wav", "again.wav")
        self.assertEqual(done.returncode, 0)
        self.assertAlmostEqual(Sound(self.folder / "again.wav").seconds, sound.seconds, places=1)

    def test_midi_is_as_loud_as_it_may_be_however_many_notes_sound(self):
        score = "i1 = 5 0 -%d {\np2 %s\np3 4\np4 32000\np5 < 60 64 67 72 >\n}\n"
        for count, interval in ((4, 4), (120, .005)):
            sound, said = self.render(score % (count, interval), "--midi")
            self.assertAlmostEqual(sound.peak(), 10 ** (-3 / 20), delta=.02)
            self.assertRegex(said, r"peak -3\.\d dB$|peak -2\.9 dB$")

    def test_playing_goes_to_the_audio_device(self):
        self.write("piece.vorn", SCORE)
        self.write(".csound6rc", "-+rtaudio=null\n")  # takes the samples at their time
        begin = time.monotonic()
        done = self.play("piece.vorn")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertGreater(time.monotonic() - begin, 1.9)

    def test_without_a_device_it_says_what_to_do(self):
        self.write("piece.vorn", SCORE)
        self.write(".csound6rc", "-+rtaudio=alsa\n")
        self.write("asound.conf", "")
        surroundings = dict(self.surroundings, ALSA_CONFIG_PATH=str(self.folder / "asound.conf"))
        done = self.play("piece.vorn", env=surroundings)
        self.assertEqual(done.returncode, 2)
        self.assertIn("no audio device to play on; --wav FILE", done.stderr)
        self.write(".csound6rc", "-+rtaudio=alsa\n-odac\n")
        done = self.play("piece.vorn", "--wav", "piece.wav", env=surroundings)
        self.assertEqual(done.returncode, 2)
        self.assertIn("-o in the file .csound6rc", done.stderr)

    def test_missing_programs_are_named_with_their_package(self):
        self.write("piece.vorn", SCORE)
        surroundings = dict(self.surroundings, PATH=str(self.folder))
        for arguments, package in (([], "csound"), (["--midi"], "fluidsynth")):
            done = self.play("piece.vorn", *arguments, "--wav", "piece.wav", env=surroundings)
            self.assertEqual(done.returncode, 2)
            self.assertIn(f"(Debian: apt install {package})", done.stderr)
        self.assertEqual(self.files(), ["piece.vorn"])

    def test_wrong_use(self):
        self.write("piece.vorn", SCORE)
        self.write("own.orc", ORCHESTRA)
        self.write("own.csd", "")
        for arguments, said in ((["piece.vorn", "own.csd"], "holds a score of its own"),
                                (["piece.vorn", "none.orc"], "cannot read the orchestra"),
                                (["piece.vorn", "own.orc", "--midi"], "without an orchestra"),
                                (["piece.vorn", "--wav", "piece.vorn"], "is read for this"),
                                (["piece.vorn", "own.orc", "--wav", "own.orc"], "is read for this"),
                                (["piece.vorn", "--wav", "."], "is a folder"),
                                (["piece.vorn", "--wav", "no/such.wav"], "cannot write no/such.wav"),
                                (["none.mid", "--wav", "x.wav"], "cannot read"),
                                (["piece.vorn", "--midi", "--soundfont", "none.sf2", "--wav", "x.wav"], "none.sf2"),
                                (["piece.vorn", "--midi", "--soundfont", "own.orc", "--wav", "x.wav"], "no sound font"),
                                (["piece.vorn", "--soundfont", "none.sf2", "--wav", "x.wav"], "add --midi"),
                                (["piece.vorn", "--pitch", "p99", "--wav", "x.wav"], "no block of the score has a p99"),
                                (["piece.vorn", "--midi", "--level", "p9", "--wav", "x.wav"], "has a p9"),
                                (["piece.vorn", "own.orc", "--pitch", "p4", "--wav", "x.wav"], "without an orchestra"),
                                (["none.mid", "--pitch", "p4", "--wav", "x.wav"], "has no p-fields"),
                                (["piece.vorn", "--pitch", "p3"], "p4 to p128"), ([], "SCORE")):
            done = self.play(*arguments)
            self.assertEqual(done.returncode, 2, arguments)
            self.assertIn(said, done.stderr)
        self.assertEqual(self.files(), ["own.csd", "own.orc", "piece.vorn"])

    def test_names_with_blanks_quotes_and_other_letters(self):
        for name in ("l'été \"1\" $HOME – ü", "-o"):
            self.write(name + ".vorn", SCORE)
            self.write(name + ".orc", ORCHESTRA.replace("GAIN", "1"))
            done = self.play("--wav", f"./{name}.wav", "--", name + ".vorn", name + ".orc")
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertTrue((self.folder / (name + ".wav")).exists())

    def test_standard_input_and_output(self):
        done = self.play("-", "--wav", "-", input=SCORE.encode())
        self.assertEqual(done.returncode, 0)
        self.assertRegex(done.stderr, r"^<stdin>: 2\.\d s, peak")
        self.assertEqual(done.stdout_bytes[:4], b"RIFF")

    @unittest.skipIf(not os.path.exists("/dev/full"), "no full device here")
    def test_a_full_device_is_told(self):
        self.write("piece.vorn", SCORE)
        done = self.play("piece.vorn", "--wav", "/dev/full")
        self.assertEqual(done.returncode, 2)
        self.assertIn("No space left", done.stderr)

    def test_a_file_that_cannot_grow_is_told(self):
        self.write("piece.vorn", SCORE)
        self.write("piece.wav", "older")
        for option in ("", "--midi"):
            command = 'ulimit -f 64; trap "" XFSZ; exec "$0" play piece.vorn --wav piece.wav ' + option
            done = self.run_program("sh", "-c", command, pathlib.Path(VORNKIT).resolve(), env=self.surroundings)
            self.assertEqual(done.returncode, 2, done.stderr)
            self.assertIn(b"the disk may be full", done.stderr)
            self.assertEqual((self.folder / "piece.wav").read_bytes(), b"older")
            self.assertTrue(self.nothing_temporary_is_left())

    def test_an_interrupted_rendering_leaves_nothing(self):
        self.write("slow.orc", "sr = 44100\nksmps = 1\nnchnls = 2\n0dbfs = 1\ninstr 1\nasound oscili p4, p5\n"
                               "asound reverb asound, 2\nouts asound, asound\nendin\n")
        self.write("long.vorn", SCORE.replace("p3 .5", "p3 19000"))
        self.write("long.wav", "older")
        for number in (signal.SIGINT, signal.SIGTERM):
            with subprocess.Popen([pathlib.Path(VORNKIT).resolve(), "play", "long.vorn", "slow.orc", "--wav", "long.wav"],
                                  cwd=self.folder, env=self.surroundings, start_new_session=True) as running:
                while not list((self.folder / "tmp").iterdir()):
                    time.sleep(.01)
                time.sleep(.5)
                running.send_signal(number)
                self.assertEqual(running.wait(10), -number)
            self.assertFalse(self.is_csound_at_work())
            self.assertEqual(self.files(), ["long.vorn", "long.wav", "slow.orc"])  # tmp is empty, too
            self.assertEqual((self.folder / "long.wav").read_bytes(), b"older")

    def test_a_hundred_thousand_refused_events_are_one_complaint(self):
        self.write("own.orc", ORCHESTRA.replace("GAIN", "1"))
        self.write("piece.vorn", "i77 = 5 0 -100000 {\np2 .0001\np3 1\np4 .5\np5 440\n}\n")
        done = self.play("piece.vorn", "own.orc", "--wav", "piece.wav")
        self.assertEqual(done.returncode, 1)
        self.assertIn("; 100000 events are left out", done.stderr)
        self.assertLess(len(done.stderr), 300)

    def test_help_begins_with_an_example(self):
        done = self.play("--help")
        self.assertEqual(done.returncode, 0)
        self.assertIn("Example: vornkit play piece.vorn", done.stdout)


if __name__ == "__main__":
    unittest.main()
