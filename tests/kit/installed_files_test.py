"""What is installed beside the programs is found by shells and editors where it is put."""
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

import vornkit

BUILD = pathlib.Path(vornkit.VORNKIT).resolve().parent


class InstalledFiles(vornkit.CommandTest):
    @classmethod
    def setUpClass(cls):
        cls.prefix = tempfile.TemporaryDirectory(prefix="vorn-installed-")
        cls.addClassCleanup(cls.prefix.cleanup)
        subprocess.run(["cmake", "--install", BUILD, "--prefix", cls.prefix.name], check=True, capture_output=True)
        cls.share = pathlib.Path(cls.prefix.name) / "share"

    def run_installed(self, *command):
        environment = {**os.environ, "HOME": str(self.folder), "XDG_DATA_DIRS": str(self.share),
                       "PATH": f"{self.prefix.name}/bin:{os.environ['PATH']}"}
        done = self.run_program(*command, env=environment, stdin=subprocess.DEVNULL)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        return done.stdout.decode()

    def test_every_page_that_another_refers_to_is_there(self):
        pages = {f"{path.stem} {path.suffix[1:]}": path for path in (self.share / "man").rglob("*.[15]")}
        self.assertIn("vorn 5", pages)
        for path in pages.values():
            self.assertEqual(path.parent.name, "man" + path.suffix[1:])
            for name in re.findall(r"^\.Xr (\S+ \d)", path.read_text(), re.M):
                self.assertIn(name, pages, path.name)

    def test_documents_hold_nothing_that_only_scripts_read(self):
        names = {path.name for path in (self.share / "doc").rglob("*") if path.is_file()}
        self.assertIn("drums.vorn", names)
        self.assertEqual([name for name in names if name.endswith((".picture", ".pyc", ".orig"))], [])

    def test_bash_loads_the_completions(self):
        loading = (". /usr/share/bash-completion/bash_completion; "
                   "for name in vorn vornkit; do _completion_loader $name; complete -p $name; done")
        self.assertEqual(self.run_installed("bash", "-c", loading),
                         "complete -F _vorn vorn\ncomplete -F _vornkit vornkit\n")

    def test_fish_loads_the_completions(self):
        self.assertEqual(self.run_installed("fish", "-c", "complete -C 'vornkit picture --theme '"), "dark\tLight or dark\nlight\tLight or dark\n")

    def test_zsh_finds_the_completions(self):
        loading = (f"fpath=({self.share}/zsh/site-functions $fpath); autoload -Uz compinit; compinit -u -d dump; "
                   "print $_comps[vorn] $_comps[vornkit]")
        self.assertEqual(self.run_installed("zsh", "-f", "-c", loading), "_vorn _vornkit\n")

    def test_vim_finds_its_files(self):
        self.write("piece.vorn", "te(60)\n")
        steps = [f"set runtimepath^={self.share}/vim/vimfiles", "filetype plugin on", "syntax on", "edit piece.vorn",
                 "call writefile([&filetype, &makeprg, synIDattr(synID(1, 1, 1), 'name')], 'out')", "qall!"]
        options = [part for step in steps for part in ("-c", step)]
        self.run_installed("vim", "-u", "NONE", "-i", "NONE", "-es", *options)
        self.assertEqual((self.folder / "out").read_text().splitlines(), ["vorn", "vornkit check %:S", "vornCommand"])

    def test_emacs_finds_its_files(self):
        self.write("piece.vorn", "te(60)\n")
        told = self.run_installed("emacs", "-Q", "--batch", "-L", self.share / "emacs/site-lisp", "-l", "vorn-mode",
                                  "piece.vorn", "--eval", "(princ major-mode)")
        self.assertEqual(told, "vorn-mode")

    def test_vs_code_has_a_whole_extension(self):
        files = sorted(str(path.relative_to(self.share / "vorn/vscode"))
                       for path in (self.share / "vorn/vscode").rglob("*") if path.is_file())
        self.assertEqual(files, ["language-configuration.json", "package.json", "snippets/vorn.json",
                                 "syntaxes/vorn.tmLanguage.json", "tasks.json"])


if __name__ == "__main__":
    unittest.main()
