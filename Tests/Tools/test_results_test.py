"""Tools/test-results with what the installed GoogleTest writes."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

_TOOLS = pathlib.Path(__file__).resolve().parents[2] / "Tools"
_PROGRAM = os.environ["AMBREL_SKIPPED_CASE"]


class TestResults(unittest.TestCase):
    def setUp(self):
        root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.results = root / "build" / "debug" / "TestResults"
        self.results.mkdir(parents=True)
        (root / "Tools").mkdir()
        self.tool = shutil.copy(_TOOLS / "test-results", root / "Tools")

    def ran(self, name, status):
        """As if CTest had run the program as a test with this name."""
        subprocess.run([_PROGRAM], env=os.environ | {"GTEST_OUTPUT": f"xml:{self.results}/{name}.xml"},
                       stdout=subprocess.DEVNULL, check=True)
        (self.results / "unit-tests.ctest.xml").write_text(
            f'<testsuite><testcase name="{name}" status="{status}"/></testsuite>', encoding="utf-8")

    def summary(self):
        ended = subprocess.run([self.tool, "debug"], stdout=subprocess.PIPE, text=True, check=False)
        return ended.returncode, ended.stdout.splitlines()

    def test_a_skipped_case_is_counted_and_named_with_its_reason(self):
        self.ran("Skipping", "run")
        self.assertEqual((0, ["skipped: Skipping: Cases.isSkipped (this file system has no extended attributes)",
                              "1 passed, 0 failed, 1 skipped, 0 disabled"]), self.summary())

    def test_a_program_that_failed_without_a_failed_case_counts_as_failed(self):
        self.ran("Crashing", "fail")
        status, lines = self.summary()
        self.assertEqual((1, "failed: Crashing"), (status, lines[0]))


if __name__ == "__main__":
    unittest.main()
