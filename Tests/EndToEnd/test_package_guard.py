"""The watch over packages sees every kind of change. No display is needed."""

import os
import pathlib
import tempfile
import unittest

from package_guard import PackageGuard
from waiting import wait_for
import case_results


class WatchedPackage(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.package = pathlib.Path(directory.name) / "Photos.ambrel"
        (self.package / "inner").mkdir(parents=True)
        (self.package / "inner" / "empty").mkdir()
        self.file = self.package / "inner" / "file"
        self.file.write_bytes(b"as it was")
        self.link = self.package / "link"
        self.link.symlink_to("inner")
        self.guard = PackageGuard()
        self.guard.watch(self.package)
        wait_for("the file system's clock to go on", self.time_has_passed)

    def time_has_passed(self):
        """Whether a change made now gets another time than those of the package. The clock may be a coarse one."""
        probe = self.package.parent / "probe"
        probe.touch()
        return probe.stat().st_ctime_ns > self.link.lstat().st_ctime_ns

    def set_back_time(self, path, status):
        os.utime(path, ns=(status.st_atime_ns, status.st_mtime_ns), follow_symlinks=False)

    def changes_of(self, path, change):
        """Names of the properties that differ after a change whose time of modification was set back."""
        status = os.lstat(path)
        change()
        if os.path.lexists(path):
            self.set_back_time(path, status)
        prefix = f"{self.package}: {os.path.relpath(path, self.package)}: "
        return {text.removeprefix(prefix).partition(" was ")[0] for text in self.guard.changes()
                if text.startswith(prefix)}

    def test_nothing(self):
        self.file.read_bytes()
        self.guard.watch(self.package)
        self.assertEqual([], self.guard.changes())

    def test_other_bytes_of_the_same_size(self):
        self.assertEqual({"content", "status changed"},
                         self.changes_of(self.file, lambda: self.file.write_bytes(b"as it is!")))

    def test_a_size(self):
        self.assertEqual({"content", "size", "status changed"}, self.changes_of(
            self.file, lambda: os.truncate(self.file, 3)))

    def test_a_time_of_modification(self):
        os.utime(self.file, ns=(0, 1))
        self.assertIn("modified was", " ".join(self.guard.changes()))

    def test_the_same_bytes_written_again(self):
        self.assertEqual({"status changed"}, self.changes_of(self.file, lambda: self.file.write_bytes(b"as it was")))

    def test_permissions(self):
        self.assertIn("mode", self.changes_of(self.file, lambda: self.file.chmod(0o400)))

    @unittest.skipUnless(os.geteuid() == 0, "only root gives files away")
    def test_an_owner(self):
        self.assertIn("owner", self.changes_of(self.file, lambda: os.chown(self.file, 1, -1)))

    def test_an_extended_attribute(self):
        def change():
            try:
                os.setxattr(self.file, "user.note", b"text")
            except OSError as error:
                self.skipTest(f"this file system has no extended attributes: {error}")
        self.assertIn("attributes", self.changes_of(self.file, change))

    def test_a_file_replaced_by_its_copy(self):
        def change():
            copy = self.package / "copy"
            copy.write_bytes(self.file.read_bytes())
            copy.replace(self.file)
        self.assertIn("file", self.changes_of(self.file, change))

    def test_a_hard_link(self):
        elsewhere = self.package.parent / "second name"
        self.assertIn("links", self.changes_of(self.file, lambda: os.link(self.file, elsewhere)))

    def test_a_link_that_leads_elsewhere(self):
        def change():
            self.link.unlink()
            self.link.symlink_to("file")
        self.assertIn("target", self.changes_of(self.link, change))

    def test_added_and_removed_entries(self):
        (self.package / "inner" / ".hidden").mkdir()
        (self.package / "inner" / "empty").rmdir()
        changes = self.guard.changes()
        self.assertIn(f"{self.package}: inner/.hidden is new", changes)
        self.assertIn(f"{self.package}: inner/empty is gone", changes)

    def test_an_entry_that_was_added_and_removed_again(self):
        passing = self.package / "inner" / "passing"
        self.assertIn("status changed", self.changes_of(
            self.package / "inner", lambda: (passing.touch(), passing.unlink())))

    def test_a_package_that_was_moved_away(self):
        self.package.rename(self.package.with_name("elsewhere"))
        self.assertIn(f"{self.package}: inner/file is gone", self.guard.changes())

    def test_a_package_behind_a_link(self):
        link = self.package.with_name("Link.ambrel")
        link.symlink_to(self.package)
        guard = PackageGuard()
        guard.watch(link)
        self.assertEqual([], guard.changes())
        self.file.write_bytes(b"other")
        self.package.chmod(0o700)
        changes = " ".join(guard.changes())
        self.assertIn("inner/file: content", changes)
        self.assertIn("(target): mode", changes)

    def test_a_file_or_nothing_in_place_of_a_package(self):
        nothing = self.package.with_name("Nothing.ambrel")
        for path in (self.file, nothing):
            with self.subTest(path=path.name):
                guard = PackageGuard()
                guard.watch(path)
                self.assertEqual([], guard.changes())
                path.write_bytes(b"now it is something else")
                self.assertNotEqual([], guard.changes())

    def test_what_a_test_undoes_is_no_change(self):
        elsewhere = self.package.with_name("elsewhere")
        mode = self.package.stat().st_mode
        with self.guard.undoing(self.package):
            self.package.rename(elsewhere)
            elsewhere.rename(self.package)
            self.package.chmod(0)
            self.package.chmod(mode)
        self.assertEqual([], self.guard.changes())

    def test_what_a_test_does_not_undo_is_a_change(self):
        with self.assertRaisesRegex(AssertionError, "content"):
            with self.guard.undoing(self.package):
                self.file.write_bytes(b"something")


if __name__ == "__main__":
    case_results.main()
