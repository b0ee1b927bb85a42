"""vornkit as a whole: help, wrong use, an output that takes nothing."""
import os
import pathlib
import pty
import re
import signal
import subprocess
import time
import unittest

from vornkit import VORNKIT, CommandTest, shown_on

ROOT = pathlib.Path(__file__).resolve().parents[2]
SUBCOMMANDS = ("check", "explain", "events", "midi", "picture", "play", "watch", "vary", "new")


class Vornkit(CommandTest):
    def test_help_begins_with_an_example(self):
        for arguments in ((), *((name,) for name in SUBCOMMANDS)):
            done = self.vornkit(*arguments, "--help")
            self.assertEqual((done.returncode, done.stderr), (0, ""), arguments)
            example = done.stdout.find(" ".join(("vornkit", *arguments)))
            self.assertIn("Example", done.stdout)
            self.assertTrue(0 <= example < done.stdout.find("Usage:"), arguments)

    def test_the_version_is_that_of_vorn(self):
        done = self.vornkit("--version")
        wanted = re.search(r"project\(vorn VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())[1]
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, f"vornkit {wanted}\n", ""))

    def test_wrong_use_has_status_2_and_says_what_is_wrong(self):
        for arguments in ((), ("chekc",), ("--speed",), ("check",), ("explain", "--speed")):
            done = self.vornkit(*arguments)
            self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)
            self.assertNotEqual(done.stderr, "", arguments)

    def test_a_misspelt_command_is_named(self):
        self.assertEqual(self.vornkit("chek", "x").stderr, 'vornkit: there is no command "chek", did you mean "check"?\n')
        self.assertEqual(self.vornkit("compose").stderr, 'vornkit: there is no command "compose"; vornkit --help lists them\n')

    def test_a_missing_score_is_told_alike_by_all(self):
        self.write("folder/x", "")
        for name, reason in (("none.vorn", "No such file or directory"), ("folder", "Is a directory")):
            for arguments in (("check",), ("events",), ("midi", "-", "x.mid"), ("picture", "-", "-o", "x.svg"),
                              ("play", "-", "--wav", "x.wav"), ("vary", "-", "-o", "out"), ("watch",)):
                command = [name if one == "-" else one for one in arguments]
                done = self.vornkit(*command, *([] if name in command else [name]))
                self.assertEqual((done.returncode, done.stdout), (2, ""), command)
                self.assertEqual(done.stderr, f'vornkit: cannot read "{name}": {reason}\n', command)
        self.assertEqual(self.files(), ["folder/x"])

    def test_the_file_of_nothing_is_an_empty_score(self):
        for arguments in (("check", "/dev/null"), ("events", "/dev/null"), ("picture", "/dev/null", "-o", "x.svg"),
                          ("midi", "--quiet", "/dev/null", "x.mid")):
            done = self.vornkit(*arguments)
            self.assertEqual(done.returncode, 0, arguments)
            self.assertNotIn("filename", done.stdout + done.stderr, arguments)
        self.assertEqual(self.files(), ["x.mid", "x.svg"])

    def test_a_score_may_come_through_a_pipe(self):
        done = self.run_program("bash", "-c", 'cat <<<"oops" | "$0" check /dev/stdin', pathlib.Path(VORNKIT).resolve())
        self.assertEqual((done.returncode, done.stderr), (1, b""))
        self.assertIn(b"/dev/stdin:1:1: error:", done.stdout)

    def test_a_file_that_may_not_grow_is_told(self):
        self.write("long.vorn", "i1 = 4 0 -100000 {\np2 1\np3 1\np4 ra(T 1 [60 72])\n}\n")
        for arguments in (("events", "long.vorn", "-o", "out.json"), ("midi", "--quiet", "long.vorn", "out.json")):
            done = self.run_program("sh", "-c", 'ulimit -f 64; exec "$0" "$@"', pathlib.Path(VORNKIT).resolve(), *arguments)
            self.assertEqual((done.returncode, done.stderr), (2, b"vornkit: cannot write out.json: File too large\n"))
            self.assertEqual(self.files(), ["long.vorn"])

    def on_a_terminal(self, *arguments, **surroundings):
        """Standard error of a command that has a terminal there."""
        above, below = pty.openpty()
        environment = {**os.environ, "TERM": "xterm", **surroundings}
        environment.pop("NO_COLOR", None)
        done = subprocess.run([pathlib.Path(VORNKIT).resolve(), *arguments], cwd=self.folder, stderr=below,
                              stdout=subprocess.DEVNULL, env=environment, check=False, timeout=120)
        os.close(below)
        self.addCleanup(os.close, above)
        return done.returncode, shown_on(above)

    def test_a_terminal_gets_no_control_characters_of_names(self):
        self.assertEqual(self.on_a_terminal("events", "a\x1b[31mb"),
                         (2, b'vornkit: cannot read "a\\x1B[31mb": No such file or directory\r\n'))
        self.write("a\x1bb", "oops\n")
        self.assertIn(b"a\\x1Bb:1:1:", self.on_a_terminal("events", "a\x1bb", "-o", "x.csv")[1])

    def test_colors_only_on_a_terminal_that_knows_them(self):
        self.write("wrong.vorn", "oops\n")
        self.assertIn(b"\x1b[1;31m", self.on_a_terminal("events", "wrong.vorn", "-o", "x.csv")[1])
        self.assertNotIn(b"\x1b", self.on_a_terminal("events", "wrong.vorn", "-o", "x.csv", TERM="dumb")[1])

    def test_an_output_that_takes_nothing_is_told(self):
        self.write("wrong.vorn", "oops\n")
        self.write("well.vorn", "i1 = 5 0 -1 {\np2 1\np3 1\np4 100\np5 60 }\n")
        for arguments in (("explain",), ("explain", "E27", "--format", "json"), ("check", "wrong.vorn"), ("--help",),
                          ("events", "well.vorn", "-o", "-"), ("midi", "well.vorn", "-"),
                          ("picture", "well.vorn", "-o", "-")):
            with open("/dev/full", "wb") as full:
                done = subprocess.run([pathlib.Path(VORNKIT).resolve(), *arguments], cwd=self.folder, stdout=full,
                                      stderr=subprocess.PIPE, check=False, timeout=120)
            self.assertEqual(done.returncode, 2, arguments)
            self.assertIn(b"cannot write all to standard output", done.stderr, arguments)

    def test_an_interrupted_run_leaves_no_temporary_file(self):
        self.write("long.vorn", "i1 = 4 0 -10000000 {\np2 .001\np3 1\np4 ra(T 1 [60 72])\n}\n")
        temporary = self.folder / "tmp"
        temporary.mkdir()
        outputs = {name: self.write(name, "old") for name in ("long.mid", "long.csv", "long.svg")}
        for arguments in (("check", "long.vorn"), ("midi", "long.vorn", "long.mid"),
                          ("events", "long.vorn", "-o", "long.csv"), ("picture", "long.vorn", "-o", "long.svg")):
            running = subprocess.Popen([pathlib.Path(VORNKIT).resolve(), *arguments], cwd=self.folder,
                                       env={**os.environ, "TMPDIR": str(temporary)}, stderr=subprocess.DEVNULL)
            while running.poll() is None and not any(temporary.iterdir()):
                time.sleep(0.01)
            running.send_signal(signal.SIGINT)
            self.assertEqual(running.wait(60), -signal.SIGINT, arguments)
            self.assertEqual(list(temporary.iterdir()), [], arguments)
        self.assertEqual([path.read_text() for path in outputs.values()], ["old"] * 3)
        self.assertEqual(self.files(), sorted(["long.vorn", *outputs]))

    def test_an_interruption_while_the_output_is_written_keeps_the_old_one(self):
        self.write("long.vorn", "i1 = 4 0 -400000 {\np2 .001\np3 1\np4 ra(T 1 [60 72])\n}\n")
        old = self.write("long.json", "old")
        with subprocess.Popen([pathlib.Path(VORNKIT).resolve(), "events", "long.vorn", "-o", "long.json"],
                              cwd=self.folder) as writing:
            while writing.poll() is None and len(self.files()) == 2:
                time.sleep(0.001)
            writing.send_signal(signal.SIGTERM)
        self.assertEqual(writing.returncode, -signal.SIGTERM)
        self.assertEqual((self.files(), old.read_text()), (["long.json", "long.vorn"], "old"))


if __name__ == "__main__":
    unittest.main()
