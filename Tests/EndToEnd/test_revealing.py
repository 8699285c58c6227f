"""Showing the exported folder where no file manager does it."""

import pathlib
import shutil
import tempfile

from gi.repository import Gio

from catalogue import SHOW_IN_FINDER
from recovery_test_case import RecoveryTestCase
from role import Role
from samples import sample
from waiting import wait_for
import case_results

_ISOLATES = "\u2068\u2069"


class RevealingTestCase(RecoveryTestCase):
    """Programs are found in `tools` alone, in which a test may put what opens folders on this desktop."""

    def setUp(self):
        super().setUp()
        # The toolkit takes a space in this path for the end of a program's name.
        self.tools = pathlib.Path(tempfile.mkdtemp(prefix="ambrel-tools."))
        self.addCleanup(shutil.rmtree, self.tools)
        # What starts the application needs it.
        (self.tools / "setpriv").symlink_to(shutil.which("setpriv"))
        self.opened = self.scratch / "opened"

    def install_opener(self):
        opener = self.tools / "xdg-open"
        opener.write_text(f"#!/bin/sh\nprintf '%s\\n' \"$1\" >>'{self.opened}'\n", encoding="utf-8")
        opener.chmod(0o755)

    def reveal(self):
        """(application, folder) after an export whose folder was asked for."""
        made = sample("ordinary")
        application = self.start(PATH=str(self.tools))
        application.choose_package(made.package)
        application.inspect(made.passphrase)
        application.wait_for_snapshots()
        destination = self.scratch / "Recovered"
        application.choose_destination(destination)
        application.wait_for_completion()
        application.press(SHOW_IN_FINDER)
        return application, destination

    def assert_shows_path(self, application, folder):
        """The path of a folder is shown, as a text that is selected as a whole."""
        shown = application.wait_for_object(self.catalogue["files-export.folder"], Role.TEXT)
        self.assertEqual(str(folder), shown.text.translate(dict.fromkeys(map(ord, _ISOLATES))))
        self.assertEqual((0, shown.character_count), shown.selection)

    def assert_opens(self, folder):
        opened = wait_for("the opened folder", lambda: self.opened.exists() and self.opened.read_text(encoding="utf-8"))
        self.assertEqual(folder.as_uri() + "\n", opened)


class FileManagerThatRefuses(RevealingTestCase):
    def setUp(self):
        super().setUp()
        self.desktop.file_manager.answer = lambda _method, invocation: invocation.return_error_literal(
            Gio.dbus_error_quark(), Gio.DBusError.ACCESS_DENIED, "no")

    def test_the_containing_folder_is_opened_and_the_path_is_shown(self):
        self.install_opener()
        application, folder = self.reveal()
        self.assertEqual(("ShowItems", [folder.as_uri()]), self.desktop.file_manager.wait_for_call())
        self.assert_opens(folder.parent)
        self.assert_shows_path(application, folder)


class NoFileManager(RevealingTestCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.desktop.file_manager.close()

    def test_the_containing_folder_is_opened_and_the_path_is_shown(self):
        self.install_opener()
        application, folder = self.reveal()
        self.assert_opens(folder.parent)
        self.assert_shows_path(application, folder)

    def test_the_path_is_shown_if_nothing_opens_folders(self):
        application, folder = self.reveal()
        self.assert_shows_path(application, folder)
        self.assertFalse(self.opened.exists())


if __name__ == "__main__":
    case_results.main()
