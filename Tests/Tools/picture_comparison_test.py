"""Tools/picture_comparison.py names a picture in which a change was planted, and nothing else."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

_PROJECT = pathlib.Path(__file__).resolve().parents[2]
_TOOL = _PROJECT / "Tools/picture_comparison.py"
# The button “Export”, with its symbol and some of what is around it.
_PART = "420x120+270+600"
_BUTTON = (18, 42, 113, 50)


def _convert(*arguments):
    subprocess.run(["convert", *map(str, arguments)], check=True, stdin=subprocess.DEVNULL)


def _moved(picture, by):
    x, y, width, height = _BUTTON
    margin = 10
    cut = f"{width + 2 * margin}x{height + 2 * margin}+{x - margin}+{y - margin}"
    _convert(picture, "(", "+clone", "-crop", cut, "+repage", ")", "-geometry", f"+{x - margin + by}+{y - margin}",
             "-composite", picture)


class PictureComparison(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        for name in ("earlier", "new"):
            (self.folder / name).mkdir()
        for name in ("changed.png", "same.png"):
            _convert(_PROJECT / "Docs/Pictures/snapshots.png", "-crop", _PART, "+repage", self.folder / "earlier" / name)
            shutil.copy(self.folder / "earlier" / name, self.folder / "new")
        self.changed = self.folder / "new/changed.png"

    def compare(self, *options):
        """The exit status and the printed lines."""
        run = subprocess.run([sys.executable, "-B", _TOOL, "earlier", "new", "differences", *options], cwd=self.folder,
                             text=True, capture_output=True, check=False)
        self.assertIn(run.returncode, (0, 1), run.stderr)
        self.assertEqual("", run.stderr)
        return run.returncode, run.stdout.splitlines()

    def expect_as_before(self, *options):
        self.assertEqual((0, ["changed.png as before", "same.png as before"]), self.compare(*options))
        self.assertEqual([], list((self.folder / "differences").iterdir()))

    def expect_difference(self, words, *options):
        status, lines = self.compare(*options)
        self.assertEqual(1, status)
        self.assertRegex(lines[0], f"^changed.png {words}")
        self.assertEqual(["same.png as before"], lines[1:])

    def test_equal_pictures_are_as_before(self):
        self.expect_as_before()
        self.expect_as_before("--other-fonts")

    def test_another_color_is_a_difference(self):
        _convert(self.changed, "-fuzz", "1%", "-fill", "rgb(197,115,75)", "-opaque", "rgb(191,110,69)", self.changed)
        self.expect_difference("differs: colors", "--other-fonts")

    def test_the_difference_is_shown(self):
        x, y, width, height = _BUTTON
        _convert(self.changed, "-fill", "blue", "-draw", f"rectangle {x},{y} {x + 20},{y + 20}", self.changed)
        self.expect_difference("differs: colors by [0-9]+, 4 are tolerated; see differences/changed.png")
        shown = subprocess.run(["convert", self.folder / "differences/changed.png", "-colorspace", "Gray",
                                "-threshold", "25%", "-format", "%@", "info:"], check=True, text=True, capture_output=True)
        shown_width, shown_height = map(int, shown.stdout.split("+")[0].split("x"))
        self.assertTrue(10 <= shown_width <= 30 and 10 <= shown_height <= 30, shown.stdout)

    def test_a_missing_symbol_is_a_difference(self):
        x, y, _, _ = _BUTTON
        _convert(self.changed, "-fill", "rgb(191,110,69)", "-draw",
                 f"rectangle {x + 15},{y + 12} {x + 37},{y + 38}", self.changed)
        self.expect_difference("differs: colors", "--other-fonts")

    def test_a_button_at_another_place_is_a_difference(self):
        _moved(self.changed, 8)
        self.expect_difference("differs: colors", "--other-fonts")

    def test_a_move_by_the_width_of_a_line_is_a_difference_only_with_the_same_fonts(self):
        _moved(self.changed, 2)
        self.expect_as_before("--other-fonts")
        self.expect_difference("differs: brightness")

    def test_slightly_brighter_edges_are_tolerated(self):
        _convert(self.changed, "(", "+clone", "-blur", "0x0.4", ")", "-compose", "Blend", "-define",
                 "compose:args=50", "-composite", self.changed)
        self.assertNotEqual((self.folder / "earlier/changed.png").read_bytes(), self.changed.read_bytes())
        self.expect_as_before()

    def test_another_size_is_a_difference(self):
        _convert(self.changed, "-crop", "420x119+0+0", "+repage", self.changed)
        self.expect_difference("has the size 420x119 instead of 420x120", "--other-fonts")

    def test_a_picture_that_only_one_side_has_is_a_difference(self):
        self.changed.unlink()
        self.expect_difference("is missing in new")
        (self.folder / "earlier/changed.png").rename(self.changed)
        self.expect_difference("is missing in earlier")

    def test_no_pictures_at_all_are_no_success(self):
        for folder in ("earlier", "new"):
            shutil.rmtree(self.folder / folder)
            (self.folder / folder).mkdir()
        run = subprocess.run([sys.executable, "-B", _TOOL, "earlier", "new", "differences"], cwd=self.folder,
                             capture_output=True, check=False)
        self.assertNotEqual(0, run.returncode)


if __name__ == "__main__":
    unittest.main()
