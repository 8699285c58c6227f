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

    def test_every_way_in_which_a_case_can_end(self):
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

    def test_subtests_of_a_case(self):
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

    def test_a_class_whose_set_up_fails(self):
        class Sample(unittest.TestCase):
            @classmethod
            def setUpClass(cls):
                raise OSError("so")

            def test_something(self):
                pass

        self.assertEqual([("failed", "")], list(self.results_of(Sample).values()))


class Running(unittest.TestCase):
    def run_file(self, body, *runner):
        """(exit status, recorded cases) of a file with these cases; None if nothing was recorded."""
        with tempfile.TemporaryDirectory() as name:
            file = pathlib.Path(name, "some_test.py")
            file.write_text(body, encoding="utf-8")
            results = pathlib.Path(name, "results", "Some.json")
            results.parent.mkdir()
            results.write_text("of an earlier run", encoding="utf-8")
            environment = os.environ | {"AMBREL_TEST_RESULTS": str(results),
                                        "PYTHONPATH": str(pathlib.Path(__file__).parent)}
            status = subprocess.run([sys.executable, "-B", *runner, file], env=environment, check=False,
                                    capture_output=True, stdin=subprocess.DEVNULL, timeout=60).returncode
            return status, json.loads(results.read_text(encoding="utf-8"))["tests"] if results.exists() else None

    def run_cases(self, body):
        return self.run_file(f"import unittest\nimport case_results\n{body}\ncase_results.main()\n")

    def test_the_result_of_each_case_is_written(self):
        status, cases = self.run_cases("class Some(unittest.TestCase):\n"
                                       "    def test_one(self): pass\n"
                                       "    def test_two(self): self.skipTest('not here')\n")
        self.assertEqual(0, status)
        self.assertEqual([("Some.test_one", "passed", ""), ("Some.test_two", "skipped", "not here")],
                         [(case["name"], case["result"], case["reason"]) for case in cases])
        self.assertTrue(all(case["seconds"] >= 0 for case in cases))

    def test_an_ordinary_file_can_be_run(self):
        status, cases = self.run_file("import unittest\nclass Some(unittest.TestCase):\n"
                                      "    def test_one(self): self.skipTest('not here')\n", case_results.__file__)
        self.assertEqual(0, status)
        self.assertEqual([("skipped", "not here")], [(case["result"], case["reason"]) for case in cases])

    def test_a_failed_case_fails_the_file(self):
        status, cases = self.run_cases("class Some(unittest.TestCase):\n    def test_one(self): self.fail('so')\n")
        self.assertEqual(1, status)
        self.assertEqual("failed", cases[0]["result"])

    def test_a_file_without_cases_fails(self):
        self.assertNotEqual(0, self.run_cases("")[0])

    def test_a_file_that_does_not_finish_leaves_no_results(self):
        self.assertEqual((7, None), self.run_cases(
            "import os\nclass Some(unittest.TestCase):\n    def test_one(self): os._exit(7)\n"))


if __name__ == "__main__":
    case_results.main()
