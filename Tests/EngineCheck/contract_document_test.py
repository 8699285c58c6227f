"""Docs/Engine contract.md names every check, every field with its type, and tests that exist."""

import re
import sys
import unittest

from small_backup import PROJECT, checks

sys.path.insert(0, str(PROJECT / "Tools/engine_check"))

import documents  # noqa: E402

_DOCUMENT = (PROJECT / "Docs/Engine contract.md").read_text(encoding="utf-8")
_OBJECTS = {"inspection-fields": documents.INSPECTION, "inspection-branches": documents.BRANCH,
            "inspection-snapshots": documents.SNAPSHOT, "inspection-counts": documents.COUNTS,
            "inspection-evidence": documents.EVIDENCE, "export-fields": documents.EXPORT}
_WORDS = {documents.SIGNED: "signed", documents.UNSIGNED: "unsigned", documents.OPTIONAL_TEXT: "text, null or absent"}


def _fields_below(check):
    """By name the types of the fields in the table that follows the name of a check."""
    table = re.search(rf"\(`{check}`\):\n\n((?:\|.*\n)+)", _DOCUMENT).group(1)
    return {name: row[1] for row in (line.strip("| ").split(" | ") for line in table.splitlines()[2:])
            for name in re.findall(r"`(\w+)`", row[0])}


def _sources(pattern):
    return "".join(file.read_text(encoding="utf-8") for file in sorted((PROJECT / "Tests").rglob(pattern)))


class ContractDocument(unittest.TestCase):
    def test_the_names_in_it_are_those_of_the_checks(self):
        self.assertEqual(sorted(checks()), sorted(set(re.findall(r"\(`([a-z]+(?:-[a-z]+)*)`\)", _DOCUMENT))))

    def test_the_fields_in_it_are_those_that_are_checked(self):
        for check, fields in _OBJECTS.items():
            with self.subTest(check):
                self.assertEqual({name: _WORDS.get(kind, kind) for name, kind in fields.items()}, _fields_below(check))

    def test_the_tests_in_it_exist(self):
        promises = _DOCUMENT.partition("## What the application promises")[2]
        names = re.findall(r"`(\w+Tests?|EndToEnd)(?:\.(\w+))?`", promises)
        self.assertGreater(len(names), 10)
        programs, lists = _sources("*.cpp"), _sources("CMakeLists.txt")
        for suite, case in names:
            with self.subTest(f"{suite}.{case}"):
                if suite == "EndToEnd":
                    self.assertRegex(lists, rf"(?m)^    {case}\)?$")
                elif suite.endswith("Tests"):
                    self.assertRegex(lists, rf"\b{suite}\b")
                else:
                    self.assertRegex(programs, rf"TEST(_F|_P)?\({suite}, {case}")


if __name__ == "__main__":
    unittest.main()
