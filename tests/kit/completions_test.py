"""Completions in the real shells: what they offer is what the commands have."""
import os
import pathlib
import pty
import select
import signal
import subprocess
import tempfile
import time
import unittest

import options
import vornkit

TOP = pathlib.Path(__file__).resolve().parents[2]
COMPLETIONS = TOP / "completions"
PROGRAMS = os.path.dirname(os.path.abspath(vornkit.VORNKIT))
FILES = ["a.vorn", "b.orc", "c.txt", "d.mid", "e.sco", "f.svg", "sub/g.vorn"]


class Bash:
    NAME = "bash"
    START = ["bash", "--norc", "--noprofile", "-i"]
    SETTINGS = (f". /usr/share/bash-completion/bash_completion; . {COMPLETIONS}/vornkit.bash; "
                "vornkit() { printf 'run:%s;\\n' \"$*\"; }\n")

    @staticmethod
    def command(line):
        words = line.split(" ")
        return ["bash", str(TOP / "tests/kit/bash_candidates.bash"), str(COMPLETIONS), *words]


class Zsh:
    NAME = "zsh"
    START = ["zsh", "-f", "-i"]
    SETTINGS = (f"fpath=({COMPLETIONS} $fpath); autoload -Uz compinit; compinit -C -u -d $HOME/dump; "
                "vornkit() { print -r -- \"run:$*;\"; }\n")

    @staticmethod
    def command(line):
        return ["zsh", "-f", str(TOP / "tests/kit/zsh_candidates.zsh"), str(COMPLETIONS), line]


class Fish:
    NAME = "fish"
    START = ["fish", "--no-config", "-i"]
    SETTINGS = f"source {COMPLETIONS}/vornkit.fish; function vornkit; echo \"run:$argv;\"; end\n"

    @staticmethod
    def command(line):
        sources = "; ".join(f"source {path}" for path in COMPLETIONS.glob("*.fish"))
        return ["fish", "--no-config", "-c", f"{sources}; complete -C '{line}' | string replace -r '\\t.*' ''"]


SHELLS = [Bash, Zsh, Fish]


class Typist:
    """An interactive shell on a terminal."""

    def __init__(self, shell, folder, environment):
        self._shell, self._terminal = pty.fork()
        if self._shell == 0:
            os.chdir(folder)
            os.execvpe(shell.START[0], shell.START, environment)

    def type(self, text):
        os.write(self._terminal, text.encode())

    def read_until(self, wanted, seconds=30):
        text = b""
        end = time.monotonic() + seconds
        while wanted.encode() not in text and time.monotonic() < end:
            if select.select([self._terminal], [], [], 0.2)[0]:
                text += os.read(self._terminal, 65536)
        return text.decode(errors="replace")

    def leave(self):
        os.kill(self._shell, signal.SIGKILL)
        os.waitpid(self._shell, 0)
        os.close(self._terminal)


class Completions(vornkit.CommandTest):
    def setUp(self):
        super().setUp()
        for name in FILES:
            self.write(name, "")
        home = tempfile.TemporaryDirectory(prefix="vornkit-home-")
        self.addCleanup(home.cleanup)
        self.environment = {**os.environ, "PATH": PROGRAMS + ":" + os.environ["PATH"], "HOME": home.name,
                            "TERM": "xterm"}

    def offered(self, shell, line):
        done = subprocess.run(shell.command(line), cwd=self.folder, env=self.environment, capture_output=True,
                              text=True, timeout=120, check=False)
        self.assertEqual(done.stderr, "", f"{shell.NAME}: {line}")
        return sorted({word.rstrip("/ ") for word in done.stdout.splitlines() if word.strip()})

    def for_each_shell(self, line, wanted, shells=SHELLS):
        for shell in shells:
            with self.subTest(shell=shell.NAME, line=line):
                self.assertEqual(self.offered(shell, line), sorted(wanted))

    def test_subcommands_are_those_of_the_help(self):
        for shell in SHELLS:
            offered = self.offered(shell, "vornkit ")
            self.assertEqual([word for word in offered if word[:2] != "--"], sorted(options.subcommands()), shell.NAME)

    def test_options_are_those_of_the_help(self):
        for subcommand in options.subcommands():
            wanted = [name for name in options.of_subcommand(subcommand) if name.startswith("--")]
            self.for_each_shell(f"vornkit {subcommand} --", wanted)

    def test_options_of_vorn_are_those_that_it_prints(self):
        self.for_each_shell("vorn -", list(options.of_vorn()))

    def test_choices_are_those_of_the_help(self):
        for subcommand in options.subcommands():
            for name, option in options.of_subcommand(subcommand).items():
                if option.choices and name.startswith("--"):
                    self.for_each_shell(f"vornkit {subcommand} {name} ", option.choices)

    def test_an_option_that_takes_a_value_is_offered_no_option_for_it(self):
        """Else the next word would be taken for the value."""
        for subcommand in options.subcommands():
            for name, option in options.of_subcommand(subcommand).items():
                if option.takes_value and name.startswith("--"):
                    offered = self.offered(Bash, f"vornkit {subcommand} {name} ")
                    self.assertEqual([word for word in offered if word.startswith("-")], [], name)
                    self.assertNotEqual(offered[:1], ["a.vorn"], name)

    def test_codes_and_words_come_from_the_program(self):
        codes = [line.split()[0] for line in self.vornkit("explain").stdout.splitlines()]
        self.for_each_shell("vornkit explain E11", [code for code in codes if code.startswith("E11")])
        self.for_each_shell("vornkit check --ignore L1", [code for code in codes if code.startswith("L1")])
        self.for_each_shell("vornkit words r", ["r", "ra", "rd", "re", "rh", "rs", "rw"])

    def test_files_are_those_that_fit(self):
        self.for_each_shell("vornkit check a", ["a.vorn"])
        self.for_each_shell("vornkit check ", ["a.vorn", "sub"])
        self.for_each_shell("vornkit play a.vorn b", ["b.orc"])
        self.for_each_shell("vornkit watch --picture f", ["f.svg"])
        self.for_each_shell("vornkit vary --output s", ["sub"])
        self.for_each_shell("vorn a", ["a.vorn"])
        self.for_each_shell("vorn -s a.vorn e", ["e.sco"])
        self.for_each_shell("vorn -l c", ["c.txt"])
        self.for_each_shell("vornkit picture --pitch n", ["none"])
        self.for_each_shell("vornkit midi --pitch p1", [f"p1{n}" for n in range(7)])

    def test_the_key_completes_in_a_terminal(self):
        for shell in SHELLS:
            with self.subTest(shell=shell.NAME):
                typist = Typist(shell, self.folder, self.environment)
                self.addCleanup(typist.leave)
                typist.type(shell.SETTINGS + "echo rea''dy\n")
                typist.read_until("ready")
                typist.type("vornkit wat\t")
                typist.read_until("watch")
                typist.type("--pic\t")
                typist.read_until("picture")
                typist.type("\n")
                self.assertIn("run:watch --picture;", typist.read_until("run:watch --picture;"))


if __name__ == "__main__":
    unittest.main()
