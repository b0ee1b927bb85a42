"""vornkit vary: variants, the page, kept scores, restarts, failures, and the workflow."""
import html
import json
import os
import pathlib
import pty
import re
import shutil
import signal
import subprocess
import time
import unittest

from vornkit import VORNKIT, CommandTest

SCORE = """; a tune by chance
#const TEMPO 90
#define LEVEL #80#
te(~TEMPO)
rs( 3 )   ; the first
i1 = 5 0 8 {
p2 .5
p3 .9
p4 db $LEVEL
p5 no se(T 1 * [c4 d e g a])
}
"""
ORCHESTRA = """sr = 8000
ksmps = 100
nchnls = 1
0dbfs = 1
instr 1
out oscili(.2, cpsmidinn(60))
endin
"""
PLAIN = "i1 = 4 0 4 {\np2 1\np3 1\np4 60 64\n}\n"
ODD_NAME = "l'été \"1\" $HOME – ü.vorn"


class VaryTest(CommandTest):
    def vary(self, *arguments, status=0, **options):
        done = self.vornkit("vary", *arguments, **options)
        self.assertEqual(done.returncode, status, done.stderr)
        return done

    def read(self, name):
        return (self.folder / name).read_bytes()

    def record(self, number, folder="out"):
        return json.loads(self.read(f"{folder}/variants/{number}/record.json"))

    def whole(self, folder="out"):
        """The files of a folder of variants by name, hidden ones left out."""
        root = self.folder / folder
        return {str(path.relative_to(root)): path.read_bytes() for path in root.rglob("*")
                if path.is_file() and not path.name.startswith(".")}


class Variants(VaryTest):
    def test_each_is_what_vorn_writes_of_the_score_with_its_seed(self):
        self.write("piece.vorn", SCORE)
        done = self.vary("piece.vorn", "--count", "12", "-o", "out")
        self.assertEqual((done.stdout, done.stderr), ("", ""))
        vorn = pathlib.Path(os.environ["VORN_PROGRAM"]).resolve()
        scores = set()
        for seed in range(1, 13):
            self.write("seeded.vorn", SCORE.replace("rs( 3 )", f"rs({seed})"))
            self.assertEqual(self.run_program(vorn, "-s", "seeded.vorn", "seeded.sco").returncode, 0)
            score = self.read(f"out/variants/{seed}/score.sco")
            self.assertEqual(score, self.read("seeded.sco"))
            scores.add(score)
            self.assertTrue(self.read(f"out/variants/{seed}/picture.svg").startswith(b"<svg"))
        self.assertEqual(len(scores), 12)
        page = self.read("out/index.html").decode()
        self.assertEqual(page.count('<li class="tile">'), 12)
        self.assertIn("12 variants by seed", page)

    def test_a_constant_and_a_macro_go_through_their_range(self):
        self.write("piece.vorn", SCORE)
        self.vary("piece.vorn", "--set", "TEMPO=60..120", "--count", "3", "-o", "out")
        # Sixteen half beats: at 60 a minute the last ends after 7.5 s and nine tenths of half a second.
        self.assertEqual([self.record(n)["value"] for n in (1, 2, 3)], ["60", "90", "120"])
        self.assertAlmostEqual(self.record(1)["seconds"], 7.5 + .45, places=3)
        self.assertAlmostEqual(self.record(3)["seconds"], (7.5 + .45) / 2, places=3)
        self.vary("piece.vorn", "--set", "$LEVEL=60.0..80", "--count", "2", "-o", "levels")
        self.assertNotEqual(self.record(1, "levels")["score"], self.record(2, "levels")["score"])

    def test_the_same_bytes_with_one_process_and_with_three(self):
        self.write("piece.vorn", SCORE)
        self.vary("piece.vorn", "--jobs", "1", "--count", "7", "-o", "one")
        self.vary("piece.vorn", "--jobs", "3", "--count", "7", "-o", "three")
        self.assertEqual(self.whole("one"), self.whole("three"))

    def test_includes_resolve_as_for_the_score(self):
        self.write("parts/piece.vorn", "#include |seed.inc|\n" + SCORE.replace("rs( 3 )", ""))
        self.write("parts/seed.inc", "rs(4)\n")
        self.vary("parts/piece.vorn", "--count", "2", "-o", "out", status=1)
        self.vary("--relative", "parts/piece.vorn", "--count", "2", "-o", "out")
        self.assertNotEqual(self.record(1)["score"], self.record(2)["score"])

    def test_names_with_blanks_quotes_and_other_letters(self):
        self.write(ODD_NAME, SCORE)
        self.vary(ODD_NAME, "--count", "2", "-o", "ö 'ü' {1}")
        page = self.read("ö 'ü' {1}/index.html").decode()
        self.assertIn(f"<h1>{ODD_NAME}</h1>", html.unescape(page))
        # The command of the page, through a shell, keeps the score.
        command = html.unescape(page.split('data-command="')[1].split('"')[0]) + "2"
        words = self.run_program("sh", "-c", "printf '%s\\n' " + command).stdout.decode().splitlines()
        self.assertEqual(words, ["vornkit", "vary", ODD_NAME, "--keep", "2"])

    def test_standard_input(self):
        self.vary("-", "--count", "2", "-o", "out", input=SCORE.encode())
        self.assertNotEqual(self.record(1)["score"], self.record(2)["score"])

    def test_a_score_without_chance_is_told(self):
        self.write("plain.vorn", PLAIN)
        done = self.vary("plain.vorn", "--count", "3", "-o", "out")
        self.assertIn("all variants are alike: nothing in the score depends on the seed", done.stderr)
        self.assertEqual(self.read("out/index.html").decode().count("same as 1"), 2)


