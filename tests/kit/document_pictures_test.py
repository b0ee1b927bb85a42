"""Documents show the pictures of their scores as vornkit draws them today: scripts/pictures."""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

from vornkit import CommandTest, VORNKIT

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "support"))
import documents  # noqa: E402

IMAGE = re.compile(r'!\[([^]]*)\]\(([^)\s]+)\)|<img [^>]*src="([^"]+)"')


def images(page):
    for image in IMAGE.finditer(page.read_text()):
        yield image[1], (page.parent / (image[2] or image[3])).resolve()


class DocumentPictures(CommandTest):
    def pictures(self, top, *arguments):
        environment = dict(os.environ, VORNKIT_PROGRAM=str(pathlib.Path(VORNKIT).resolve()))
        return subprocess.run([top / "scripts" / "pictures", *arguments], env=environment, check=False,
                              capture_output=True, text=True, timeout=300)

    def test_all_are_drawn_from_their_scores(self):
        done = self.pictures(ROOT, "--check")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_all_that_are_shown_exist_and_are_described(self):
        for page in documents.pages():
            for words, picture in images(page):
                with self.subTest(page=str(page), picture=str(picture)):
                    self.assertTrue(picture.exists())
                    self.assertTrue(words != "" or picture.suffix != ".svg")

    def checkout(self):
        """A small one: the script, a page and its score."""
        (self.folder / "scripts").mkdir()
        shutil.copy(ROOT / "scripts" / "pictures", self.folder / "scripts")
        shutil.copytree(ROOT / "scripts" / "lib", self.folder / "scripts" / "lib")
        self.write("README.md", "# Nothing\n")
        self.write("examples/README.md", "# Nothing\n")
        self.write("docs/page.md", "![two notes](scores/two.svg)\n")
        self.write("docs/scores/two.vorn", "i1 = 3 0 2 {\np2 1\np3 1\n}\n")
        return self.folder

    def test_a_changed_score_asks_for_its_picture(self):
        top = self.checkout()
        self.assertEqual(self.pictures(top, "--check").returncode, 1)
        self.assertFalse((top / "docs/scores/two.svg").exists())
        self.assertEqual(self.pictures(top).returncode, 0)
        self.assertEqual(self.pictures(top, "--check").returncode, 0)
        self.write("docs/scores/two.vorn", "i1 = 3 0 3 {\np2 1\np3 1\n}\n")
        done = self.pictures(top, "--check")
        self.assertEqual(done.returncode, 1)
        self.assertIn("docs/scores/two.svg is not the picture of its score", done.stdout)

    def test_options_stand_beside_the_score(self):
        top = self.checkout()
        self.write("docs/scores/two.picture", "--title Pair\n")
        self.assertEqual(self.pictures(top).returncode, 0)
        self.assertIn("Pair", (top / "docs/scores/two.svg").read_text())

    def test_a_score_that_cannot_be_drawn_is_told(self):
        top = self.checkout()
        self.write("docs/scores/two.vorn", "i1 = 3 0 2 {\np2 what\n")
        done = self.pictures(top)
        self.assertEqual(done.returncode, 1)
        self.assertIn("docs/scores/two.vorn cannot be drawn", done.stdout)


if __name__ == "__main__":
    unittest.main()
