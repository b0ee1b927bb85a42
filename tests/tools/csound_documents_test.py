#!/usr/bin/env python3
"""A score for Vorn inside a document for Csound (examples/*/*.csd, docs/csound.md): the
real Csound has it translated, the sound is that of the separate files, byte for byte,
and a mistake in the score stops Csound with Vorn's own message and line."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "support"))
from sound import Sound  # noqa: E402

VORN = pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")).resolve()
DOCUMENTS = sorted((ROOT / "examples").glob("*/*.csd"))
TIME_LIMIT = 300  # seconds

DOCUMENT = """<CsoundSynthesizer>
<CsOptions>
-d
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 10
0dbfs = 1
instr 1
a1 oscili .5, p4
out a1
endin
</CsInstruments>
<CsScore bin="vorn -s">
SCORE</CsScore>
</CsoundSynthesizer>
"""

SCORE = """#include |notes.inc|
i1 = 4 0 -2 {
p2 1
p3 .9
p4(hz) no $NOTES
}
"""

NOTES = "#define NOTES #a4 c5#\n"


class CsoundDocuments(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vorn-test-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "bin").mkdir()
        (self.folder / "bin" / "vorn").symlink_to(VORN)
        # Csound does not remove what it gives to a translator that fails.
        (self.folder / "tmp").mkdir()
        self.surroundings = dict(os.environ, TMPDIR=str(self.folder / "tmp"),
                                 PATH=f"{self.folder / 'bin'}:{os.environ['PATH']}")

    def run_program(self, *command, folder=None):
        return subprocess.run([str(word) for word in command], cwd=folder or self.folder, env=self.surroundings,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL,
                              timeout=TIME_LIMIT, check=False, text=True, errors="replace")

    def render(self, *performance, to, folder=None):
        done = self.run_program("csound", "-W", "-m0", "-o", to, *performance, folder=folder)
        self.assertEqual(done.returncode, 0, done.stdout)
        return to

    def write(self, name, text):
        (self.folder / name).write_text(text)

    def test_an_example_with_an_include_sounds_like_its_separate_files(self):
        """From any folder: what it includes is in the document."""
        document = ROOT / "examples" / "hocket" / "hocket.csd"
        score = self.folder / "separate.sco"
        done = self.run_program(VORN, document.with_suffix(".vorn"), score, folder=document.parent)
        self.assertEqual(done.returncode, 0, done.stdout)
        separate = self.render(document.with_suffix(".orc"), score, to=self.folder / "separate.wav")
        whole = self.render(document, to=self.folder / "whole.wav")
        self.assertEqual(whole.read_bytes(), separate.read_bytes())

    def test_examples_are_made_of_their_separate_files(self):
        self.assertEqual(len(DOCUMENTS), len(list((ROOT / "examples").glob("*/*.orc"))))
        done = self.run_program("bash", ROOT / "scripts" / "csd", "--check")
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_a_document_plays_its_notes(self):
        self.write("piece.csd", DOCUMENT.replace("SCORE", SCORE))
        self.write("notes.inc", NOTES)
        sound = Sound(self.render("piece.csd", to=self.folder / "piece.wav"))
        self.assertAlmostEqual(sound.seconds, 1.9, places=2)
        self.assertAlmostEqual(sound.peak(), .5, places=3)
        keys = [440 * 2 ** (step / 12) for step in range(-12, 13)]
        self.assertEqual(sound.pitch(keys, .1, .5), keys[12])
        self.assertEqual(sound.pitch(keys, 1.1, .5), keys[15])
        self.assertEqual(sound.peak(.91, .08), 0)

    def test_includes_are_looked_up_where_csound_was_started(self):
        (self.folder / "inner").mkdir()
        self.write("inner/piece.csd", DOCUMENT.replace("SCORE", SCORE))
        self.write("notes.inc", NOTES)
        self.render("inner/piece.csd", to=self.folder / "piece.wav")
        shutil.move(self.folder / "notes.inc", self.folder / "inner")
        done = self.run_program("csound", "-n", "inner/piece.csd")
        self.assertEqual(done.returncode, 1)
        self.assertIn('Bad include file name: "notes.inc"', done.stdout)

    def test_a_mistake_stops_csound_with_the_message_and_its_line(self):
        mistaken = "i1 = 4 0 -2 {\np2 1\np3 .9\np4 nonsense\n}\n"
        self.write("piece.csd", DOCUMENT.replace("SCORE", mistaken))
        done = self.run_program("csound", "-W", "-o", "piece.wav", "piece.csd")
        self.assertEqual(done.returncode, 1)
        self.assertIn("ERROR: Line 4:Value out of bounds or syntax error.\np4 nonsense", done.stdout)
        self.assertIn("External generation failed", done.stdout)
        self.assertFalse((self.folder / "piece.wav").exists())

    def test_csound_keeps_a_tempo_of_its_own(self):
        score = "> t 0 120\ni1 = 4 0 -2 {\np2 1\np3 1\np4 440\n}\n"
        self.write("piece.csd", DOCUMENT.replace("SCORE", score))
        self.assertAlmostEqual(Sound(self.render("piece.csd", to=self.folder / "piece.wav")).seconds, 1, places=2)

    def test_the_page_shows_documents_that_play(self):
        page = (ROOT / "docs" / "csound.md").read_text()
        documents = re.findall(r"^```csd\n(.*?)^```$", page, re.MULTILINE | re.DOTALL)
        self.assertTrue(documents)
        for number, document in enumerate(documents):
            self.write("shown.csd", document)
            sound = Sound(self.render("shown.csd", to=self.folder / "shown.wav"))
            self.assertGreater(sound.peak(), .05, number)


if __name__ == "__main__":
    unittest.main()
