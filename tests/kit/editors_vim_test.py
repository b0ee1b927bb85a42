"""The files for Vim, in the real Vim: what is coloured how, and what :make finds."""
import os
import pathlib
import subprocess
import unittest

import editor_scores
import vornkit

TOP = pathlib.Path(__file__).resolve().parents[2]
FILES = TOP / "editors/vim"
GROUPS = {
    "comment": {"vornLineComment", "vornComment", "vornCsoundComment", "vornSkipped"},
    "command": {"vornCommand"}, "number": {"vornNumber"}, "curve": {"vornCurve"}, "constant": {"vornConstant", "vornName"},
    "direct": {"vornDirect"}, "directive": {"vornDirective"}, "macro": {"vornMacro", "vornDefined"},
    "pfield": {"vornPfield"}, "instrument": {"vornHeader"}, "type": {"vornType", "vornOutput"},
    "note": {"vornNote"}, "rest": {"vornRest"}, "repeat": {"vornRepeat", "vornPrevious"},
    "generator": {"vornGenerator"}, "time": {"vornWhole"}, "distribution": {"vornDistribution"},
    "field": {"vornField"}, "include": {"vornInclude"},
}
GROUP_AT = "call add(g:out, synIDattr(synID({line}, {column}, 1), 'name'))"


class Vim(vornkit.CommandTest):
    def vim(self, name, commands):
        """The lines that the commands have added to g:out, with `name` opened as a user does."""
        start = ["set nocompatible nomore", f"set runtimepath^={FILES}", "filetype plugin on", "syntax on",
                 "let g:out = []", f"edit {name}"]
        script = "\n".join([*start, *commands, "call writefile(g:out, 'out.txt')", "qall!"])
        self.write("script.vim", script)
        environment = {**os.environ, "HOME": str(self.folder),
                       "PATH": os.path.dirname(os.path.abspath(vornkit.VORNKIT)) + ":" + os.environ["PATH"]}
        done = subprocess.run(["vim", "-u", "NONE", "-i", "NONE", "-es", "-V1", "-S", "script.vim"], cwd=self.folder,
                              env=environment, capture_output=True, stdin=subprocess.DEVNULL, timeout=120, check=False)
        out = self.folder / "out.txt"
        self.assertTrue(out.is_file(), done.stderr.decode(errors="replace"))
        return out.read_text().splitlines()

    def test_each_piece_has_its_group(self):
        self.write("score.vorn", editor_scores.SCORE)
        asked = [GROUP_AT.format(line=line, column=editor_scores.column(line, piece, which) + 1)
                 for line, piece, which, _ in editor_scores.PIECES]
        groups = self.vim("score.vorn", asked)
        self.assertEqual(len(groups), len(asked))
        for (line, piece, _, what), group in zip(editor_scores.PIECES, groups):
            self.assertIn(group, GROUPS[what], f"line {line}: {piece}")

    def test_every_group_is_coloured(self):
        self.write("score.vorn", editor_scores.SCORE)
        names = sorted(set.union(*GROUPS.values()))
        linked = self.vim("score.vorn", [f"call add(g:out, synIDattr(synIDtrans(hlID('{name}')), 'name'))"
                                         for name in names])
        self.assertEqual([name for name, link in zip(names, linked) if link == name], [])

    def test_no_example_ends_within_something(self):
        """A line that is added at the end is coloured as at the beginning of a score."""
        for path in sorted((TOP / "examples").glob("*/*.vorn")):
            self.write(path.name, path.read_text() + "te(60)\n")
            groups = self.vim(path.name, [GROUP_AT.format(line="line('$')", column=column) for column in (1, 4)])
            self.assertEqual(groups, ["vornCommand", "vornNumber"], path.name)

    def test_make_finds_each_mistake(self):
        self.write("bad.vorn", editor_scores.BAD)
        shown = "{_, e -> join([bufname(e.bufnr), e.lnum, e.col, e.type, e.text], ':')}"
        found = self.vim("bad.vorn", ["silent make!", f"call extend(g:out, map(getqflist(), {shown}))"])
        told = self.vornkit("check", "bad.vorn").stdout.splitlines()
        places = [":".join(line.split(":")[:3]) for line in told if line.startswith("bad.vorn:")]
        self.assertEqual([":".join(line.split(":")[:3]) for line in found], places)
        self.assertEqual({line.split(":")[3] for line in found}, {"e", "w", "n"})
        self.assertIn("bad.vorn:9:4:e:Data is out of bounds. [E27]", found)

    def test_what_a_word_means_is_asked_of_vornkit(self):
        self.write("score.vorn", editor_scores.SCORE)
        options = ["&filetype", "&keywordprg", "&commentstring", "&makeprg"]
        found = self.vim("score.vorn", [f"call add(g:out, {option})" for option in options])
        self.assertEqual(found, ["vorn", "vornkit words", "; %s", "vornkit check %:S"])


if __name__ == "__main__":
    unittest.main()
