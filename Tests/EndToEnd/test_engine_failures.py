"""Every way in which an engine can fail, and what the user is told."""

import os
import signal

from engines import (LEAVE_INPUT, dies, export_report, fails, floods, inspection, prints, prints_and_fails)
from recovery_test_case import RecoveryTestCase
import case_results

# Error text of the engine, and the failure for the passphrase and for the recovery key.
ERROR_TEXTS = [
    ("The credential did not unlock this package.", "wrong-passphrase", "wrong-key"),
    ("The CREDENTIAL IS INVALID.", "wrong-passphrase", "wrong-key"),
    ("The package is Invalid or Unsupported.", "invalid-package", "invalid-package"),
    ("The package is unavailable.", "unavailable", "unavailable"),
    ("Integrity verification failed.", "integrity", "integrity"),
    ("The destination already exists.", "destination-unavailable", "destination-unavailable"),
    ("The destination is unavailable.", "destination-unavailable", "destination-unavailable"),
    ("The output could not be written.", "destination-unavailable", "destination-unavailable"),
    ("Something else went wrong.", "generic", "generic"),
    ("", "generic", "generic"),
    # Of two known texts in one message, the one that ranks first decides, wherever it stands.
    ("The destination already exists.\nThe credential is invalid.", "wrong-passphrase", "wrong-key"),
    ("Integrity verification failed: the package is unavailable.", "unavailable", "unavailable"),
]
FACTORS = ["passphrase", "recovery-key"]

# Behavior of an inspection, and the failure.
OUTCOMES = {
    "a status above 128": (fails("The package is unavailable.", 200), "unavailable"),
    "status 15 whatever the text": (fails("Integrity verification failed.", 15), "cancelled"),
    "death by SIGTERM": (dies(signal.SIGTERM, "Integrity verification failed."), "cancelled"),
    "a crash": (dies(signal.SIGSEGV), "generic"),
    "an abort with a text": (dies(signal.SIGABRT, "package is unavailable"), "unavailable"),
    "death by SIGKILL": (dies(signal.SIGKILL), "generic"),
    "error text that is not UTF-8": (r"printf 'package is unavailable\377' >&2; exit 1", "generic"),
    "success without a document": ("exit 0", "generic"),
    "success with an error text alone": ("echo 'package is unavailable' >&2", "unavailable"),
    "garbage": (r"printf '\000\377\037garbage'", "generic"),
    "a document cut short": (prints(inspection()[:-40]), "generic"),
    "a document with something after it": (prints(inspection() + "x"), "generic"),
    "two documents": (prints(inspection() + inspection()), "generic"),
    "a failure in spite of a document": (prints_and_fails(inspection(), "", 1), "generic"),
    "the other document": (prints(export_report()), "generic"),
    "another schema": (prints(inspection(schemaIdentifier="com.ambrel.recovery.cli-inspection.v2")), "generic"),
    "another format": (prints(inspection(formatIdentifier="com.ambrel.backup.v2")), "generic"),
    "a missing value": (prints(inspection(maximumWriterEpoch=None)), "generic"),
    "deep nesting": ("head -c 200000 /dev/zero | tr '\\0' '['", "generic"),
    "a flood": (floods(64), "generic"),
}


