"""The commands of editors/README.md install what they say: followed word for word in an empty home, they make a
score coloured and checked in the real Vim and Emacs, and lay the files for VS Code where it looks; and so do those
that the page has where it is installed."""
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from vornkit import CommandTest, VORNKIT

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "support"))
import pages  # noqa: E402

COMMANDS = re.compile(r"^    (\S.*)$", re.MULTILINE)


class EditorsPage(CommandTest):
    def programs(self):
        (self.folder / "editors").symlink_to(ROOT / "editors")
        return pathlib.Path(VORNKIT).resolve().parent

    def page(self):
        return pages.COMMENT.sub("", (ROOT / "editors" / "README.md").read_text())

    def setUp(self):
        super().setUp()
        (self.folder / "home").mkdir()
        path = [str(self.programs()), os.environ["PATH"]]
        self.environment = dict(os.environ, HOME=str(self.folder / "home"), PATH=os.pathsep.join(path))
        self.write("piece.vorn", "te(60)\ni1 = 3 0 1 {\np2 nonsense\n")
        commands = COMMANDS.findall(self.page())
        self.assertGreater(len(commands), 8)
        done = self.run_program("bash", "-e", "-c", "\n".join(commands), env=self.environment)
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_vim(self):
        steps = ["edit piece.vorn", "silent make!", "let name = synIDattr(synID(1, 1, 1), 'name')",
                 "call writefile([&filetype, name, getqflist()[0].lnum], 'out')", "qall!"]
        options = [part for step in steps for part in ("-c", step)]
        self.run_program("vim", "-es", "-u", self.folder / "home" / ".vimrc", *options, env=self.environment)
        self.assertEqual((self.folder / "out").read_text().split(), ["vorn", "vornCommand", "3"])

    def test_emacs(self):
        done = self.run_program("emacs", "--batch", "-l", self.folder / "home" / ".emacs.d" / "init.el", "piece.vorn",
                                "--eval", "(princ (list major-mode flymake-mode))", env=self.environment)
        self.assertEqual(done.stdout.decode(), "(vorn-mode t)", done.stderr)

    def test_vs_code(self):
        self.assertTrue((self.folder / "home" / ".vscode" / "extensions" / "vorn" / "package.json").is_file())
        self.assertTrue((self.folder / ".vscode" / "tasks.json").is_file())


class InstalledEditorsPage(EditorsPage):
    @classmethod
    def setUpClass(cls):
        prefix = tempfile.TemporaryDirectory(prefix="vorn-installed-")
        cls.addClassCleanup(prefix.cleanup)
        cls.prefix = pathlib.Path(prefix.name)
        build = pathlib.Path(VORNKIT).resolve().parent
        subprocess.run(["cmake", "--install", build, "--prefix", cls.prefix], check=True, capture_output=True)

    def programs(self):
        return self.prefix / "bin"

    def page(self):
        return (self.prefix / "share" / "doc" / "vorn" / "editors" / "README.md").read_text()


if __name__ == "__main__":
    unittest.main()
