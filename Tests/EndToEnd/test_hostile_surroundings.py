"""The application where something is missing that every desktop has, or is not what it should be."""

import pathlib

from application import WINDOW_TITLE
from installation import environment_of
from package_digest import contents
from recovery_test_case import RecoveryTestCase
from samples import sample
from waiting import DEFAULT_SECONDS, wait_for
import case_results
import processes
import window_manager

_NO_FONTS = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig></fontconfig>
"""


class HostileSurroundings(RecoveryTestCase):
    def walk(self, *arguments, **environment):
        """From the first screen to the last, and out."""
        made = sample("ordinary")
        application = self.start(*arguments, **environment)
        application.choose_package(made.package)
        application.inspect(made.passphrase)
        application.wait_for_snapshots()
        destination = self.scratch / f"Recovered {len(list(self.scratch.iterdir()))}"
        application.choose_destination(destination)
        application.wait_for_completion()
        self.assertEqual(sorted(contents(made.originals).values()), sorted(contents(destination).values()))
        application.close_window()
        self.assertEqual(0, application.wait_for_end())

    def test_a_home_folder_in_which_nothing_can_be_created(self):
        # Not even by root, who may write where permissions forbid it.
        file = self.scratch / "file"
        file.write_bytes(b"")
        for home in (file / "home", pathlib.Path("/proc")):
            with self.subTest(home=home):
                self.walk(HOME=str(home), XDG_CONFIG_HOME=str(home / "configuration"),
                          XDG_CACHE_HOME=str(home / "cache"), XDG_DATA_HOME=str(home / "data"))

    def test_no_fonts(self):
        configuration = self.scratch / "fonts.conf"
        configuration.write_text(_NO_FONTS, encoding="utf-8")
        self.walk(FONTCONFIG_FILE=str(configuration))

    def open_and_close(self, bus_address):
        """Without a session bus there is no accessibility tree: the window is looked for on the display alone."""
        environment = environment_of(self.desktop, self.scratch, DBUS_SESSION_BUS_ADDRESS=bus_address)
        process = processes.start([str(self.installation.executable)], env=environment)
        self.addCleanup(processes.stop, process)
        window = wait_for("the window", lambda: window_manager.window_of(
            self.desktop.environment, process.pid, WINDOW_TITLE))
        window_manager.request_close(self.desktop.display, window)
        self.assertEqual(0, process.wait(DEFAULT_SECONDS))
        self.assertEqual([], self.temporary_files())

    def test_a_missing_session_bus(self):
        for address in (f"unix:path={self.scratch}/nowhere", "no address at all"):
            with self.subTest(address=address):
                self.open_and_close(address)

    def test_options_of_the_toolkit_have_no_effect(self):
        self.walk("-platform", "bogus", "-reverse", "-style", "windows", "-stylesheet", "/nowhere",
                  "-display", ":65000", "-geometry", "10x10")


if __name__ == "__main__":
    case_results.main()
