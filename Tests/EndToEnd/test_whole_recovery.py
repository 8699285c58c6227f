"""A whole recovery with the engine that the application was built with."""

import pathlib
import tempfile

from catalogue import SHOW_IN_FINDER
from package_digest import contents
from recovery_test_case import BUILT_APPLICATION, RecoveryTestCase
from samples import sample
from walkthrough import walk
import case_results


class WholeRecovery(RecoveryTestCase):
    def export(self, application, name="Recovered"):
        destination = self.scratch / name
        application.choose_destination(destination)
        application.wait_for_completion()
        return destination

    def assert_originals(self, made, exported):
        self.assertEqual(sorted(contents(made.originals).values()), sorted(contents(exported).values()))

    def test_with_pictures_of_every_screen(self):
        with tempfile.TemporaryDirectory() as pictures:
            with tempfile.TemporaryDirectory() as scratch:
                walk(self.desktop, BUILT_APPLICATION, sample("ordinary"), sample("forked"), pathlib.Path(pictures),
                     pathlib.Path(scratch))
            names = [path.stem.partition("-")[2] for path in sorted(pathlib.Path(pictures).iterdir())]
            self.assertEqual(["choose", "filled", "inspecting", "snapshots", "exporting", "complete", "alert", "fork",
                              "snapshots-ar"], names)
            self.assertTrue(all(path.stat().st_size > 5_000 for path in pathlib.Path(pictures).iterdir()))

    def test_with_the_recovery_key_typed_carelessly(self):
        made = sample("ordinary")
        application = self.start()
        application.choose_package(made.package)
        application.choose_factor("recovery-key")
        application.inspect(f"  {made.recovery_key.lower().replace('-', ' ')}")
        application.wait_for_snapshots()
        self.assert_originals(made, self.export(application))

    def test_an_older_snapshot(self):
        made = sample("ordinary")
        application = self.start()
        application.choose_package(made.package)
        application.inspect(made.passphrase)
        application.wait_for_snapshots()
        application.choose_row(application.rows()[-1])
        exported = contents(self.export(application))
        originals = set(contents(made.originals).values())
        self.assertTrue(exported)
        self.assertLess(set(exported.values()), originals)

    def test_a_fork_is_reported_and_a_snapshot_can_be_exported(self):
        made = sample("forked")
        application = self.start()
        application.choose_package(made.package)
        application.inspect(made.passphrase)
        application.wait_for_text(self.catalogue["recovery.branch.fork.body"])
        self.assertFalse(application.is_enabled(self.catalogue["files-export.start"]))
        application.choose_row(application.rows()[0])
        self.assertTrue(contents(self.export(application)))

    def test_showing_the_folder_and_going_on_with_another_package(self):
        made = sample("ordinary")
        application = self.start()
        application.choose_package(made.package)
        application.inspect(made.passphrase)
        application.wait_for_snapshots()
        exported = self.export(application)
        application.press(SHOW_IN_FINDER)
        self.assertEqual(("ShowItems", [exported.as_uri()]), self.desktop.file_manager.wait_for_call())

        application.press(self.catalogue["recovery.choose-another-package.action"])
        application.button(self.catalogue["recovery.inspect.action"])
        self.assertIsNone(application.find(made.package.name))
        application.choose_package(made.package)
        application.inspect(made.passphrase)
        application.wait_for_snapshots()
        self.assert_originals(made, self.export(application, "Recovered again"))


if __name__ == "__main__":
    case_results.main()
