"""Places to export to that cannot be used, and what is left of them: nothing."""

import os
import shutil

from engines import gated
from package_digest import digest
from recovery_test_case import RecoveryTestCase
from samples import sample
import case_results


class Destinations(RecoveryTestCase):
    def setUp(self):
        super().setUp()
        made = sample("ordinary")
        self.package = self.scratch / made.package.name
        shutil.copytree(made.package, self.package)
        self.application = self.start()
        self.application.choose_package(self.package)
        self.application.inspect(made.passphrase)
        self.application.wait_for_snapshots()

    def assert_refused(self, destination):
        self.application.choose_destination(destination)
        self.assert_alert(self.application, "destination-unavailable")
        self.application.button(self.catalogue["files-export.start"])

    def test_a_folder_that_already_exists(self):
        taken = self.scratch / "Taken"
        taken.mkdir()
        (taken / "file").write_bytes(b"keep me")
        before = digest(taken)
        self.assert_refused(taken)
        self.assertEqual(before, digest(taken))

    def test_a_file_that_already_exists(self):
        taken = self.scratch / "Taken"
        taken.write_bytes(b"keep me")
        self.assert_refused(taken)
        self.assertEqual(b"keep me", taken.read_bytes())

    def test_a_folder_that_somebody_else_makes_between_the_check_and_the_export(self):
        gate = self.scratch / "gate"
        gated(self.installation.engine, gate)
        taken = self.scratch / "Taken"
        self.application.choose_destination(taken)
        self.application.wait_for_text(self.catalogue["files-export.running"])
        taken.mkdir()
        (taken / "file").write_bytes(b"keep me")
        before = digest(taken)
        gate.touch()
        self.assert_alert(self.application, "destination-unavailable")
        self.assertEqual(before, digest(taken))
        destination = self.scratch / "Recovered"
        self.application.choose_destination(destination)
        self.application.wait_for_completion()
        self.assertTrue(destination.is_dir())

    def test_inside_the_package(self):
        self.assert_refused(self.package / "Recovered")
        self.assertFalse((self.package / "Recovered").exists())

    def test_a_folder_without_permission_to_write(self):
        folder = self.scratch / "Locked"
        folder.mkdir(0o555)
        self.assert_refused(folder / "Recovered")
        self.assertEqual([], os.listdir(folder))

    def test_another_destination_after_a_refusal(self):
        self.assert_refused(self.package / "Recovered")
        destination = self.scratch / "Recovered"
        self.application.choose_destination(destination)
        self.application.wait_for_completion()
        self.assertTrue(destination.is_dir())

    def test_cancelling_the_panel_changes_nothing(self):
        title = self.catalogue["files-export.choose-destination"]
        before = sorted(os.listdir(self.scratch))
        self.application.press(self.catalogue["files-export.start"])
        self.assertEqual("Ambrel Recovered", os.path.basename(self.application.panel_name_field(title).text))
        self.application.dismiss_panel(title)
        self.assertTrue(self.application.is_enabled(self.catalogue["files-export.start"]))
        self.assertIsNone(self.application.alert())
        self.assertEqual(before, sorted(os.listdir(self.scratch)))


if __name__ == "__main__":
    case_results.main()