class Keeping(VaryTest):
    def test_kept_scores_differ_in_the_seed_alone(self):
        score = SCORE.replace("\n", "\r\n").encode() + b"; caf\xe9"
        self.write("piece.vorn", score)
        done = self.vary("piece.vorn", "--keep", "17,403")
        self.assertEqual(done.stdout, "piece-17.vorn\npiece-403.vorn\n")
        self.assertEqual(self.read("piece-17.vorn"), score.replace(b"rs( 3 )", b"rs( 17 )"))
        self.assertEqual(self.read("piece-403.vorn"), score.replace(b"rs( 3 )", b"rs( 403 )"))
        self.assertEqual(self.read("piece.vorn"), score)

    def test_they_go_beside_the_score_or_where_they_are_wanted(self):
        self.write("a/piece.vorn", PLAIN)
        self.vary("a/piece.vorn", "--keep", "2-3")
        self.vary("a/piece.vorn", "--keep", "4", "-o", "kept")
        self.assertEqual(self.files(), ["a/piece-2.vorn", "a/piece-3.vorn", "a/piece.vorn", "kept/piece-4.vorn"])
        self.assertEqual(self.read("kept/piece-4.vorn").decode(), "rs(4)\n" + PLAIN)

    def test_a_kept_constant_has_the_value_of_its_number(self):
        self.write("piece.vorn", SCORE)
        self.vary("piece.vorn", "--set", "TEMPO=60..120", "--count", "3", "--keep", "3")
        self.assertEqual(self.read("piece-3.vorn").decode(), SCORE.replace("TEMPO 90", "TEMPO 120"))
        self.assertIn("no such variant", self.vary("piece.vorn", "--set", "TEMPO=60..120", "--count", "3",
                                                   "--keep", "4", status=2).stderr)

    def test_an_included_seed_brings_the_include_into_the_score(self):
        self.write("piece.vorn", "#include |seed.inc|\n" + PLAIN)
        self.write("seed.inc", "; the seed\nrs(4)")
        self.vary("piece.vorn", "--keep", "9")
        self.assertEqual(self.read("piece-9.vorn").decode(), "; the seed\nrs(9)\n" + PLAIN)
        self.assertEqual(self.read("seed.inc"), b"; the seed\nrs(4)")

    def test_a_file_that_says_something_else_stays(self):
        self.write("piece.vorn", SCORE)
        self.vary("piece.vorn", "--keep", "17")
        self.vary("piece.vorn", "--keep", "17")  # the same once more
        self.write("piece-17.vorn", "edited since")
        done = self.vary("piece.vorn", "--keep", "17,18", status=2)
        self.assertIn("it stays as it is", done.stderr)
        self.assertEqual(self.read("piece-17.vorn"), b"edited since")
        self.assertTrue((self.folder / "piece-18.vorn").exists())


