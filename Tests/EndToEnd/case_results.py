"""Runs the cases of a file and records the result of each, so that they can be counted.

A file calls main(), or is run by this one: case_results.py FILE [option...]
"""

import importlib.util
import json
import os
import pathlib
import sys
import time
import unittest


class NotedResult(unittest.TextTestResult):
    """Keeps in `cases` the name, the result, the reason of a skip and the time of each case.

    A case fails if anything in it does, and is skipped if anything in it is. One that is expected to fail is neither.
    """

    def __init__(self, *arguments, **options):
        super().__init__(*arguments, **options)
        self.cases = {}
        # Some versions of Python do not start what is skipped as a whole.
        self._began = time.monotonic()

    def startTest(self, test):
        self._began = time.monotonic()
        super().startTest(test)

    def stopTest(self, test):
        super().stopTest(test)
        if _name_of(test) in self.cases:
            self.cases[_name_of(test)]["seconds"] = round(time.monotonic() - self._began, 3)

    def addSuccess(self, test):
        super().addSuccess(test)
        self._note(test, "passed")

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self._note(test, "failed")

    def addError(self, test, err):
        super().addError(test, err)
        self._note(test, "failed")

    def addUnexpectedSuccess(self, test):
        super().addUnexpectedSuccess(test)
        self._note(test, "failed")

    def addSubTest(self, test, subtest, err):
        super().addSubTest(test, subtest, err)
        if err is not None:
            self._note(test, "failed")

    def addSkip(self, test, reason):
        super().addSkip(test, reason)
        self._note(test, "skipped", reason)

    def _note(self, test, result, reason=""):
        name = _name_of(test)
        if self.cases.get(name, {}).get("result") != "failed":
            self.cases[name] = {"name": name, "result": result, "reason": reason, "seconds": 0}


class NotingRunner(unittest.TextTestRunner):
    resultclass = NotedResult


def _name_of(test):
    """The class and the case; what stands for the beginning or the end of a whole class has a text of its own."""
    return getattr(test, "test_case", test).id().removeprefix("__main__.")


def main(module="__main__"):
    """Runs the cases of `module` that the command line names, and exits with the status.

    The results are written into the file that AMBREL_TEST_RESULTS names, if it is set.
    """
    file = pathlib.Path(os.environ["AMBREL_TEST_RESULTS"]) if "AMBREL_TEST_RESULTS" in os.environ else None
    if file:
        file.parent.mkdir(parents=True, exist_ok=True)
        # What an earlier run left says nothing of one that does not come to its end.
        file.unlink(missing_ok=True)
    result = unittest.main(module=module, testRunner=NotingRunner, exit=False).result
    if file:
        file.write_text(json.dumps({"tests": list(result.cases.values())}, indent=1) + "\n",
                        encoding="utf-8")
    sys.exit(0 if result.wasSuccessful() and result.cases else 1)


def _load(file):
    """The module in `file`, which finds the modules beside itself."""
    sys.path.insert(0, str(pathlib.Path(file).resolve().parent))
    spec = importlib.util.spec_from_file_location(pathlib.Path(file).stem, file)
    module = importlib.util.module_from_spec(spec)
    sys.modules[spec.name] = module
    spec.loader.exec_module(module)
    return module


if __name__ == "__main__":
    del sys.argv[0]
    main(_load(sys.argv[0]))
