"""The commands of the tutorial and the recipes do what their page says: each block marked
"sh" is run, line by line, where the scores of the page lie, and what a block marked
"text" behind it shows is what they print. Instead of playing, sounds are written."""
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

DOCS = ROOT / "docs"
FOLDERS = {page: DOCS / "tutorial" / "scores" for page in (DOCS / "tutorial").glob("*.md")}
FOLDERS |= {page: DOCS / "recipes" for page in DOCS.glob("recipes.md")}
PLAY = re.compile(r"^vornkit play (?!.*--wav)", re.MULTILINE)
STOPS = re.compile(r"^vornkit watch ", re.MULTILINE)  # runs until it is ended


class DocumentCommands(CommandTest):
    def setUp(self):
        super().setUp()
        programs = [pathlib.Path(os.environ.get("VORN_PROGRAM", "build/dev/vorn")), pathlib.Path(VORNKIT)]
        path = [str(program.resolve().parent) for program in programs]
        self.environment = dict(os.environ, PATH=os.pathsep.join([*path, os.environ["PATH"]]))

    def run_block(self, text, folder):
        command = PLAY.sub("vornkit play --wav played.wav ", STOPS.sub("timeout -s INT 3 vornkit watch ", text))
        done = self.run_program("bash", "-e", "-c", f"cd {folder.name}\n{command}", env=self.environment)
        return done.returncode, (done.stdout + done.stderr).decode()

    def page_problems(self, page, source):
        folder = self.folder / page.stem
        shutil.copytree(source, folder)
        printed, problems = "", []
        for block in documents.blocks(page):
            if block.kind == "sh":
                status, printed = self.run_block(block.text, folder)
                problems += [f"{block.place}: status {status}\n{printed}"] if status else []
            elif block.kind == "text" and block.text not in printed:
                problems.append(f"{block.place}: not in\n{printed}")
        return problems

    def test_commands_do_what_is_said(self):
        self.assertTrue(FOLDERS)
        for page, source in sorted(FOLDERS.items()):
            with self.subTest(page=page.name):
                self.assertEqual(self.page_problems(page, source), [])


if __name__ == "__main__":
    unittest.main()