class Restarting(VaryTest):
    def stamps(self):
        return {name: (self.folder / "out" / name).stat().st_mtime_ns for name in self.whole()
                if name.startswith("variants")}

    def test_what_is_whole_is_not_made_again(self):
        self.write("piece.vorn", SCORE)
        self.vary("piece.vorn", "--count", "4", "-o", "out")
        before, bytes_before = self.stamps(), self.whole()
        (self.folder / "out/variants/3/picture.svg").unlink()
        self.vary("piece.vorn", "--count", "6", "-o", "out")
        after = self.stamps()
        self.assertEqual({n for n in before if before[n] != after[n]},
                         {f"variants/3/{file}" for file in ("score.sco", "picture.svg", "record.json")})
        self.assertEqual(len(after), 6 * 3)
        again = self.whole()
        self.assertTrue(all(again[name] == bytes_before[name] for name in before))

    def test_a_changed_score_starts_anew(self):
        self.write("piece.vorn", SCORE)
        self.vary("piece.vorn", "--count", "2", "-o", "out")
        before = self.record(2)
        self.write("piece.vorn", SCORE.replace("0 8 {", "0 6 {"))
        self.vary("piece.vorn", "--count", "2", "-o", "out")
        self.assertNotEqual(self.record(2)["key"], before["key"])
        self.assertEqual(self.record(2)["events"], 12)

    def test_a_folder_with_other_files_is_left_alone(self):
        self.write("piece.vorn", SCORE)
        self.write("out/letter.txt", "mine")
        self.assertIn("holds other files", self.vary("piece.vorn", "-o", "out", status=2).stderr)
        self.assertEqual(self.files(), ["out/letter.txt", "piece.vorn"])
        self.assertIn("holds other files", self.vary("piece.vorn", "-o", ".", status=2).stderr)

    def test_a_folder_of_another_score_is_left_alone(self):
        for name in ("piece.vorn", "other.vorn", "sub/piece.vorn"):
            self.write(name, SCORE)
        self.vary("piece.vorn", "--count", "2", "-o", "out")
        before = self.files()
        for score in ("other.vorn", "sub/piece.vorn"):
            said = self.vary(score, "--count", "3", "-o", "out", status=2).stderr
            self.assertIn('"out" holds the variants of another score', said)
        self.assertEqual(self.files(), before)
        self.vary("./sub/../piece.vorn", "--count", "3", "-o", "out")  # the same by another name

    def test_an_interruption_leaves_whole_files_and_says_how_to_go_on(self):
        self.write("piece.vorn", SCORE.replace("0 8 {", "0 -20000 {"))
        program = pathlib.Path(VORNKIT).resolve()
        command = [str(program), "vary", "piece.vorn", "--count", "2000", "--jobs", "2", "-o", "out"]
        with subprocess.Popen(command, cwd=self.folder, stderr=subprocess.PIPE) as process:
            while not (self.folder / "out/variants/3/record.json").exists():
                self.assertIsNone(process.poll())
                time.sleep(.01)
            process.send_signal(signal.SIGINT)
            said = process.stderr.read().decode()
            self.assertEqual(process.wait(), -signal.SIGINT)
        self.assertRegex(said, r"interrupted: \d+ of 2000 variants are whole; the same command goes on")
        hidden = [path for path in (self.folder / "out").rglob(".*") if path.is_file()]
        self.assertEqual(hidden, [])
        number = next(n for n in range(1, 2001) if (self.folder / f"out/variants/{n}/record.json").exists())
        stamp = (self.folder / f"out/variants/{number}/score.sco").stat().st_mtime_ns
        self.vary("piece.vorn", "--count", "2000", "--only", str(number), "-o", "out")
        self.assertEqual((self.folder / f"out/variants/{number}/score.sco").stat().st_mtime_ns, stamp)


