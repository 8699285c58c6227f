"""What an engine is given: arguments, standard input, descriptors, signals, environment, output files."""

import re

from engines import prints, inspection, snapshot
from recovery_test_case import RecoveryTestCase
import case_results

PRIVATE_DIRECTORY = re.compile(
    r"/com\.ambrel\.recovery-output\.[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}$")


class EngineContract(RecoveryTestCase):
    def setUp(self):
        super().setUp()
        self.engine = self.scripted_engine()
        self.package = self.empty_package()

    def inspect(self, credential, factor="passphrase", **environment):
        application = self.start(**environment)
        application.choose_package(self.package)
        application.choose_factor(factor)
        application.inspect(credential)
        application.wait_for_snapshots()
        return application

    def test_the_command_lines_with_the_passphrase(self):
        application = self.inspect("correct horse")
        destination = self.scratch / "New Folder"
        application.choose_destination(destination)
        application.wait_for_completion()
        first, second = self.engine.runs
        self.assertEqual(["inspect", str(self.package), "--backup-passphrase", "--credential-stdin"], first.arguments)
        self.assertEqual(["export", str(self.package), "--snapshot", "tip", "--destination", str(destination),
                          "--backup-passphrase", "--credential-stdin"], second.arguments)
        self.assertEqual(b"correct horse\n", first.input)
        self.assertEqual(b"correct horse\n", second.input)

    def test_the_command_lines_with_the_recovery_key(self):
        application = self.inspect("word another-word", factor="recovery-key")
        application.choose_destination(self.scratch / "New Folder")
        application.wait_for_completion()
        first, second = self.engine.runs
        self.assertEqual("--recovery-key", first.arguments[2])
        self.assertEqual("--recovery-key", second.arguments[6])
        self.assertEqual(b"word another-word\n", second.input)

    def test_the_secret_is_passed_byte_for_byte(self):
        for credential in ("  spaces around  ", "e\u0301 ß Żółć 😀 密码", "\tTab\\\"'$(x)", "0", "x" * 5000):
            with self.subTest(credential=credential[:20]):
                application = self.start()
                application.choose_package(self.package)
                application.inspect(credential)
                application.wait_for_snapshots()
                self.assertEqual(credential.encode() + b"\n", self.engine.runs[-1].input)
                application.stop()

    def test_a_snapshot_code_is_passed_unchanged(self):
        code = "--destination 'x' \"y\" é\u2028$HOME"
        self.engine.behave(inspect=prints(inspection([snapshot(code)])))
        application = self.inspect("secret")
        application.choose_destination(self.scratch / "New Folder")
        application.wait_for_completion()
        self.assertEqual(code, self.engine.runs[1].arguments[3])

    def test_nothing_is_inherited_but_the_three_streams(self):
        self.inspect("secret")
        run = self.engine.runs[0]
        self.assertEqual({}, run.extra_descriptors)
        self.assertEqual("pipe", run.input_kind)
        self.assertEqual({"blocked": set(), "ignored": set()}, run.signals)

    def test_the_engine_leaves_no_core_dump_not_even_to_a_collector(self):
        # The kernel passes over a limit of 0 where it pipes dumps to a program, but keeps to one of 1.
        self.inspect("secret")
        self.assertEqual(("1", "1"), self.engine.runs[0].core_limits)

    def test_environment_and_working_directory_are_the_applications(self):
        self.inspect("secret", AMBREL_TEST_VALUE="two words\nand a line")
        run = self.engine.runs[0]
        given = dict(run.environment)
        for name in ("PWD", "OLDPWD", "_"):  # the script's own shell sets these
            given.pop(name, None)
        self.assertEqual({name: value for name, value in self.environment.items() if name not in ("PWD", "_")}, given)
        self.assertEqual(str(self.scratch), run.working_directory)
        self.assertNotIn("secret", "".join(run.arguments) + "".join(run.environment.values()))

    def test_output_files_are_private(self):
        self.inspect("secret")
        directory, output, error = self.engine.runs[0].outputs
        self.assertEqual(["700", "600", "600"], [directory[0], output[0], error[0]])
        self.assertEqual(str(self.scratch / "temporary"), directory[1].rpartition("/")[0])
        self.assertRegex(directory[1], PRIVATE_DIRECTORY)
        self.assertEqual(directory[1] + "/stdout", output[1])
        self.assertEqual(directory[1] + "/stderr", error[1])


if __name__ == "__main__":
    case_results.main()
