"""What became of each case is told as it is. No display is needed."""

import io
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import case_results


class Noting(unittest.TestCase):
    def results_of(self, case):
        """{name: (result, reason)} of the cases of a class."""
        tests = unittest.defaultTestLoader.loadTestsFromTestCase(case)
        noted = case_results.NotingRunner(stream=io.StringIO()).run(tests)
        return {name.rpartition(".")[2]: (told["result"], told["reason"]) for name, told in noted.cases.items()}

    def test_every_way_in_which_a_case_ends(self):
        class Sample(unittest.TestCase):
            def test_passed(self):
                pass

            def test_failed(self):
                self.fail("so")

            def test_error(self):
                raise OSError("so")

            def test_skipped(self):
                self.skipTest("not here")

            @unittest.skip("never")
            def test_never(self):
                pass

            @unittest.expectedFailure
            def test_expected(self):
                self.fail("so")

            @unittest.expectedFailure
            def test_unexpected(self):
                pass

            def test_cleanup(self):
                self.addCleanup(self.fail, "so")

        self.assertEqual({"test_passed": ("passed", ""), "test_failed": ("failed", ""), "test_error": ("failed", ""),
                          "test_skipped": ("skipped", "not here"), "test_never": ("skipped", "never"),
                          "test_unexpected": ("failed", ""), "test_cleanup": ("failed", "")}, self.results_of(Sample))

    def test_parts_of_a_case(self):
        class Sample(unittest.TestCase):
            def each(self, *ends):
                for number, end in enumerate(ends):
                    with self.subTest(number):
                        end()

            def skip(self):
                self.skipTest("not here")

            def succeed(self):
                pass

            def test_passed(self):
                self.each(self.succeed, self.succeed)

            def test_one_fails(self):
                self.each(self.succeed, self.fail, self.succeed)

            def test_one_is_skipped(self):
                self.each(self.succeed, self.skip, self.succeed)

            def test_one_is_skipped_and_one_fails(self):
                self.each(self.skip, self.fail, self.skip)

        self.assertEqual({"test_passed": ("passed", ""), "test_one_fails": ("failed", ""),
                          "test_one_is_skipped": ("skipped", "not here"),
                          "test_one_is_skipped_and_one_fails": ("failed", "")}, self.results_of(Sample))

    def test_a_class_that_cannot_begin(self):
        class Sample(unittest.TestCase):
            @classmethod
            def setUpClass(cls):
                raise OSError("so")

            def test_something(self):
                pass

        self.assertEqual([("failed", "")], list(self.results_of(Sample).values()))


class Running(unittest.TestCase):
    def run_file(self, body):
        """(exit status, what was written into the folder for results) of a file with cases."""
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            file = folder / "test_two_words.py"
            file.write_text(f"import unittest\nimport case_results\n{body}\ncase_results.main()\n", encoding="utf-8")
            results = folder / "results"
            results.mkdir()
            (results / "EndToEnd.TwoWords.json").write_text("of an earlier run", encoding="utf-8")
            environment = os.environ | {"AMBREL_TEST_RESULTS": str(results),
                                        "PYTHONPATH": str(pathlib.Path(__file__).parent)}
            status = subprocess.run([sys.executable, "-B", file], env=environment, check=False, capture_output=True,
                                    stdin=subprocess.DEVNULL, timeout=60).returncode
            return status, {path.name: json.loads(path.read_text(encoding="utf-8")) for path in results.iterdir()}

    def test_what_became_of_each_case_is_written(self):
        status, written = self.run_file("class Some(unittest.TestCase):\n"
                                        "    def test_one(self): pass\n"
                                        "    def test_two(self): self.skipTest('not here')\n")
        self.assertEqual(0, status)
        self.assertEqual(["EndToEnd.TwoWords.json"], list(written))
        told = written["EndToEnd.TwoWords.json"]
        self.assertEqual("EndToEnd.TwoWords", told["suite"])
        self.assertEqual([("Some.test_one", "passed", ""), ("Some.test_two", "skipped", "not here")],
                         [(case["name"], case["result"], case["reason"]) for case in told["tests"]])
        self.assertTrue(all(case["seconds"] >= 0 for case in told["tests"]))

    def test_a_failed_case_fails_the_file(self):
        status, written = self.run_file("class Some(unittest.TestCase):\n    def test_one(self): self.fail('so')\n")
        self.assertEqual(1, status)
        self.assertEqual("failed", written["EndToEnd.TwoWords.json"]["tests"][0]["result"])

    def test_a_file_without_cases_fails(self):
        self.assertNotEqual(0, self.run_file("")[0])

    def test_a_file_that_does_not_come_to_its_end_leaves_nothing(self):
        self.assertEqual((7, {}), self.run_file(
            "import os\nclass Some(unittest.TestCase):\n    def test_one(self): os._exit(7)\n"))


if __name__ == "__main__":
    case_results.main()
