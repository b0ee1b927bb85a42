"""Every piece of examples/ is played by the commands that its header shows, in a folder that
has nothing to do with it, and its sound is measured: no complaint about the score, no clipping,
sound from the beginning to a silent end, and no single endless tone between."""
import io
import os
import pathlib
import re
import subprocess
import tempfile
import unittest
import wave

import numpy

from vornkit import VORNKIT

ROOT = pathlib.Path(__file__).resolve().parents[2]
PIECES = sorted(path for path in (ROOT / "examples").iterdir() if path.is_dir())
PROGRAMS = [pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")).resolve(), pathlib.Path(VORNKIT).resolve()]
COMMAND = re.compile(r"^;     ((?:csound|vornkit) .*)$", re.MULTILINE)
COMPLAINT = re.compile(r"error|warning|deleted|flushed|undefined|illegal|invalid|unknown|not found", re.IGNORECASE)
MEANT = r".*\.vorn:\d+:\d+: warning: .* \[W(2|24)\]$"  # a block that is skipped, "ex" in P3
HARMLESS = re.compile(rf"^\s*0 errors in performance\s*$|^vornkit: note: |{MEANT}")
CONTROL = re.compile(r"\x1b\[[0-9;]*m")
CLIPPED = re.compile(r"samples out of range:(.*)")
KINDS = {"drone", "minimalism", "cloud", "row", "canon", "bass and drums", "sonification", "sections", "arpeggio",
         "bells", "midi"}
AUDIBLE = 10 ** (-50 / 20)
BANDS = 50 * 2 ** (numpy.arange(27) / 3)  # third octaves, in hertz, up to 20 kHz


def is_for_midi(piece):
    return piece.name.startswith("midi_")


def read_sound(content):
    """Frames by channels, 1 for full scale, and the frames of a second."""
    with wave.open(io.BytesIO(content)) as file:
        width, rate, channels = file.getsampwidth(), file.getframerate(), file.getnchannels()
        samples = numpy.frombuffer(file.readframes(file.getnframes()), numpy.uint8).reshape(-1, width)
    whole = numpy.zeros((len(samples), 4), numpy.uint8)
    whole[:, 4 - width:] = samples
    return whole.view("<i4").reshape(-1, channels) / 2 ** 31, rate


def colours(sound, rate):
    """How the sound of each second that is not silent is spread over the bands, as a vector of length 1."""
    places = numpy.searchsorted(numpy.fft.rfftfreq(rate, 1 / rate), BANDS)
    for start in range(0, len(sound) - rate, rate):
        second = sound[start:start + rate].mean(axis=1) * numpy.hanning(rate)
        strengths = numpy.sqrt(numpy.add.reduceat(abs(numpy.fft.rfft(second)) ** 2, places))[:-1]
        if numpy.linalg.norm(strengths) > 1:
            yield strengths / numpy.linalg.norm(strengths)


def change(sound, rate):
    """How much the colour changes from second to second: 0 never, 1 wholly each time."""
    seen = list(colours(sound, rate))
    return sum(1 - float(one @ next_one) for one, next_one in zip(seen, seen[1:])) / max(len(seen) - 1, 1)


def decibels(part):
    return 20 * numpy.log10(max(abs(part).max(initial=0), 1e-9))


def longest_silence(sound, rate):
    """In seconds, between the first audible moment and the last."""
    moments = numpy.flatnonzero(abs(sound).max(axis=1) > AUDIBLE)
    return numpy.diff(moments).max() / rate


def problems(sound, rate):
    seconds, peak = len(sound) / rate, decibels(sound)
    found = {
        f"{seconds:.1f} s long": not 30 <= seconds <= 180,
        f"a peak of {peak:.1f} dB": not -12 <= peak <= -1,
        "no sound within the first second": decibels(sound[:rate]) < -50,
        "it does not end in silence": decibels(sound[-rate // 10:]) > -50,
        "a gap": longest_silence(sound, rate) > 3.5,
        "one side is silent": abs(decibels(sound[:, :1]) - decibels(sound[:, 1:])) > 6,
        f"a change of {change(sound, rate):.3f}": change(sound, rate) < .03,
    }
    return [problem for problem, is_one in found.items() if is_one]


def complaints(said):
    said = CONTROL.sub("", said)
    found = [line.strip() for line in said.splitlines() if COMPLAINT.search(line) and not HARMLESS.match(line)]
    clipped = " ".join(CLIPPED.findall(said)).split()
    return found + (["samples out of range"] if any(figure != "0" for figure in clipped) else [])


def uneven_events(score):
    """Csound compares p-fields only with those of the first event that makes an instance."""
    counts = {}
    for line in score.splitlines():
        if line.startswith("i"):
            counts.setdefault(line.split()[0], set()).add(len(line.split()))
    return [f"{name} has events of {sorted(found)} p-fields" for name, found in counts.items() if len(found) > 1]


def as_it_is_run(command, piece):
    """The command with the folder of the piece; it writes played.wav instead of playing."""
    command = command.replace("path/to/", f"{piece}/")
    if command.startswith("csound "):
        return command.replace("csound ", "csound -d -m7 -W -3 -o played.wav ")
    return command.replace("vornkit play ", "vornkit play --wav played.wav ")


class ExampleSounds(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vorn-test-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        path = os.pathsep.join([*(str(program.parent) for program in PROGRAMS), os.environ["PATH"]])
        self.surroundings = dict(os.environ, PATH=path, TMPDIR=str(self.folder))

    def say(self, command):
        done = subprocess.run(["sh", "-c", command], cwd=self.folder, env=self.surroundings, text=True,
                              errors="replace", stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=300, check=False)
        self.assertEqual(done.returncode, 0, f"{command}\n{done.stdout}")
        return done.stdout

    def play(self, command, piece):
        """What the programs said, and the sound; None for a command that makes something else first."""
        file = self.folder / "played.wav"
        file.unlink(missing_ok=True)
        said = self.say(as_it_is_run(command, piece))
        return said, file.read_bytes() if file.exists() else None

    def check(self, piece):
        header = (piece / f"{piece.name}.vorn").read_text().split("\n\n")[0]
        self.assertIn("; What to learn from it: ", header)
        runs = [(command, *self.play(command, piece)) for command in COMMAND.findall(header)]
        found = complaints("".join(said for _, said, _ in runs))
        sounds = {(command.endswith(".mid"), sound) for command, _, sound in runs if sound}
        self.assertEqual(sorted(is_midi for is_midi, _ in sounds), [False, True] if is_for_midi(piece) else [False],
                         "the sound of Csound, and of a piece for MIDI that of MIDI, by whichever command")
        return found + [problem for _, sound in sounds for problem in problems(*read_sound(sound))]

    def test_each_piece_plays_from_any_folder_and_is_one_to_hear(self):
        self.assertGreaterEqual(len(PIECES), 16)
        for piece in PIECES:
            with self.subTest(piece=piece.name):
                self.assertEqual(self.check(piece), [])

    def test_all_events_of_an_instrument_have_the_same_fields(self):
        for piece in PIECES:
            with self.subTest(piece=piece.name):
                self.say(f"cd {piece} && vorn -s {piece.name}.vorn '{self.folder}/piece.sco'")
                self.assertEqual(uneven_events((self.folder / "piece.sco").read_text()), [])

    def test_each_piece_is_complete_and_in_the_index(self):
        index = (ROOT / "examples" / "README.md").read_text()
        for piece in PIECES:
            with self.subTest(piece=piece.name):
                self.assertEqual([one for one in ("vorn", "svg", "orc", "csd")
                                  if not (piece / f"{piece.name}.{one}").exists()], [])
                self.assertIn(f"({piece.name}/{piece.name}.vorn)", index)
                self.assertIn(f"{piece.name}/{piece.name}.svg", index)
        self.assertEqual([kind for kind in KINDS if kind not in index.lower()], [])

    def test_an_endless_tone_would_be_found(self):
        rate = 44100
        beats = numpy.arange(40 * rate) / rate
        tone = numpy.sin(2 * numpy.pi * 440 * beats) * (1 + numpy.sin(2 * numpy.pi * .3 * beats)) * .2
        noise = numpy.random.default_rng(1).normal(0, .1, len(beats))
        for sound in (tone, noise):
            both = numpy.stack([sound, sound], axis=1)
            self.assertLess(change(both, rate), .03)
            self.assertIn("it does not end in silence", problems(both, rate))
        melody = numpy.sin(2 * numpy.pi * 220 * 2 ** (beats.astype(int) % 5 / 3) * beats)
        self.assertGreater(change(numpy.stack([melody, melody], axis=1), rate), .3)


if __name__ == "__main__":
    unittest.main()
