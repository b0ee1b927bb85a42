"""The Emacs mode, in the real Emacs: what is coloured how, and which mistakes Flymake tells."""
import json
import os
import pathlib
import shutil
import subprocess
import unittest

import editor_scores
import vornkit

TOP = pathlib.Path(__file__).resolve().parents[2]
FILES = TOP / "editors/emacs"
FACES = {
    "comment": {"comment", "comment-delimiter"}, "command": {"builtin"}, "number": {"default", "number"},
    "curve": {"constant"}, "constant": {"variable-name"}, "direct": {"string", "keyword"},
    "directive": {"preprocessor"}, "macro": {"function-name"}, "pfield": {"keyword"}, "instrument": {"type"},
    "type": {"type"}, "note": {"string"}, "rest": {"comment"}, "repeat": {"builtin"},
    "generator": {"function-name"}, "time": {"constant"}, "distribution": {"constant"},
    "field": {"variable-name"}, "include": {"string"},
}
TOLD = """
(find-file "bad.vorn")
(setq done nil)
(vorn-flymake (lambda (found &rest _) (setq done (or found t))))
(while (not done) (accept-process-output nil 0.05))
(dolist (one done)
  (goto-char (flymake-diagnostic-beg one))
  (princ (format "%s %d:%d-%d %s\\n" (flymake-diagnostic-type one) (line-number-at-pos) (1+ (current-column))
                 (+ 1 (current-column) (- (flymake-diagnostic-end one) (flymake-diagnostic-beg one)))
                 (car (split-string (flymake-diagnostic-text one) "\\n")))))
"""


class Emacs(vornkit.CommandTest):
    def emacs(self, lisp, folder=FILES):
        """What the Lisp prints, with the mode loaded as a user's start-up file would."""
        self.write("script.el", f'(add-to-list \'load-path "{folder}")\n(require \'vorn-mode)\n(require \'flymake)\n{lisp}')
        environment = {**os.environ, "HOME": str(self.folder),
                       "PATH": os.path.dirname(os.path.abspath(vornkit.VORNKIT)) + ":" + os.environ["PATH"]}
        done = self.run_program("emacs", "-Q", "--batch", "-l", "script.el", env=environment)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        return done.stdout.decode().splitlines()

    def faces(self, pieces):
        places = " ".join(f"({line} {editor_scores.column(line, piece, which)})" for line, piece, which, _ in pieces)
        return self.emacs(f"""
(find-file "score.vorn")
(font-lock-ensure)
(dolist (place '({places}))
  (goto-char (point-min))
  (forward-line (1- (car place)))
  (princ (format "%s\\n" (get-text-property (+ (point) (cadr place)) 'face))))""")

    def test_each_piece_has_its_face(self):
        self.write("score.vorn", editor_scores.SCORE)
        found = self.faces(editor_scores.PIECES)
        self.assertEqual(len(found), len(editor_scores.PIECES))
        for (line, piece, _, what), face in zip(editor_scores.PIECES, found):
            short = face.replace("font-lock-", "").replace("-face", "")
            self.assertIn(short, FACES[what], f"line {line}: {piece}")

    def test_no_example_ends_within_something(self):
        """A line that is added at the end is coloured as at the beginning of a score."""
        paths = sorted((TOP / "examples").glob("*/*.vorn"))
        for path in paths:
            self.write(path.name, path.read_text() + "> te(60)\n")
        names = " ".join(f'"{path.name}"' for path in paths)
        found = self.emacs(f"""
(dolist (name '({names}))
  (find-file name)
  (font-lock-ensure)
  (goto-char (point-max))
  (forward-line -1)
  (princ (format "%s %s %s\\n" name (get-text-property (point) 'face) (get-text-property (+ 2 (point)) 'face))))""")
        self.assertEqual(found, [f"{path.name} font-lock-keyword-face font-lock-string-face" for path in paths])

    def test_flymake_tells_what_vornkit_tells(self):
        self.write("bad.vorn", editor_scores.BAD)
        report = json.loads(self.vornkit("check", "--format", "json", "bad.vorn").stdout)
        wanted = []
        for one in report["scores"][0]["diagnostics"]:
            place, level = one["place"], {"error": ":error", "warning": ":warning", "lint": ":note"}[one["level"]]
            end = max(place["end_column"], place["column"] + 1)
            wanted.append(f"{level} {place['line']}:{place['column']}-{end} {one['text']} [{one['code']}]")
        self.assertGreater(len(wanted), 2)
        self.assertEqual(self.emacs(TOLD), wanted)

    def test_flymake_tells_of_a_mistake_in_an_include(self):
        self.write("part.vorn", "te(0)\n")
        self.write("bad.vorn", "#include |part.vorn|\n")
        (told,) = self.emacs(TOLD)
        self.assertRegex(told, r"^:error 1:1-2 part.vorn:1: .* \[E\d+\]$")

    def test_flymake_has_nothing_to_say_of_a_good_score(self):
        self.write("bad.vorn", "i1 = 3 0 4 {\np2 1\np3 1 }\n")
        self.assertEqual(self.emacs(TOLD.replace("(or found t)", "(or found '())").replace(
            "(while (not done)", "(while (process-live-p vorn--process)")), [])

    def test_words_are_told_and_completed(self):
        self.write("score.vorn", "i1 = 4 0 4 {\np4 ra(T 1 [60 72])\n}\n")
        told, around, words = self.emacs("""
(find-file "score.vorn")
(search-forward "ra")
(backward-char)
(princ (format "%s\\n" (vorn-eldoc)))
(search-forward "60")
(princ (format "%s\\n" (vorn-eldoc)))
(princ (format "%s\\n" (member "ra" (nth 2 (vorn-completion-at-point)))))""")
        (random,) = [word for word in json.loads(self.vornkit("words", "--format", "json", "ra").stdout)["words"]]
        self.assertEqual(told, f"{random['signature']}: {random['text']}")
        self.assertEqual(around, told)
        self.assertTrue(words.startswith("(ra "), words)

    def test_a_line_becomes_a_comment_and_a_new_one_keeps_its_indentation(self):
        self.write("score.vorn", "te(60)\n")
        told = self.emacs("""
(find-file "score.vorn")
(comment-line 1)
(goto-char (point-max))
(electric-indent-mode 1)
(insert "  p2 1")
(execute-kbd-macro (kbd "RET"))
(insert "p3 1")
(princ (buffer-string))""")
        self.assertEqual(told, ["; te(60)", "  p2 1", "  p3 1"])

    def test_compiles_without_a_warning(self):
        folder = self.folder / "mode"
        shutil.copytree(FILES, folder)
        done = self.run_program("emacs", "-Q", "--batch", "-L", folder, "--eval", "(setq byte-compile-error-on-warn t)",
                                "-f", "batch-byte-compile", folder / "vorn-words.el", folder / "vorn-mode.el")
        self.assertEqual((done.returncode, done.stderr.decode()), (0, ""))


if __name__ == "__main__":
    unittest.main()
