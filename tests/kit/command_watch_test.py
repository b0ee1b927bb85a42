"""vornkit watch: what is told when files change, and what stays when a score is wrong."""
import os
import pathlib
import queue
import signal
import subprocess
import threading
import time
import unittest

from vornkit import VORNKIT, CommandTest

SCORE = "i1 = 5 0 -%d {\np2 1\np3 1\np4 60\np5 9000\n}\n"
PATIENCE = 60  # seconds; a busy machine is slow, and a watch that misses a change fails


class WatchCommand(CommandTest):
    def start(self, *arguments):
        """The running watch; self.lines gets what it writes on either stream."""
        self.lines = queue.Queue()
        watch = subprocess.Popen([pathlib.Path(VORNKIT).resolve(), "watch", *arguments], cwd=self.folder,
                                 stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        threading.Thread(target=lambda: [self.lines.put(line) for line in watch.stdout], daemon=True).start()
        self.addCleanup(watch.stdout.close)
        self.addCleanup(watch.wait)
        self.addCleanup(watch.kill)
        return watch

    def expect(self, said):
        """Waits for a line that holds `said`; the lines before it are passed over."""
        while True:
            try:
                line = self.lines.get(timeout=PATIENCE)
            except queue.Empty:
                self.fail(f"{said!r} was not said")
            if said in line:
                return line

    def replace(self, name, text):
        """As editors do it: a new file takes the place of the old one."""
        (self.folder / "new").write_text(text)
        os.replace(self.folder / "new", self.folder / name)

    def test_each_change_is_told(self):
        self.write("a.vorn", SCORE % 3)
        watch = self.start("a.vorn")
        self.assertEqual(self.expect("events"), "a.vorn: 3 events, 3.000 seconds\n")
        self.write("a.vorn", SCORE % 4)
        self.expect("4 events")
        self.replace("a.vorn", SCORE % 5)
        self.expect("5 events")
        self.write("a.vorn", SCORE.replace("60", "c4") % 5)
        self.expect("a.vorn:4:")
        self.write("a.vorn", SCORE % 6)
        self.expect("6 events")
        watch.send_signal(signal.SIGINT)
        self.assertEqual(watch.wait(PATIENCE), 0)

    def test_an_included_file_counts_also_one_that_is_missing_yet(self):
        self.write("a.vorn", "#include |inc/part.inc|\n")
        (self.folder / "inc").mkdir()
        self.start("a.vorn")
        self.expect("inc/part.inc")
        self.write("inc/part.inc", SCORE % 2)
        self.expect("2 events")
        self.write("inc/part.inc", SCORE % 7)
        self.expect("7 events")

    def test_a_score_that_vanishes_and_returns(self):
        self.write("a.vorn", SCORE % 3)
        self.start("a.vorn")
        self.expect("3 events")
        (self.folder / "a.vorn").unlink()
        self.expect('"a.vorn"')
        self.write("a.vorn", SCORE % 8)
        self.expect("8 events")

    def test_a_score_whose_place_a_folder_takes_for_a_while(self):
        self.write("a.vorn", SCORE % 3)
        self.start("a.vorn")
        self.expect("3 events")
        (self.folder / "a.vorn").rename(self.folder / "old")
        (self.folder / "a.vorn").mkdir()
        self.expect("Is a directory")
        (self.folder / "a.vorn").rmdir()
        (self.folder / "old").rename(self.folder / "a.vorn")
        self.expect("3 events")
        self.write("a.vorn", SCORE % 8)
        self.expect("8 events")

    def test_the_folder_of_an_included_file_comes_and_goes(self):
        self.write("a.vorn", "#include |x/y/part.inc|\n")
        self.start("a.vorn")
        self.expect("x/y/part.inc")
        self.write("x/y/part.inc", SCORE % 2)
        self.expect("2 events")
        (self.folder / "x/y").rename(self.folder / "x/z")
        self.expect("x/y/part.inc")
        self.write("x/y/part.inc", SCORE % 5)
        self.expect("5 events")

    def test_a_folder_above_the_one_of_an_included_file_comes_and_goes(self):
        self.write("a.vorn", "#include |u/x/y/part.inc|\n")
        self.write("u/x/y/part.inc", SCORE % 2)
        self.start("a.vorn")
        self.expect("2 events")
        for folder, other in (("u", "v"), ("u/x", "u/z")):
            (self.folder / folder).rename(self.folder / other)
            self.expect("u/x/y/part.inc")
            (self.folder / other).rename(self.folder / folder)
            self.expect("2 events")
        self.write("u/x/y/part.inc", SCORE % 5)
        self.expect("5 events")

    def test_a_link_counts_as_the_file_behind_it(self):
        self.write("real/a.vorn", SCORE % 3)
        (self.folder / "b.vorn").symlink_to("real/a.vorn")
        self.start("b.vorn")
        self.expect("3 events")
        self.write("real/a.vorn", SCORE % 4)
        self.expect("4 events")

    def link(self, name, target):
        """As ln -sfn does it: a new link takes the place of the old one."""
        (self.folder / "new").symlink_to(target)
        os.replace(self.folder / "new", self.folder / name)

    def test_links_of_folders_are_followed_wherever_they_lead(self):
        self.write("a.vorn", "#include |cur/part.inc|\n")
        self.write("takes/1/part.inc", SCORE % 2)
        self.write("takes/2/part.inc", SCORE % 5)
        self.link("takes/best", "1")
        self.link("cur", "takes/best")
        self.start("a.vorn")
        self.expect("2 events")
        self.link("takes/best", "2")  # a link behind the link
        self.expect("5 events")
        self.link("cur", "takes/1")
        self.expect("2 events")
        (self.folder / "takes/1").rename(self.folder / "takes/3")
        self.expect("cur/part.inc")
        (self.folder / "takes/3").rename(self.folder / "takes/1")
        self.expect("2 events")
        self.write("takes/1/part.inc", SCORE % 4)
        self.expect("4 events")

    def test_a_link_to_itself_is_no_end_of_the_watch(self):
        self.write("a.vorn", "#include |cur/part.inc|\n")
        self.link("cur", "cur")
        self.start("a.vorn")
        self.expect("cur/part.inc")
        self.write("takes/part.inc", SCORE % 2)
        self.link("cur", "takes")
        self.expect("2 events")

    def wait_for(self, name, other_than=None):
        """The bytes of a file as soon as there are any, and others than these."""
        deadline = time.monotonic() + PATIENCE
        path = self.folder / name
        while time.monotonic() < deadline:
            if path.exists() and path.read_bytes() not in (b"", other_than):
                return path.read_bytes()
            time.sleep(0.02)
        self.fail(f"{name} was not made")

    def test_picture_and_sound_are_made_anew_and_stay_when_the_score_is_wrong(self):
        self.write("a b.vorn", SCORE % 3)
        self.start("a b.vorn", "--picture", "a b.svg", "--wav", "a b.wav")
        self.expect("3 events")
        picture = self.wait_for("a b.svg")
        sound = self.wait_for("a b.wav")
        self.write("a b.vorn", (SCORE % 3).replace("60", "c4"))
        self.expect("a b.vorn:4:")
        self.assertEqual([self.wait_for("a b.svg"), self.wait_for("a b.wav")], [picture, sound])
        self.write("a b.vorn", SCORE % 9)
        self.expect("9 events")
        self.assertNotEqual(self.wait_for("a b.svg", other_than=picture), picture)
        self.assertGreater(len(self.wait_for("a b.wav", other_than=sound)), len(sound))

    def test_the_orchestra_counts(self):
        self.write("a.vorn", SCORE % 1)
        orchestra = "sr = 8000\nksmps = 8\nnchnls = 1\n0dbfs = 1\ninstr 1\na1 oscili %s, 440\nout a1\nendin\n"
        self.write("a.orc", orchestra % ".5")
        self.start("a.vorn", "a.orc", "--wav", "a.wav")
        self.expect("1 events")
        sound = self.wait_for("a.wav")
        self.write("a.orc", orchestra % ".1")
        self.expect("1 events")
        self.wait_for("a.wav", other_than=sound)

    def test_a_change_of_other_files_is_none(self):
        self.write("a.vorn", SCORE % 3)
        self.start("a.vorn")
        self.expect("3 events")
        self.write("other.vorn", SCORE % 4)
        self.write("a.vorn", SCORE % 5)
        self.expect("5 events")
        self.assertTrue(self.lines.empty())

    def test_what_cannot_be_watched(self):
        for arguments in (["none.vorn"], ["-"], ["no/such/folder/a.vorn"]):
            done = self.vornkit("watch", *arguments)
            self.assertEqual(done.returncode, 2, arguments)
            self.assertNotEqual(done.stderr, "")

    def test_outputs_that_can_never_be_written(self):
        self.write("part.inc", SCORE % 2)
        self.write("a.vorn", "#include |part.inc|\n")
        self.write("b.svg", SCORE % 2)
        before = self.files()
        for arguments, said in ((["a.vorn", "--picture", "a.gif"], ".svg, .png or .html"),
                                (["b.svg", "--picture", "b.svg"], "is read for this"),
                                (["a.vorn", "--wav", "part.inc"], "is read for this"),
                                (["a.vorn", "--wav", "no/such.wav"], "cannot write no/such.wav"),
                                (["a.vorn", "--picture", "no/such.svg"], "cannot write no/such.svg"),
                                (["a.vorn", "--wav", "."], "is a folder"),
                                (["a.vorn", "--wav", "-"], "standard output"),
                                (["a.vorn", "--wav", "a.svg", "--picture", "a.svg"], "cannot be one file"),
                                (["a.vorn", "none.orc", "--wav", "a.wav"], "cannot read the orchestra")):
            done = self.vornkit("watch", *arguments, timeout=PATIENCE)
            self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)
            self.assertIn(said, done.stderr)
        self.assertEqual(self.files(), before)

    def test_a_missing_program_is_told_at_the_start(self):
        self.write("a.vorn", SCORE % 3)
        for arguments, package in ((["--wav", "a.wav"], "csound"), (["--picture", "a.png"], "librsvg2-bin")):
            done = self.vornkit("watch", "a.vorn", *arguments, env={**os.environ, "PATH": "/nowhere"},
                                timeout=PATIENCE)
            self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)
            self.assertIn(f"apt install {package})", done.stderr)

    def test_every_signal_that_ends_it_ends_it_well(self):
        self.write("a.vorn", SCORE % 3)
        for number in (signal.SIGTERM, signal.SIGHUP):
            watch = self.start("a.vorn")
            self.expect("3 events")
            watch.send_signal(number)
            self.assertEqual(watch.wait(PATIENCE), 0)


if __name__ == "__main__":
    unittest.main()
