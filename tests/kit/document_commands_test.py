"""The commands of the tutorial and the recipes do what their page says: each block marked
"sh" is run, line by line, where the scores of the page lie, and what a block marked
"text" behind it shows is what they print. Instead of playing, sounds are written and measured.
So are the commands that other pages for composers show as indented lines, with a piece prepared."""
import os
import pathlib
import re
import shutil
import sys
import unittest

from vornkit import CommandTest, VORNKIT

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "support"))
import documents  # noqa: E402
from sound import Sound  # noqa: E402

DOCS = ROOT / "docs"
FOLDERS = {page: DOCS / "tutorial" / "scores" for page in (DOCS / "tutorial").glob("*.md")}
FOLDERS |= {page: DOCS / "recipes" for page in DOCS.glob("recipes.md")}
PLAY = re.compile(r"^vornkit play (?!.*--wav)", re.MULTILINE)
PLAYED = re.compile(r": ([\d.]+) s, peak (-?[\d.]+) dB$", re.MULTILINE)
OTHERS = [ROOT / "README.md", ROOT / "examples" / "README.md", *sorted(DOCS.glob("*.md"))]
COMMAND = re.compile(r"^    (?!.*(?:[\[<]|path/to))((?:vornkit|vorn|csound|snakemake) .*)$", re.MULTILINE)
FEWER = re.compile(r"(?<=--count )\d+0\b")  # than the page has, of the same
STOPS = re.compile(r"^vornkit watch ", re.MULTILINE)  # runs until it is ended


class DocumentCommands(CommandTest):
    def setUp(self):
        super().setUp()
        programs = [pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")), pathlib.Path(VORNKIT)]
        path = [str(program.resolve().parent) for program in programs] + [str(self.folder / "debian")]
        (self.folder / "debian").mkdir()
        (self.folder / "debian" / "python3").symlink_to(sys.executable)  # that has the packages of Debian
        self.environment = dict(os.environ, PATH=os.pathsep.join([*path, os.environ["PATH"]]))

    def run_block(self, text, folder):
        command = PLAY.sub("vornkit play --wav played.wav ", STOPS.sub("timeout -s INT 3 vornkit watch ", text))
        done = self.run_program("bash", "-e", "-c", f"cd {folder}\n{command}", env=self.environment)
        return done.returncode, (done.stdout + done.stderr).decode()

    def page_problems(self, page, source):
        folder = self.folder / page.stem
        shutil.copytree(source, folder)
        printed, problems = "", []
        for block in documents.blocks(page):
            if block.kind == "sh":
                status, printed = self.run_block(block.text, folder)
                problems += [f"{block.place}: status {status}\n{printed}"] if status else []
                problems += [f"{block.place}: a peak of {peak} dB, silent or clipped"
                             for _, peak in PLAYED.findall(printed) if not -20 < float(peak) < -1]
            elif block.kind == "text" and block.text not in printed:
                problems.append(f"{block.place}: not in\n{printed}")
        return problems

    def test_commands_do_what_is_said(self):
        self.assertTrue(FOLDERS)
        for page, source in sorted(FOLDERS.items()):
            with self.subTest(page=page.name):
                self.assertEqual(self.page_problems(page, source), [])

    def prepare(self):
        """A piece by the names that pages give it, with what they say that it has, and what is shipped."""
        names = "#const TEMPO 90\n#const LOUDNESS .5\nte(~TEMPO)\nrs(1)\n"
        self.write("piece.vorn", names + "i1 = 5 0 4 {\np2 .5\np3 1\np4(hz) no se(T 1 [c4 d e])\np5 ~LOUDNESS\n}\n")
        self.write("piece.orc", "sr = 44100\nksmps = 32\n0dbfs = 1\ninstr 1\na1 poscil p5, p4\nout a1\nendin\n")
        orchestra, score = ((self.folder / name).read_text() for name in ("piece.orc", "piece.vorn"))
        self.write("piece.csd", f"<CsoundSynthesizer>\n<CsInstruments>\n{orchestra}</CsInstruments>\n"
                   f"<CsScore bin=\"vorn -s\">\n{score}</CsScore>\n</CsoundSynthesizer>\n")
        shutil.copy(self.folder / "piece.vorn", self.folder / "arpeggio.vorn")
        for name in ("docs", "examples"):
            (self.folder / name).symlink_to(ROOT / name)

    def test_commands_of_other_pages_run(self):
        shown = [(page, FEWER.sub("4", command)) for page in OTHERS for command in COMMAND.findall(page.read_text())]
        self.assertGreater(len(shown), 20)
        self.prepare()
        for page, command in shown:
            with self.subTest(page=page.name, command=command):
                command = re.sub(r"^csound (?!.*-[no] )", "csound -o played.wav ", command.split(" && ")[0])
                status, printed = self.run_block(command, self.folder)
                self.assertEqual(status, 0, printed)

    def test_the_piece_of_the_last_lesson_is_one_to_hear(self):
        for name in ("lanterns.vorn", "lanterns.orc"):
            shutil.copy(DOCS / "tutorial" / "scores" / name, self.folder)
        done = self.vornkit("play", "lanterns.vorn", "lanterns.orc", "--wav", "piece.wav")
        self.assertEqual(done.returncode, 0, done.stderr)
        seconds, peak = PLAYED.search(done.stdout + done.stderr).groups()
        self.assertTrue(115 < float(seconds) < 125 and -12 < float(peak) < -1, done.stderr)
        sound = Sound(self.folder / "piece.wav")
        silent = [second for second in range(0, 120, 4) if sound.peak(second, .6) < .01]
        self.assertEqual(silent, [])

    def test_nothing_in_the_scores_looks_like_a_mistake(self):
        for file in documents.score_files():
            if file.suffix == ".vorn":
                with self.subTest(score=file.name):
                    shutil.copytree(file.parent, self.folder, dirs_exist_ok=True)
                    done = self.vornkit("check", file.name)
                    self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))


if __name__ == "__main__":
    unittest.main()
