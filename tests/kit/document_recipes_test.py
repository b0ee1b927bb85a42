"""Each recipe of docs/recipes.md has the property for which someone would look it up."""
import math
import os
import pathlib
import re
import shutil
import sys
import unittest

import mido

from vornkit import CommandTest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "support"))
from sound import Sound  # noqa: E402

RECIPES = ROOT / "docs" / "recipes"
VORN = pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")).resolve()


class Event:
    def __init__(self, line):
        fields = line.split()
        self.instrument = int(fields[0][1:])
        self.start, self.duration, *self.rest = (float(field) for field in fields[1:])
        self.end = self.start + self.duration

    @property
    def semitones(self):
        """Of P4 in hertz, 48 for the middle c."""
        return 57 + 12 * math.log2(self.rest[0] / 440)

    @property
    def key(self):
        return round(self.semitones)


def voices(events):
    """The events by their instruments."""
    found = {}
    for event in events:
        found.setdefault(event.instrument, []).append(event)
    return found


class Recipes(CommandTest):
    def setUp(self):
        super().setUp()
        shutil.copytree(RECIPES, self.folder, dirs_exist_ok=True)

    def score(self, name):
        done = self.run_program(VORN, name, "out.sco")
        self.assertEqual(done.returncode, 0, done.stderr)
        return (self.folder / "out.sco").read_text()

    def events(self, name):
        """The events of the blocks; lines that are passed on begin with a blank."""
        lines = self.score(name).splitlines()
        events = [Event(line) for line in lines if re.match(r"i\d", line)]
        self.assertTrue(events)
        return events

    def change(self, name, old, new):
        text = (self.folder / name).read_text()
        self.assertIn(old, text)
        self.write("changed.vorn", text.replace(old, new))
        return self.events("changed.vorn")

    def assert_starts(self, events, step):
        for number, event in enumerate(events):
            self.assertAlmostEqual(event.start, number * step, delta=.0011)

    def test_each_recipe_has_a_test(self):
        shown = {re.sub(r"\W+", "_", path.stem) for path in RECIPES.glob("*.vorn")}
        tested = {name[len("test_"):] for name in dir(self) if name.startswith("test_")}
        self.assertEqual(shown - tested, {"part_bass", "part_melody"})

    def test_triplets(self):
        events = self.events("triplets.vorn")
        self.assertEqual(len(events), 12)
        self.assert_starts(events, 1 / 3)
        self.assertEqual(len(self.change("triplets.vorn", "0 -12 {", "0 4 {")), 13)

    def test_drums(self):
        sixteenth = 60 / 104 / 4
        strokes = {number: [round(event.start / sixteenth) for event in events]
                   for number, events in voices(self.events("drums.vorn")).items()}
        bars = range(0, 64, 16)
        self.assertEqual(strokes[1], [bar + at for bar in bars for at in (0, 7, 8)])
        self.assertEqual(strokes[2], [bar + at for bar in bars for at in (4, 12, 15)])
        self.assertEqual(strokes[3], list(range(0, 64, 2)))
        snare = [event.rest[0] for event in voices(self.events("drums.vorn"))[2]]
        self.assertEqual(snare, [.7, .7, .2] * 4)

    def test_fade(self):
        levels = [event.rest[1] for event in self.events("fade.vorn")]
        self.assertEqual(levels[:33], [.8] * 33)
        self.assertEqual(levels[-1], 0)
        self.assertTrue(all(later < earlier for earlier, later in zip(levels[32:], levels[33:])))

    def test_section_crescendo(self):
        events = self.events("section-crescendo.vorn")
        self.assertEqual(len(voices(events)), 3)
        for event in events:
            self.assertAlmostEqual(event.rest[1], .1 + .7 * event.start / 24, delta=.0011)

    def test_accelerating_canon(self):
        found = voices(self.events("accelerating-canon.vorn"))
        first, second, third = found[1], found[2], found[3]
        starts = [event.start for event in first]
        for delay, voice in ((8, second), (16, third)):
            self.assertEqual([event.start for event in voice], starts[delay:])
            self.assertEqual(voice[-1].end, first[-1].end)
        self.assertEqual([event.key for event in second], [event.key for event in first[:-8]])
        self.assertEqual([event.key for event in third], [event.key - 12 for event in first[:-16]])
        self.assertGreater(starts[1] - starts[0], 2 * (starts[-1] - starts[-2]))

    def test_two_curves(self):
        events = self.events("two-curves.vorn")
        last = len(events) - 1
        low, high = (36, 57), (84, 59)
        for number, event in enumerate(events):
            lower = low[0] + (low[1] - low[0]) * (number / last) ** 2
            upper = high[0] + (high[1] - high[0]) * (number / last) ** .5
            self.assertTrue(lower - .01 < event.semitones < upper + .01, number)
        self.assertGreater(max(event.semitones for event in events[:40]), 70)

    def test_row(self):
        keys = [event.key for event in self.events("row.vorn")]
        row, inversion, retrograde, both = (keys[at:at + 12] for at in (0, 12, 24, 36))
        self.assertEqual(len(keys), 48)
        self.assertEqual(sorted(key % 12 for key in row), list(range(12)))
        self.assertEqual(inversion[0], row[0])
        self.assertEqual([key - row[0] for key in row], [inversion[0] - key for key in inversion])
        self.assertEqual(retrograde, row[::-1])
        self.assertEqual(both, inversion[::-1])

    def test_phase(self):
        found = voices(self.events("phase.vorn"))
        for number, (first, second) in enumerate(zip(found[1], found[2])):
            self.assertEqual(first.start, 6 * number)
            self.assertEqual(second.start, 6 * number + number // 12)
            self.assertEqual(first.key, second.key)
        # Not even after ten thousand notes.
        events = voices(self.change("phase.vorn", "-144", "-12000"))
        self.assertEqual((events[1][-1].start, events[2][-1].start), (6 * 11999, 6 * 11999 + 999))
        done = self.vornkit("play", "phase.vorn", "--wav", "out.wav")
        self.assertRegex(done.stdout + done.stderr, r": 52\.\d s")

    def test_sonification(self):
        table = [float(line) for line in (self.folder / "temperatures.txt").read_text().split()]
        events = self.events("sonification.vorn")
        self.assertEqual(len(events), len(table))
        for value, event in zip(table, events):
            self.assertAlmostEqual(event.semitones, 48 + 1.5 * value, places=3)

    def test_switches(self):
        self.assertEqual(set(voices(self.events("switches.vorn"))), {1, 2})
        self.assertEqual(set(voices(self.change("switches.vorn", "BELLS 0", "BELLS 1"))), {1, 2, 3})
        self.assertEqual(set(voices(self.change("switches.vorn", "TUNE 1", "TUNE 0"))), {2})

    def test_never_twice(self):
        for seed in (12, 1, 2, 3):
            keys = [event.key for event in self.change("never-twice.vorn", "rs(12)", f"rs({seed})")]
            self.assertEqual(len(keys), 64)
            self.assertTrue(all(earlier != later for earlier, later in zip(keys, keys[1:])))

    def test_walk_over_chords(self):
        for seed in (6, 1, 2, 3):
            found = voices(self.change("walk-over-chords.vorn", "rs(6)", f"rs({seed})"))
            steps = []
            for event in found[1]:
                sounding = [chord for chord in found[2] if chord.start - .01 < event.start < chord.end - .01]
                above = event.key - min(chord.key for chord in sounding)
                self.assertIn(above % 12, {0, 4, 7})
                steps.append(above // 12 * 3 + (0, 4, 7).index(above % 12))
            self.assertTrue(all(abs(one - next_one) <= 2 for one, next_one in zip(steps, steps[1:])), steps)
            self.assertGreater(len(set(steps)), 4)

    def test_midi_band(self):
        done = self.vornkit("midi", "midi-band.vorn", "band.mid",
                            "--channel", "3=10", "--program", "1=34", "--program", "2=1")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        notes = [(message.channel, message.note) for track in mido.MidiFile(self.folder / "band.mid").tracks
                 for message in track if message.type == "note_on"]
        self.assertEqual({channel for channel, _ in notes}, {0, 1, 9})
        self.assertEqual({note for channel, note in notes if channel == 9}, {36, 38, 42})

    def test_from_midi(self):
        """What is written as a MIDI file comes back note for note, in beats."""
        self.assertEqual(self.vornkit("midi", "midi-band.vorn", "band.mid").returncode, 0)
        done = self.run_program(sys.executable, "from-midi.py", "band.mid")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.write("from-band.vorn", done.stdout.decode())
        self.assertEqual(self.vornkit("check", "from-band.vorn").stdout, "")
        self.assertIn("te(112)", done.stdout.decode())
        came, went = voices(self.events("from-band.vorn")), voices(self.events("midi-band.vorn"))
        self.assertEqual(set(came), set(went))
        for instrument, notes in went.items():
            notes.sort(key=lambda event: (round(event.start, 2), event.rest[0]))
            back = sorted(came[instrument], key=lambda event: (round(event.start, 2), event.key))
            self.assertEqual([event.key for event in back], [event.rest[0] for event in notes])
            for event, note in zip(back, notes):
                self.assertAlmostEqual(event.start, note.start, delta=.0021)
                self.assertAlmostEqual(event.duration, note.duration, delta=.0021)
                self.assertAlmostEqual(event.rest[1], note.rest[1], delta=.005)

    def test_from_midi_keeps_channels_and_strokes_apart(self):
        file, track = mido.MidiFile(type=0, ticks_per_beat=96), mido.MidiTrack()
        file.tracks.append(track)
        for kind, channel, key, velocity, time in (("note_on", 0, 60, 127, 96), ("note_on", 1, 61, 127, 0),
                                                   ("note_on", 0, 60, 127, 32), ("note_off", 1, 61, 0, 64),
                                                   ("note_on", 0, 60, 0, 0)):
            track.append(mido.Message(kind, channel=channel, note=key, velocity=velocity, time=time))
        file.save(self.folder / "strokes.mid")
        self.write("strokes.vorn", self.run_program(sys.executable, "from-midi.py", "strokes.mid").stdout.decode())
        notes = [(event.instrument, event.start, event.duration, event.key) for event in self.events("strokes.vorn")]
        self.assertEqual(notes, [(1, .5, .167, 48), (1, .667, .333, 48), (2, .5, .5, 49)])

    def test_from_midi_loses_nothing(self):
        """Keys without a name, notes of more than 600 beats, and one that nothing ends."""
        file, track = mido.MidiFile(ticks_per_beat=96), mido.MidiTrack()
        file.tracks.append(track)
        track.append(mido.MetaMessage("set_tempo", tempo=600000))
        for kind, key, time in (("note_on", 0, 0), ("note_on", 60, 96), ("note_off", 0, 699 * 96)):
            track.append(mido.Message(kind, note=key, velocity=127, time=time))
        track.append(mido.MetaMessage("end_of_track", time=96))
        file.save(self.folder / "long.mid")
        self.write("long.vorn", self.run_program(sys.executable, "from-midi.py", "long.mid").stdout.decode())
        notes = [(event.start, event.duration, round(event.rest[0], 2)) for event in self.events("long.vorn")]
        self.assertEqual(notes, [(0, 420, 8.18), (.6, 420, 261.63)])

    def test_from_midi_says_what_it_cannot_read(self):
        self.write("text.mid", "no MIDI file\n")
        self.write("cut.mid", "MThd\0\0\0\6\0\1")
        for arguments, told in (([], "python3 from-midi.py piece.mid > piece.vorn"),
                                (["none.mid"], "cannot read none.mid: No such file"),
                                (["text.mid"], "cannot read text.mid: it is no MIDI file"),
                                (["cut.mid"], "cut.mid is no whole MIDI file")):
            done = self.run_program(sys.executable, "from-midi.py", *arguments)
            self.assertEqual((done.returncode, done.stdout), (1, b""))
            self.assertIn(told, done.stderr.decode())
            self.assertNotIn("Traceback", done.stderr.decode())

    def test_trill(self):
        events = self.events("trill.vorn")
        beat = 60 / 84
        sounding = [event for event in events if event.duration > 0]
        starts = sorted(event.start for event in sounding)
        self.assertEqual(len(sounding), 9 + 16 + 12)
        for begin, end, low, high in ((2, 4, 62, 64), (6, 7.5, 59, 60)):
            trill = [event for event in sounding if begin - .01 < event.start / beat < end - .01]
            self.assertEqual([event.key for event in trill], [high, low] * (len(trill) // 2))
            self.assertAlmostEqual(trill[0].start, begin * beat, delta=.0011)
        self.assertTrue(all(later - start < 1.01 * beat for start, later in zip(starts, starts[1:])))

    def test_a_trill_that_gets_faster(self):
        """As the recipe says it in a sentence, with no warning and up to where the melody goes on."""
        page = " ".join((ROOT / "docs" / "recipes.md").read_text().split())
        steps, *calls = re.search(r"gets faster is.*? with `(p2 [^`]+)`.* are `([^`]+)` and `([^`]+)`", page).groups()
        score = (self.folder / "trill.vorn").read_text().replace("p2 rh 32", steps)
        self.write("faster.vorn", score[:score.index(" $TRILL(")] + "".join(f" {call}\n" for call in calls))
        self.assertEqual(self.vornkit("check", "faster.vorn").stdout, "")
        beat, events = 60 / 84, self.events("faster.vorn")
        for begin, end in ((2, 4), (6, 7.5)):
            starts = [event.start / beat for event in events if begin - .01 < event.start / beat < end - .01]
            gaps = [later - start for start, later in zip(starts, [*starts[1:], end])]
            self.assertGreaterEqual(len(starts), 10)
            self.assertAlmostEqual(gaps[0], .2, delta=.01)
            self.assertLess(gaps[-2], .1)
            self.assertTrue(all(later < earlier for earlier, later in zip(gaps, gaps[1:-1])), gaps)
            self.assertLess(gaps[-1], 2 * gaps[-2])

    def test_fermata(self):
        beat = 60 / 96
        for voice in voices(self.events("fermata.vorn")).values():
            gaps = [later.start - event.start for event, later in zip(voice, voice[1:])]
            for number, gap in enumerate(gaps):
                self.assertAlmostEqual(gap, beat * (2 if number == 7 else 1), delta=.0011)
            self.assertAlmostEqual(voice[-1].duration, .95 * 3 * beat, delta=.0011)
        slower = self.change("fermata.vorn", "te(0 7 96 96)", "te(0 4 96 96)\nte(4 7 96 60 f)")
        self.assertGreater(slower[6].duration, slower[5].duration)

    def test_glissando(self):
        voice, harp = voices(self.events("glissando.vorn")).values()
        for event, later in zip(voice, voice[1:]):
            self.assertEqual(event.rest[2], later.rest[0])
        self.assertEqual([event.key for event in harp], list(range(48, 73)))
        self.assertAlmostEqual(harp[-1].start - harp[0].start, 2 * 60 / 66, delta=.0011)
        # The pitch of the sound: held first, and half way to the next one at three quarters.
        alone = (self.folder / "glissando.vorn").read_text().replace("i2 =", "i-2 =")
        self.write("alone.vorn", alone)
        self.assertEqual(self.vornkit("play", "alone.vorn", "glissando.orc", "--wav", "out.wav").returncode, 0)
        sound = Sound(self.folder / "out.wav")
        tones = [220 * 2 ** (semitones / 12) for semitones in (0, 3.5, 7)]
        heard = [sound.pitch(tones, second - .02, .04) for second in (.2, .85, 1.3636, 1.79)]
        self.assertEqual(heard, [tones[0], tones[0], tones[1], tones[2]])

    def test_ogg(self):
        self.score("drums.vorn")
        done = self.run_program("csound", "-d", "--ogg", "-o", "drums.ogg", "drums.orc", "out.sco")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual((self.folder / "drums.ogg").read_bytes()[:4], b"OggS")
        told = self.run_program("csound", "-U", "sndinfo", "drums.ogg")
        self.assertRegex((told.stdout + told.stderr).decode(), r"9\.\d+ seconds")

    def answers(self, question):
        """What is written as code in the row of a question that has no recipe of its own."""
        page = (ROOT / "docs" / "recipes.md").read_text()
        return re.findall(r"`([^`]+)`", re.search(rf"^\| {question} \|(.*)$", page, re.MULTILINE)[1])

    def events_of(self, text):
        self.write("answer.vorn", text)
        self.assertEqual(self.vornkit("check", "answer.vorn").stdout, "")
        return self.events("answer.vorn")

    def test_a_phrase_at_another_speed(self):
        (steps,) = self.answers("play a phrase at half or double speed")
        tune = f"#define TUNE(number'speed) #\ni$number = 3 0 -3 {{\n{steps}\np3 1\n}} #\n"
        found = voices(self.events_of(tune + " $TUNE(1'1)\n $TUNE(2'.5)\n $TUNE(3'2)\n"))
        starts = {number: [event.start for event in events] for number, events in found.items()}
        self.assertEqual(starts, {1: [0, 1, 1.5], 2: [0, 2, 3], 3: [0, .5, .75]})

    def test_dynamics(self):
        soft, loud, levels = self.answers("write p, mf, ff")
        events = self.events_of(f"{soft}\n{loud}\ni1 = 5 0 5 {{\np2 1\np3 1\np4(hz) no c4\n{levels}\n}}\n")
        self.assertEqual([event.rest[1] for event in events], [.2, .35, .5, .65, .8])

    def test_a_rolled_chord(self):
        steps, durations = self.answers("roll a chord")
        events = self.events_of(f"i1 = 4 0 -8 {{\n{steps}\n{durations}\np4(hz) no c4 e g c5 d4 f a d5\n}}\n")
        self.assertEqual([event.start for event in events], [0, .04, .08, .12, 1, 1.04, 1.08, 1.12])
        self.assertEqual({event.duration for event in events}, {1})

    def test_recordings(self):
        line, speeds = self.answers("play recordings of my own")
        head = "sr = 44100\nksmps = 32\nnchnls = 1\n0dbfs = 1\n"
        self.write("tone.orc", f"{head}instr 1\nout poscil(.4, 440)\nendin\n")
        self.write("tone.sco", "i1 0 4\n")
        self.assertEqual(self.run_program("csound", "-d", "-o", "bell.wav", "tone.orc", "tone.sco").returncode, 0)
        self.write("answer.orc", f"{head}instr 1\n{line}\nout asound\nendin\n")
        self.write("answer.vorn", f"i1 = 4 0 -3 {{\np2 1\np3 1\n{speeds}\n}}\n")
        self.assertEqual(self.vornkit("play", "answer.vorn", "answer.orc", "--wav", "out.wav").returncode, 0)
        tones = [440 * 2 ** (semitones / 12) for semitones in (0, 7, -12)]
        sound = Sound(self.folder / "out.wav")
        self.assertEqual([sound.pitch(tones, second, .2) for second in (.4, 1.4, 2.4)], tones)

    def test_a_sound_file_for_each_voice(self):
        minus, command = self.answers("write a sound file for each voice")
        self.write("piece.vorn", (RECIPES / "fermata.vorn").read_text().replace("i2 =", f"{minus} ="))
        self.assertEqual(self.vornkit(*command.split()[1:]).returncode, 0)
        self.assertEqual(set(voices(self.events("piece.vorn"))), {1})
        self.assertGreater(Sound(self.folder / "voice-1.wav").peak(), .01)

    def test_start_times(self):
        calls = re.findall(r"^ \$NOTE\(([\d.]+)'([\d.]+)'", (RECIPES / "start-times.vorn").read_text(), re.MULTILINE)
        events = self.events("start-times.vorn")
        self.assertEqual(len(events), len(calls))
        for event, (beat, beats) in zip(events, calls):
            self.assertAlmostEqual(event.start, float(beat) / 2, delta=.0011)
            self.assertAlmostEqual(event.duration, float(beats) / 2, delta=.0011)

    def test_csound_tempo(self):
        score = self.score("csound-tempo.vorn")
        self.assertIn(" t 0 60 16 150 ", score)
        self.assertIn(" i9 0 16 73.416 $DRONE", score)
        self.assertEqual(max(event.end for event in self.events("csound-tempo.vorn")), 16)
        done = self.vornkit("play", "csound-tempo.vorn", "csound-tempo.orc", "--wav", "out.wav")
        self.assertEqual(done.returncode, 0, done.stderr)
        # The length of a beat moves in a straight line from 1 to .4 seconds.
        self.assertRegex(done.stdout + done.stderr, r": 11\.\d s")

    def test_parts(self):
        found = voices(self.events("parts.vorn"))
        self.assertEqual({number: len(events) for number, events in found.items()}, {1: 24, 2: 4})
        self.assertEqual(set(voices(self.events("part-bass.vorn"))), {2})


if __name__ == "__main__":
    unittest.main()