class Failing(VaryTest):
    # A length of 0 leaves no room for P2: one of the values of the constant is refused.
    HALF = "#const LENGTH 4\ni1 = 4 0 ~LENGTH {\np2 1\np3 1\np4 60\n}\n"

    def test_one_that_is_refused_does_not_stop_the_others(self):
        self.write("piece.vorn", self.HALF)
        done = self.vary("piece.vorn", "--set", "LENGTH=0..3", "--count", "4", "-o", "out", status=1)
        self.assertIn("variant 1: piece.vorn:3:1: error: P2 is blank", done.stderr)
        self.assertEqual([self.record(n)["state"] for n in (1, 2, 3, 4)], ["refused", "well", "well", "well"])
        page = self.read("out/index.html").decode()
        self.assertEqual((page.count('<li class="tile">'), page.count('<li class="tile refused">')), (3, 1))
        # It is told again, though not tried again.
        again = self.vary("piece.vorn", "--set", "LENGTH=0..3", "--count", "4", "-o", "out", status=1)
        self.assertEqual(again.stderr, done.stderr)
        self.vary("piece.vorn", "--set", "LENGTH=0..3", "--count", "4", "--keep", "1", status=1)
        self.assertFalse((self.folder / "piece-1.vorn").exists())

    def test_a_score_without_rs_that_some_seeds_make_wrong_keeps_its_lines(self):
        # Some seeds draw a tempo below 0; the first, which a score without rs has, does not.
        self.write("piece.vorn", PLAIN + "te(~[? * -100 + 50])\n" + PLAIN)
        done = self.vary("piece.vorn", "--count", "6", "-o", "out", status=1)
        self.assertRegex(done.stderr, r"variant \d: piece\.vorn:6:1: error: Format te")
        self.assertNotIn("piece.vorn:7:", done.stderr)

    def test_a_score_with_a_mistake(self):
        self.write("bad.vorn", "i1 = 4 0 4 {\np2 1\np3 1\np4 nonsense\n}\n")
        self.assertIn("bad.vorn:4:", self.vary("bad.vorn", "-o", "out", status=1).stderr)
        self.assertEqual(self.files(), ["bad.vorn"])

    def test_wrong_use_is_told_with_status_two(self):
        self.write("piece.vorn", SCORE)
        self.write("macro.vorn", "#define START #rs(5) rd(.1)#\n$START\n" + PLAIN)
        out = ["-o", "out"]
        for arguments, said in ((["piece.vorn"], "say with -o"),
                                (["missing.vorn", *out], "missing.vorn"),
                                (["piece.vorn", "--count", "0", *out], "1 to 65535"),
                                (["piece.vorn", "--count", "100000", *out], "1 to 65535"),
                                (["piece.vorn", "--count", "many", *out], "--count"),
                                (["piece.vorn", "--count", "-1", *out], '"-1" is no number from 1 to 65535'),
                                (["piece.vorn", "--first", "-1", *out], '"-1" is no number from 0 to 65535'),
                                (["piece.vorn", "--count", "10", "--first", "65530", *out], "seeds go up to 65535"),
                                (["piece.vorn", "--jobs", "0", *out], "--jobs"),
                                (["piece.vorn", "--set", "TEMPO", *out], "NAME=from..to"),
                                (["piece.vorn", "--set", "TEMPO=a..b", *out], "is no number"),
                                (["piece.vorn", "--set", "TEMPI=1..2", "--count", "2", *out], "it has TEMPO, LEVEL"),
                                (["piece.vorn", "--set", "TEMPO=1..3", "--count", "9", *out], "only 3 whole numbers"),
                                (["piece.vorn", "--only", "99", *out], "no variant 99"),
                                (["piece.vorn", "--only", "x", *out], "write numbers"),
                                (["piece.vorn", "--keep", "1;2"], "write numbers"),
                                (["piece.vorn", "--keep", "65536"], "write numbers"),
                                (["piece.vorn", "--render", "no.orc", *out], "cannot read the orchestra"),
                                (["macro.vorn", *out], "comes out of a macro (macro.vorn:2)")):
            self.assertIn(said, self.vary(*arguments, status=2).stderr, arguments)
        self.assertNotIn("piece-1.vorn", self.files())

    def test_a_folder_that_cannot_be_made(self):
        self.write("piece.vorn", SCORE)
        self.assertIn("cannot make the folder", self.vary("piece.vorn", "-o", "piece.vorn/out", status=2).stderr)
        if os.geteuid() == 0:
            return  # nothing is refused to root
        self.folder.chmod(0o555)
        self.vary("piece.vorn", "-o", "out", status=2)
        self.folder.chmod(0o755)

    def test_a_full_disk_is_told_and_no_half_file_stays(self):
        self.write("piece.vorn", SCORE.replace("0 8 {", "0 -20000 {"))
        # No file may grow beyond 20,000 bytes: the scores do.
        program = pathlib.Path(VORNKIT).resolve()
        done = self.run_program("sh", "-c", 'trap "" XFSZ; ulimit -f 40; exec "$0" vary piece.vorn --count 2 -o out',
                                program)
        self.assertEqual(done.returncode, 2, done.stderr)
        self.assertEqual(done.stderr.decode().splitlines()[:2],
                         ["vornkit: variant 1: cannot write the score whole; the disk may be full",
                          "vornkit: variant 2: the same as variant 1"])
        self.assertEqual([name for name in self.files() if "variants" in name], [])

    def test_a_missing_csound_says_what_to_install(self):
        self.write("piece.vorn", SCORE)
        self.write("piece.orc", ORCHESTRA)
        done = self.vary("piece.vorn", "--render", "piece.orc", "-o", "out", status=2,
                         env={**os.environ, "PATH": "/nowhere"})
        self.assertIn("apt install csound", done.stderr)

    def test_a_lost_process_loses_its_variant_alone(self):
        self.write("piece.vorn", SCORE.replace("0 8 {", "0 -3000000 {"))
        program = pathlib.Path(VORNKIT).resolve()
        command = [str(program), "vary", "piece.vorn", "--count", "2", "--jobs", "1", "-o", "out"]
        surroundings = {**os.environ, "TMPDIR": str(self.folder)}  # what is killed leaves its temporary file
        with subprocess.Popen(command, cwd=self.folder, stderr=subprocess.PIPE, env=surroundings) as process:
            child = self.first_child(process)
            os.kill(child, signal.SIGKILL)
            said = process.stderr.read().decode()
            self.assertEqual(process.wait(), 2)
        self.assertIn("variant 1: the process that made it was lost: Killed", said)
        self.assertEqual(self.record(2)["state"], "well")

    def first_child(self, process):
        while not (self.folder / "out/variants/1").exists():
            time.sleep(.01)
        return int(pathlib.Path(f"/proc/{process.pid}/task/{process.pid}/children").read_text().split()[0])

    def test_progress_is_shown_on_a_terminal(self):
        self.write("piece.vorn", SCORE.replace("0 8 {", "0 -200000 {"))
        main, other = pty.openpty()
        program = pathlib.Path(VORNKIT).resolve()
        with subprocess.Popen([str(program), "vary", "piece.vorn", "--count", "500", "--jobs", "1", "-o", "out"],
                              cwd=self.folder, stderr=other) as process:
            os.close(other)
            shown = b""
            while b"of 500" not in shown:
                shown += os.read(main, 1000)
            process.send_signal(signal.SIGTERM)
            process.wait()
        os.close(main)
        self.assertRegex(shown, rb"making variants, \d+ of 500")


