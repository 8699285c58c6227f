"""Every command in a document works: command_table.py has how each of them is tried."""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

from command_table import HOW, OnlyChecked, Runs, RunsIn
from documents import PROJECT, commands, documents, indented_code, mentioned_tools

# The folder of the build, where CTest runs the tests of one.
_BUILD = pathlib.Path(os.environ.get("AMBREL_BUILD", PROJECT / "build/release"))
_LINKS = {"ambrel-recovery-app": "AmbrelRecovery/AmbrelRecoveryApp",
          "misbehaving-engine": "Tests/MisbehavingEngine/misbehaving-engine"}


def commands_of(project):
    """The documents in which each command stands, by the command."""
    found = {}
    for document in documents(project):
        for command in commands(document.read_text(encoding="utf-8")):
            found.setdefault(command, []).append(str(document.relative_to(project)))
    return found


def unlike(project, table):
    """What is wrong between the documents and a table: a line for each command that only one of them has."""
    found = commands_of(project)
    return ([f"{', '.join(found[command])}: nobody tries “{command}”" for command in found.keys() - table.keys()]
            + [f"no document has “{command}”" for command in table.keys() - found.keys()])


def run(command, links):
    """Runs a command line in the project's folder. Gives the exit status and the output."""
    here = re.sub(r"\bbuild/(?:debug|release)\b", os.path.relpath(_BUILD, PROJECT), command)
    ended = subprocess.run(["bash", "-euo", "pipefail", "-c", here], cwd=PROJECT, text=True, stdin=subprocess.DEVNULL,
                           stdout=subprocess.PIPE, stderr=subprocess.STDOUT, errors="replace", check=False, timeout=300,
                           env=os.environ | {"PATH": f"{links}:{os.environ['PATH']}"})
    return ended.returncode, ended.stdout[-4000:]


def unknown_options(project, text):
    """Each script, or option of one, that a text mentions and that does not exist."""
    unknown = []
    for path, options in mentioned_tools(text):
        script = project / path
        source = script.read_text(encoding="utf-8") if script.is_file() else ""
        unknown += [path] if not source else [f"{path} {option}" for option in options if option not in source]
    return unknown


def _tried_as(kind):
    return [(command, how) for command, how in HOW.items() if isinstance(how, kind)]


class Commands(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.links = pathlib.Path(folder.name)
        for name, target in _LINKS.items():
            (self.links / name).symlink_to(_BUILD.resolve() / target)

    def expect_success(self, command):
        status, output = run(command, self.links)
        self.assertEqual(0, status, f"{command}\n{output}")

    def test_are_all_in_the_table_and_in_a_document(self):
        self.assertEqual([], unlike(PROJECT, HOW))

    def test_succeed(self):
        for command, how in _tried_as(Runs):
            with self.subTest(command=command):
                self.expect_success(how.instead or command)

    def test_are_run_where_the_table_says(self):
        for command, how in _tried_as(RunsIn):
            with self.subTest(command=command):
                self.assertIn(how.text, (PROJECT / how.file).read_text(encoding="utf-8"))

    def test_that_nothing_runs_have_the_right_names(self):
        for command, how in _tried_as(OnlyChecked):
            with self.subTest(command=command):
                self.expect_success(how.check)

    def test_are_fenced(self):
        for document in documents():
            self.assertEqual([], indented_code(document.read_text(encoding="utf-8")), document)

    def test_within_a_text_name_scripts_and_options_that_exist(self):
        self.assertGreater(sum(len(mentioned_tools(path.read_text(encoding="utf-8"))) for path in documents()), 20)
        for document in documents():
            self.assertEqual([], unknown_options(PROJECT, document.read_text(encoding="utf-8")), document)


class PlantedMistakes(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.project = pathlib.Path(folder.name)

    def write(self, text):
        (self.project / "page.md").write_text(text, encoding="utf-8")

    def test_a_new_command_is_named(self):
        self.write("```\nfirst   # why\nsecond \\\n    --option '#'\n\n# alone\n```\n\n```text\nno command\n```\n")
        self.assertEqual({"first": ["page.md"], "second --option '#'": ["page.md"]}, commands_of(self.project))
        self.assertEqual(["page.md: nobody tries “second --option '#'”"], unlike(self.project, {"first": Runs()}))

    def test_an_entry_without_its_command_is_named(self):
        self.write("Nothing.\n")
        self.assertEqual(["no document has “first”"], unlike(self.project, {"first": Runs()}))

    def test_a_command_that_fails_is_a_failure(self):
        for command in ("false", "false | true", "exit 3", "there-is-no-such-command", "Tools/lint --no-such-option"):
            self.assertNotEqual(0, run(command, self.project)[0], command)

    def test_indented_code_is_found(self):
        self.assertEqual(["    ./run"], indented_code("Then:\n\n    ./run\n"))
        self.assertEqual([], indented_code("```\n\n    fenced\n```\n- item\n    of a list\n"))

    def test_an_unknown_script_or_option_is_named(self):
        text = "`Tools/no-such-tool`, `Tools/lint --new`, `./test --quick` and\n`Tools/pictures\n--check`\n"
        self.assertEqual(["Tools/no-such-tool", "Tools/lint --new"], unknown_options(PROJECT, text))


if __name__ == "__main__":
    unittest.main()