class EngineFailures(RecoveryTestCase):
    def setUp(self):
        super().setUp()
        self.engine = self.scripted_engine()

    def start_with_package(self):
        application = self.start()
        application.choose_package(self.empty_package())
        return application

    def test_every_error_text_of_an_inspection_for_both_factors(self):
        application = self.start_with_package()
        for index, factor in enumerate(FACTORS):
            application.choose_factor(factor)
            for text, *kinds in ERROR_TEXTS:
                with self.subTest(factor=factor, text=text):
                    self.engine.behave(inspect=fails(text))
                    application.inspect("secret")
                    self.assert_alert(application, kinds[index])
                    self.assertEqual(0, application.secure_field().character_count, "the typed secret stayed")

    def test_every_error_text_of_an_export_for_both_factors(self):
        package = self.empty_package()
        application = self.start()
        application.choose_package(package)
        for index, factor in enumerate(FACTORS):
            application.choose_factor(factor)
            application.inspect("secret")
            application.wait_for_snapshots()
            for text, *kinds in ERROR_TEXTS:
                with self.subTest(factor=factor, text=text):
                    self.engine.behave(export=fails(text))
                    application.choose_destination(self.scratch / "Recovered")
                    self.assert_alert(application, kinds[index])
            # The secret survived every failure.
            self.engine.behave()
            application.choose_destination(self.scratch / "Recovered")
            application.press(self.catalogue["recovery.choose-another-package.action"])
            application.choose_package(package)

    def test_every_other_outcome_of_an_inspection(self):
        application = self.start_with_package()
        for name, (behavior, kind) in OUTCOMES.items():
            with self.subTest(name):
                self.engine.behave(inspect=behavior)
                application.inspect("secret")
                self.assert_alert(application, kind)
        self.engine.behave()
        application.inspect("secret")
        application.wait_for_snapshots()

    def test_an_export_report_that_cannot_be_accepted(self):
        application = self.start_with_package()
        application.inspect("secret")
        application.wait_for_snapshots()
        for name, behavior in {
                "no document": "exit 0",
                "the other document": prints(inspection()),
                "the other document's identifier": prints(
                    export_report(schemaIdentifier="com.ambrel.recovery.cli-inspection.v1")),
                "a missing count": prints(export_report(failedResourceCount=None)),
                "a fraction": prints(export_report(recoveredItemCount=1.5)),
                "a crash": dies(signal.SIGBUS)}.items():
            with self.subTest(name):
                self.engine.behave(export=behavior)
                application.choose_destination(self.scratch / "Recovered")
                self.assert_alert(application, "generic")
        self.engine.behave()
        application.choose_destination(self.scratch / "Recovered")
        application.wait_for_completion()

    def test_an_export_that_lacks_files_is_complete(self):
        application = self.start_with_package()
        application.inspect("secret")
        application.wait_for_snapshots()
        self.engine.behave(export=prints(export_report(recovered=0, status="incomplete", failedResourceCount=3)))
        application.choose_destination(self.scratch / "Recovered")
        application.wait_for_completion()
        application.wait_for_text(self.catalogue["files-export.exported"] + ": 0")
        self.assertIsNone(application.alert())

    def test_an_engine_that_closes_its_input_at_once(self):
        application = self.start_with_package()
        self.engine.behave(inspect="exec <&-; sleep 0.2; " + prints(inspection()), read_input=LEAVE_INPUT)
        # Longer than a pipe holds, so that it cannot be delivered; the failure is the runner's.
        application.inspect("s" * 200_000)
        self.assert_alert(application, "generic")

    def test_an_engine_that_leaves_a_short_secret_unread(self):
        application = self.start_with_package()
        self.engine.behave(read_input=LEAVE_INPUT)
        application.inspect("secret")
        application.wait_for_snapshots()


class UnusableEngines(RecoveryTestCase):
    def test_a_missing_engine_is_reported_at_once_and_the_window_opens(self):
        self.installation.engine.unlink()
        application = self.start()
        self.assert_alert(application, "generic")
        # Nothing can be started without an engine, and nothing else happens.
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.button(self.catalogue["recovery.inspect.action"])
        self.assertIsNone(application.alert())

    def test_a_file_without_execute_permission_is_no_engine(self):
        self.installation.engine.chmod(0o644)
        application = self.start()
        self.assert_alert(application, "generic")

    def test_an_engine_that_disappears_later(self):
        application = self.start()
        application.choose_package(self.empty_package())
        self.installation.engine.unlink()
        application.inspect("secret")
        self.assert_alert(application, "generic")

    def test_an_engine_of_a_wrong_format(self):
        self.installation.engine.unlink()
        self.installation.engine.write_bytes(b"\x7fELF, but not really")
        self.installation.engine.chmod(0o755)
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        self.assert_alert(application, "generic")

    def test_an_engine_whose_interpreter_is_missing(self):
        self.installation.engine.unlink()
        self.installation.engine.write_text("#!/nowhere/interpreter\n")
        self.installation.engine.chmod(0o755)
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        self.assert_alert(application, "generic")

    def test_a_temporary_directory_that_cannot_be_used(self):
        application = self.start()
        application.choose_package(self.empty_package())
        temporary = self.scratch / "temporary"
        temporary.rmdir()
        application.inspect("secret")
        self.assert_alert(application, "generic")
        temporary.mkdir()
        self.scripted_engine()
        application.inspect("secret")
        application.wait_for_snapshots()
        self.assertEqual([], os.listdir(temporary))


if __name__ == "__main__":
    case_results.main()
