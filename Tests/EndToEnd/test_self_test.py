"""The mode without a window: the engine's own self-test, relayed. No display and no desktop are there."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

from engines import ScriptedEngine, dies, prints_and_fails
from installation import Installation
import case_results

BUILT_APPLICATION = os.environ["AMBREL_APPLICATION"]


def closed_pipe():
    """The writing end of a pipe whose reader went away."""
    reading, writing = os.pipe()
    os.close(reading)
    return writing


class SelfTest(unittest.TestCase):
    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp(prefix="ambrel recovery é."))
        self.addCleanup(shutil.rmtree, self.scratch)
        self.installation = Installation(BUILT_APPLICATION, self.scratch / "Ambrel Recovery")
        self.temporary = self.scratch / "temporary"
        self.temporary.mkdir()

    def run_self_test(self, *arguments, **options):
        """(status, output, error) of the application, in an environment that holds almost nothing.

        A stream that an option leads elsewhere gives None.
        """
        environment = {"PATH": "/usr/bin:/bin", "TMPDIR": str(self.temporary)}
        result = subprocess.run([options.get("program", self.installation.executable), *arguments], env=environment,
                                cwd="/", stdin=subprocess.DEVNULL, stdout=options.get("stdout", subprocess.PIPE),
                                stderr=options.get("stderr", subprocess.PIPE), timeout=120)
        self.assertEqual([], os.listdir(self.temporary))
        return result.returncode, result.stdout, result.stderr

    def scripted(self, behavior):
        engine = ScriptedEngine(self.installation.engine, self.scratch / "engine runs")
        engine.behave(self_test=behavior)
        return engine

    def test_the_built_in_engine_passes(self):
        status, _, error = self.run_self_test("--self-test")
        self.assertEqual((0, b""), (status, error))

    def test_the_switch_is_found_anywhere_among_the_arguments(self):
        engine = self.scripted("exit 0")
        for arguments in (["--self-test"], ["x", "-y", "--self-test"], ["--self-test", "--help", "rest"]):
            with self.subTest(arguments=arguments):
                self.assertEqual((0, b"", b""), self.run_self_test(*arguments))
        self.assertEqual([["self-test"]] * 3, [run.arguments for run in engine.runs])
        self.assertEqual(["/dev/null"] * 3, [run.input_kind for run in engine.runs])
        self.assertEqual([b""] * 3, [run.input for run in engine.runs])
        self.assertEqual([{}] * 3, [run.extra_descriptors for run in engine.runs])

    def test_texts_and_status_are_relayed(self):
        self.scripted(prints_and_fails("first\nno line end", "second", 3))
        self.assertEqual((3, b"first\nno line end", b"second\n"), self.run_self_test("--self-test"))

    def test_standard_output_is_relayed_before_standard_error(self):
        # The other way round than the engine writes them.
        self.scripted("printf second >&2; printf 'first '")
        self.assertEqual((0, b"first second", None), self.run_self_test("--self-test", stderr=subprocess.STDOUT))

    def test_the_status_is_returned_if_nobody_reads(self):
        engine = self.scripted(prints_and_fails("first", "second", 3))
        absent = closed_pipe()
        try:
            self.assertEqual((3, None, b"second\n"), self.run_self_test("--self-test", stdout=absent))
            self.assertEqual((3, None, None), self.run_self_test("--self-test", stdout=absent, stderr=absent))
            self.assertEqual([set()] * 2, [run.signals["ignored"] for run in engine.runs])
            self.installation.engine.unlink()
            self.assertEqual((1, b"", None), self.run_self_test("--self-test", stderr=absent))
        finally:
            os.close(absent)

    def test_bytes_are_relayed_unchanged(self):
        self.scripted(r"printf '\000\377\r\n'; head -c 3000000 /dev/zero; printf '\376' >&2")
        status, output, error = self.run_self_test("--self-test")
        self.assertEqual((0, b"\xfe"), (status, error))
        self.assertEqual(b"\0\xff\r\n" + bytes(3_000_000), output)

    def test_a_signal_gives_its_number(self):
        self.scripted(dies(6, "aborted"))
        self.assertEqual((6, b"", b"aborted"), self.run_self_test("--self-test"))

    def test_every_status_is_passed_on(self):
        for expected in (0, 1, 2, 15, 127, 255):
            with self.subTest(status=expected):
                shutil.rmtree(self.scratch / "engine runs", ignore_errors=True)
                self.scripted(f"exit {expected}")
                self.assertEqual((expected, b"", b""), self.run_self_test("--self-test"))

    def test_a_missing_engine_gives_one_line(self):
        self.installation.engine.unlink()
        self.assertEqual((1, b"", b"Ambrel Recovery app self-test failed.\n"), self.run_self_test("--self-test"))

    def test_an_engine_that_cannot_start_gives_the_same_line(self):
        self.installation.engine.unlink()
        self.installation.engine.write_text("#!/nowhere/interpreter\n")
        self.installation.engine.chmod(0o755)
        self.assertEqual((1, b"", b"Ambrel Recovery app self-test failed.\n"), self.run_self_test("--self-test"))

    def test_a_link_to_the_executable_finds_the_engine(self):
        self.scripted("exit 7")
        link = self.scratch / "ambrel"
        link.symlink_to(self.installation.executable)
        self.assertEqual((7, b"", b""), self.run_self_test("--self-test", program=link))

    def test_similar_arguments_are_not_the_switch(self):
        engine = self.scripted("exit 0")
        for argument in ("-self-test", "--self-test=1", "--SELF-TEST", "--self-test "):
            with self.subTest(argument=argument):
                # Without a display, the application that would open a window cannot go on.
                self.assertNotEqual(0, self.run_self_test(argument)[0])
        self.assertEqual([], engine.runs)


if __name__ == "__main__":
    case_results.main()
