"""Packages that cannot be recovered from, and secrets that do not fit."""

import contextlib
import dataclasses
import shutil

from engines import gated
from package_digest import contents
from recovery_test_case import RecoveryTestCase
from samples import sample
import case_results


class BadPackages(RecoveryTestCase):
    def copy_of(self, kind):
        """A copy of a sample that the test may do with as it likes."""
        made = sample(kind)
        package = self.scratch / made.package.name
        shutil.copytree(made.package, package)
        return dataclasses.replace(made, package=package)

    def inspect(self, made):
        application = self.start()
        application.choose_package(made.package)
        application.inspect(made.passphrase)
        return application

    def test_a_wrong_passphrase_and_then_the_right_one(self):
        made = self.copy_of("ordinary")
        application = self.inspect(dataclasses.replace(made, passphrase="not the passphrase"))
        self.assert_alert(application, "wrong-passphrase")
        application.inspect(made.passphrase)
        application.wait_for_snapshots()

    def test_a_wrong_recovery_key(self):
        made = self.copy_of("ordinary")
        application = self.start()
        application.choose_package(made.package)
        application.choose_factor("recovery-key")
        for key in (made.passphrase, sample("forked").recovery_key, made.recovery_key[:-1]):
            with self.subTest(key=key):
                application.inspect(key)
                self.assert_alert(application, "wrong-key")

    def assert_incomplete_newest_snapshot(self, application):
        application.wait_for_snapshots()
        incomplete = self.catalogue["recovery.payload.incomplete"]
        newest, *older = application.rows()
        self.assertIn(incomplete, newest)
        self.assertTrue(older)
        application.choose_row(newest)
        destination = self.scratch / "Recovered"
        application.choose_destination(destination)
        self.assert_alert(application, "integrity")
        self.assertFalse(destination.exists())

    def test_a_damaged_file_is_reported_before_and_at_the_export(self):
        self.assert_incomplete_newest_snapshot(self.inspect(self.copy_of("damaged-payload")))

    def test_a_missing_file_is_reported_before_and_at_the_export(self):
        self.assert_incomplete_newest_snapshot(self.inspect(self.copy_of("missing-payload")))

    def test_an_unsupported_version(self):
        self.assert_alert(self.inspect(self.copy_of("unsupported-version")), "invalid-package")

    def test_an_empty_folder(self):
        empty = self.scratch / "Empty.ambrel"
        empty.mkdir()
        self.assert_alert(self.inspect(dataclasses.replace(sample("ordinary"), package=empty)), "invalid-package")

    @contextlib.contextmanager
    def put_aside(self, made):
        """The package is elsewhere as long as this is entered, and may be replaced meanwhile."""
        elsewhere = self.scratch / "elsewhere"
        with self.packages.undoing(made.package):
            made.package.rename(elsewhere)
            yield
            if made.package.exists():
                shutil.rmtree(made.package)
            elsewhere.rename(made.package)

    def held_inspection(self, made):
        """The application, inspecting; and the file that lets the engine go on."""
        gate = self.scratch / "gate"
        gated(self.installation.engine, gate)
        application = self.inspect(made)
        application.wait_for_text(self.catalogue["recovery.inspecting"])
        return application, gate

    def test_a_package_that_disappears_after_it_was_chosen(self):
        made = self.copy_of("ordinary")
        application = self.start()
        application.choose_package(made.package)
        with self.put_aside(made):
            application.inspect(made.passphrase)
            self.assert_alert(application, "unavailable")
        application.inspect(made.passphrase)
        application.wait_for_snapshots()

    def test_a_package_that_disappears_during_the_inspection(self):
        made = self.copy_of("ordinary")
        application, gate = self.held_inspection(made)
        with self.put_aside(made):
            gate.touch()
            self.assert_alert(application, "unavailable")
        application.inspect(made.passphrase)
        application.wait_for_snapshots()

    def test_a_package_that_is_replaced_during_the_inspection(self):
        made = self.copy_of("ordinary")
        application, gate = self.held_inspection(made)
        with self.put_aside(made):
            shutil.copytree(sample("unsupported-version").package, made.package)
            gate.touch()
            self.assert_alert(application, "invalid-package")
        application.inspect(made.passphrase)
        application.wait_for_snapshots()

    def test_a_package_that_disappears_between_inspection_and_export(self):
        made = self.copy_of("ordinary")
        application = self.inspect(made)
        application.wait_for_snapshots()
        destination = self.scratch / "Recovered"
        with self.packages.undoing(made.package):
            made.package.rename(self.scratch / "elsewhere")
            application.choose_destination(destination)
            self.assert_alert(application, "unavailable")
            self.assertFalse(destination.exists())
            (self.scratch / "elsewhere").rename(made.package)
        # Without typing the passphrase again.
        application.choose_destination(destination)
        application.wait_for_completion()
        self.assertEqual(sorted(contents(made.originals).values()), sorted(contents(destination).values()))

    def test_a_package_that_is_a_symbolic_link(self):
        made = self.copy_of("ordinary")
        link = self.scratch / "Link.ambrel"
        link.symlink_to(made.package)
        application = self.inspect(dataclasses.replace(made, package=link))
        application.wait_for_snapshots()
        destination = self.scratch / "Recovered"
        application.choose_destination(destination)
        application.wait_for_completion()
        self.assertEqual(sorted(contents(made.originals).values()), sorted(contents(destination).values()))
        self.assertTrue(link.is_symlink())

    def test_a_package_without_permission_to_read(self):
        made = self.copy_of("ordinary")
        application = self.start()
        application.choose_package(made.package)
        mode = made.package.stat().st_mode
        with self.packages.undoing(made.package):
            made.package.chmod(0)
            application.inspect(made.passphrase)
            self.assert_alert(application, "unavailable")
            made.package.chmod(mode)

    def test_what_is_not_a_package_is_refused_when_it_is_chosen(self):
        folder = self.scratch / "Photos"
        folder.mkdir()
        file = self.scratch / "File.ambrel"
        file.write_bytes(b"")
        dangling = self.scratch / "Dangling.ambrel"
        dangling.symlink_to(self.scratch / "nothing")
        good = self.empty_package()
        application = self.start()
        application.choose_package(good)
        application.type_credential("secret")
        for path in (file, dangling, folder):
            with self.subTest(path=path.name):
                application.choose_package(path)
                self.assert_alert(application, "invalid-package")
                # Nothing else changed.
                application.wait_for_text(good.name)
                self.assertEqual(len("secret"), application.secure_field().character_count)

    def test_unusual_packages_that_are_accepted(self):
        upper = self.scratch / "UPPER.AMBREL"
        upper.mkdir()
        link = self.scratch / "Link.ambrel"
        link.symlink_to(upper)
        strange = self.scratch / "  Größe & <b>“x” – ✓.ambrel"
        strange.mkdir()
        application = self.start()
        for path in (upper, link, strange):
            with self.subTest(path=path.name):
                application.choose_package(path)
                application.wait_for_text(path.name)
                self.assertIsNone(application.alert())

    def test_cancelling_the_panel_changes_nothing(self):
        package = self.empty_package()
        application = self.start()
        application.choose_package(package)
        application.press(self.catalogue["recovery.choose-package.action"])
        application.dismiss_panel(self.catalogue["recovery.choose-package.action"])
        application.wait_for_text(package.name)
        self.assertIsNone(application.alert())


if __name__ == "__main__":
    case_results.main()