class Rendering(VaryTest):
    def setUp(self):
        super().setUp()
        self.write("piece.vorn", SCORE)
        self.write("piece.orc", ORCHESTRA)

    def test_an_orchestra_that_lacks_an_instrument(self):
        self.write("bad.orc", ORCHESTRA.replace("instr 1", "instr 9"))
        done = self.vary("piece.vorn", "--count", "2", "--render", "bad.orc", "-o", "out", status=1)
        self.assertRegex(done.stderr, r"variant 1: piece\.vorn:\d+:1: error: instr 1 is not defined in the orchestra")
        self.assertIn("vornkit: variant 2: the same as variant 1\n", done.stderr)
        self.assertEqual(self.record(2)["state"], "silent")

    def test_a_score_without_rs_keeps_its_lines(self):
        self.write("plain.vorn", PLAIN + PLAIN.replace("i1", "i7"))
        done = self.vary("plain.vorn", "--count", "2", "--render", "piece.orc", "-o", "out", status=1)
        self.assertIn("vornkit: variant 1: plain.vorn:6:1: error: instr 7 is not defined", done.stderr)
        self.assertTrue(self.record(2)["message"].startswith("plain.vorn:6:1: "))

    def test_all_that_csound_complains_of_is_told(self):
        self.write("piece.vorn", SCORE + "> f 7 0 16 99\ni8 = 3 0 -3 {\np2 1\np3 1 }\n")
        self.write("bad.orc", ORCHESTRA.replace("instr 1", "instr 9"))
        done = self.vary("piece.vorn", "--count", "1", "--render", "bad.orc", "-o", "out", status=1)
        told = done.stderr.splitlines()
        line = SCORE.count("\n")
        for words in (r"variant 1: piece\.vorn:\d+:1: error: instr 1 is not defined in the orchestra; ",
                      fr"variant 1: piece\.vorn:{line + 2}:1: error: instr 8 is not defined in the orchestra; 3 events",
                      fr"variant 1: piece\.vorn:{line + 1}:\d: error: ftable 7: "):
            self.assertTrue(any(re.match("vornkit: " + words, one) for one in told), done.stderr)
        self.assertEqual(self.record(1)["message"].count("\n") + 1, len(told))

    def test_each_has_its_sound(self):
        self.vary("piece.vorn", "--count", "2", "--render", "piece.orc", "-o", "out")
        for number in (1, 2):
            self.assertTrue(self.read(f"out/variants/{number}/sound.flac").startswith(b"fLaC"))
        self.assertIn('data-sound="variants/2/sound.flac"', self.read("out/index.html").decode())
        self.vary("piece.vorn", "--count", "2", "--render", "piece.orc", "-o", "again")
        self.assertEqual(self.whole("out"), self.whole("again"))

    def test_an_orchestra_that_csound_refuses(self):
        self.write("bad.orc", ORCHESTRA.replace("oscili(", "nonsense("))
        done = self.vary("piece.vorn", "--count", "2", "--render", "bad.orc", "-o", "out", status=1)
        self.assertIn("variant 1: Csound: error:", done.stderr)
        self.assertIn("variant 2: the same as variant 1", done.stderr)
        self.assertNotIn("\x1b", done.stderr)
        self.assertEqual(self.record(2)["state"], "silent")
        self.assertNotIn("variants/2/sound.flac", self.whole())
        self.assertIn("no sound", self.read("out/index.html").decode())


