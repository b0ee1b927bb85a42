"""vornkit new: a piece that plays at once, in a folder that was not there."""
import os
import pathlib
import pty
import shlex
import shutil
import signal
import subprocess
import sys
import unittest

from vornkit import VORNKIT, CommandTest, shown_on

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from sound import Sound  # noqa: E402


class NewCommand(CommandTest):
    def setUp(self):
        super().setUp()
        (self.folder / "bin").mkdir()
        (self.folder / "bin" / "vorn").symlink_to(pathlib.Path(os.environ["VORN_PROGRAM"]).resolve())
        (self.folder / "bin" / "vornkit").symlink_to(pathlib.Path(VORNKIT).resolve())
        self.surroundings = dict(os.environ, HOME=str(self.folder), PATH=f"{self.folder / 'bin'}:{os.environ['PATH']}")

    def pieces(self):
        return [name for name in self.files() if not name.startswith("bin/")]

    def test_a_new_piece_plays_in_both_ways(self):
        done = self.vornkit("new", "nocturne")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        names = ["nocturne/nocturne" + ending for ending in (".csd", ".orc", ".vorn")]
        self.assertEqual(self.pieces(), names)
        self.assertEqual(self.vornkit("check", names[2]).stdout, "")  # nothing to note
        options = {"env": self.surroundings}
        played = self.vornkit("play", names[2], names[1], "--wav", "a.wav", **options)
        self.assertEqual((played.returncode, played.stderr), (0, ""))
        done = self.run_program("csound", "-W", "-3", "-o", "b.wav", names[0], **options)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual((self.folder / "a.wav").read_bytes(), (self.folder / "b.wav").read_bytes())
        sound = Sound(self.folder / "a.wav")
        self.assertAlmostEqual(sound.seconds, 32 * .6, places=1)  # 32 beats of 100 a minute
        self.assertTrue(.1 < sound.peak() < .9, sound.peak())
        bass = {"c2": 65.41, "a1": 55.0, "f1": 43.65, "g1": 49.0}
        for bar, tone in enumerate(("c2", "a1", "f1", "g1")):
            self.assertEqual(sound.pitch(bass.values(), bar * 2.4 + .2, 1.5), bass[tone])

    def test_the_score_tells_how_it_is_heard(self):
        for name in ("nocturne", "l'été $1 #2 ~3", "-x"):
            self.assertEqual(self.vornkit("new", "--", name).returncode, 0)
            lines = (self.folder / name / f"{name}.vorn").read_text().splitlines()
            command = shlex.split(lines[1].removeprefix("; To hear it, in its folder: "))
            self.assertEqual(command[:2], ["vornkit", "play"])
            for file, ending in zip(command[2:], ("vorn", "orc"), strict=True):
                self.assertEqual(pathlib.Path(file), pathlib.Path(f"{name}.{ending}"))
            self.assertEqual(self.vornkit("check", f"./{name}/{name}.vorn").stdout, "")
        self.assertEqual(self.vornkit("new", "two\nlines").returncode, 0)
        self.assertEqual(self.vornkit("check", "two\nlines/two\nlines.vorn").stdout, "")

    def test_its_p_fields_are_those_of_the_tutorial(self):
        tutorial = (pathlib.Path(__file__).resolve().parents[2] / "docs/tutorial/scores/lanterns.orc").read_text()
        self.vornkit("new", "nocturne")
        for ending in (".vorn", ".orc", ".csd"):
            self.assertIn(tutorial.splitlines()[0] + "\n", (self.folder / ("nocturne/nocturne" + ending)).read_text())
        blocks = (self.folder / "nocturne/nocturne.vorn").read_text().split("{")[1:]
        self.assertEqual([block.count("\np4(hz) no ") for block in blocks], [1, 1])

    def told_on_terminal(self, *arguments):
        """What a person sees; the line ends as a file has them."""
        main, other = pty.openpty()
        done = subprocess.run([pathlib.Path(VORNKIT).resolve(), "new", *arguments], cwd=self.folder, stdout=other,
                              check=False)
        os.close(other)
        told = shown_on(main).decode().replace("\r\n", "\n")
        os.close(main)
        self.assertEqual(done.returncode, 0)
        return told

    def test_a_script_is_told_nothing(self):
        done = self.vornkit("new", "nocturne")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_a_person_is_told_in_two_lines_what_to_do(self):
        for name in ("nocturne", "l'été \"1\" – ü"):
            lines = self.told_on_terminal(name).splitlines()
            self.assertEqual(len(lines), 2)
            words = [shlex.split(line.split(":", 1)[1]) for line in lines]
            path = f"{name}/{name}"
            self.assertEqual(words, [["vornkit", "play", path + ".vorn", path + ".orc"], ["csound", path + ".csd"]])
            for word in words[0][2:] + words[1][1:]:
                self.assertTrue((self.folder / word).exists(), word)

    def test_what_it_says_to_do_is_no_option(self):
        told = self.told_on_terminal("--", "-x")
        self.assertIn("vornkit play ./-x/-x.vorn ./-x/-x.orc\n", told)
        self.assertIn("csound ./-x/-x.csd\n", told)

    def test_an_empty_folder_is_filled(self):
        (self.folder / "here").mkdir()
        self.assertEqual(self.vornkit("new", "here/").returncode, 0)
        self.assertEqual(self.pieces(), ["here/here.csd", "here/here.orc", "here/here.vorn"])

    def test_what_is_there_is_left_alone(self):
        self.write("full/mine.vorn", "mine")
        self.write("file", "mine")
        for name, said in (("full", "is no empty folder"), ("file", "is no empty folder"),
                           ("no/such", "cannot make the folder"), ("", "cannot make the folder")):
            done = self.vornkit("new", name)
            self.assertEqual(done.returncode, 2, name)
            self.assertIn(said, done.stderr)
        self.assertEqual(self.vornkit("new").returncode, 2)
        self.assertEqual(self.pieces(), ["file", "full/mine.vorn"])

    def test_a_disk_that_is_full_gets_no_half_piece(self):
        # The score has less than 1,024 bytes, the document more.
        done = self.run_program("sh", "-c", 'ulimit -f 2; trap "" XFSZ; exec "$0" new piece',
                                pathlib.Path(VORNKIT).resolve())
        self.assertEqual(done.returncode, 2)
        self.assertIn(b"cannot write piece/piece.csd", done.stderr)
        self.assertEqual((self.pieces(), (self.folder / "piece").exists()), ([], False))

    def test_an_interruption_leaves_all_of_the_piece_or_nothing(self):
        whole = ["piece/piece.csd", "piece/piece.orc", "piece/piece.vorn"]
        piece = self.folder / "piece"
        for _ in range(100):  # one in twenty would come between two files
            with subprocess.Popen([pathlib.Path(VORNKIT).resolve(), "new", "piece"], cwd=self.folder,
                                  stdout=subprocess.DEVNULL) as making:
                while making.poll() is None and not piece.exists():
                    pass
                making.send_signal(signal.SIGTERM)
            self.assertIn(making.returncode, (0, -signal.SIGTERM))
            self.assertEqual(self.pieces(), whole)
            shutil.rmtree(piece)

    def test_help_begins_with_an_example(self):
        self.assertIn("Example: vornkit new", self.vornkit("new", "--help").stdout)


if __name__ == "__main__":
    unittest.main()