@unittest.skipIf(shutil.which("snakemake") is None, "Snakemake is not installed")
class Workflow(VaryTest):
    def test_it_makes_the_same_bytes(self):
        self.write(ODD_NAME, "#include |the 'levels'.inc|\n" + SCORE.replace("#define LEVEL #80#\n", ""))
        self.write("the 'levels'.inc", "#define LEVEL #80#\n")
        self.write("l'orchestre \"ü\".orc", ORCHESTRA)
        common = [ODD_NAME, "--count", "4", "--render", "l'orchestre \"ü\".orc"]
        folder = "va \"ri\" 'antes' ü"
        self.vary(*common, "-o", folder)
        wanted = self.whole(folder)
        shutil.rmtree(self.folder / folder)
        self.vary(*common, "-o", folder, "--snakemake")
        self.assertNotIn(f"{folder}/index.html", self.files())
        self.snakemake(folder)
        made = self.whole(folder)
        self.assertEqual({name for name in made if name not in wanted}, {"Snakefile", "config.json"})
        self.assertEqual({name: made[name] for name in wanted}, wanted)
        self.assertIn(b"Nothing to be done", self.snakemake(folder))

    def test_one_that_is_refused_does_not_stop_the_others(self):
        self.write("piece.vorn", Failing.HALF)
        self.vary("piece.vorn", "--set", "LENGTH=0..2", "--count", "3", "-o", "out", "--snakemake")
        self.snakemake("out")
        self.assertEqual([self.record(n)["state"] for n in (1, 2, 3)], ["refused", "well", "well"])
        self.assertIn("1 refused", self.read("out/index.html").decode())

    def test_what_it_cannot_be_told_is_refused(self):
        self.write("piece.vorn", SCORE)
        self.assertIn("pattern", self.vary("piece.vorn", "-o", "a{b}", "--snakemake", status=2).stderr)
        self.assertIn("a score that is a file", self.vary("-", "-o", "out", "--snakemake", status=2,
                                                          input=SCORE.encode()).stderr)

    def snakemake(self, folder):
        program = pathlib.Path(VORNKIT).resolve()
        environment = {**os.environ, "XDG_CACHE_HOME": str(self.folder / "cache")}
        done = self.run_program("snakemake", "--snakefile", f"{folder}/Snakefile", "--cores", "2",
                                "--config", f"vornkit={program}", env=environment, timeout=600)
        self.assertEqual(done.returncode, 0, done.stderr.decode(errors="replace"))
        return done.stdout + done.stderr


if __name__ == "__main__":
    unittest.main()
