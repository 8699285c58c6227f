"""A whole recovery of the sample backup, with a picture of every screen.

Usage: walkthrough.py SAMPLE-FOLDER PICTURE-FOLDER [FORKED-SAMPLE-FOLDER]

The backup with two histories is made by the way where none is given. The desktop wants no motion, so that the same
samples give the same pictures.

Needs AMBREL_APPLICATION, the folder of the built application, and AMBREL_BUILD, the folder of the build.
"""

import os
import pathlib
import shutil
import sys
import tempfile

from gi.repository import GLib

from desktop_settings import DesktopSettings
from display import Desktop
from engines import gated
from installation import Installation, environment_of
from package_digest import contents
from package_guard import PackageGuard
from recovery_application import RecoveryApplication
from samples import Sample, sample
from waiting import wait_for
import processes


class Walkthrough:
    """Walks with one running application. The engine waits at each step until its picture is taken."""

    def __init__(self, application, installation, scratch, pictures, earlier_pictures=0):
        self._application = application
        self._texts = application.catalogue
        self._scratch = scratch
        self._pictures = pictures
        self._count = earlier_pictures
        self._gate = scratch / "gate"
        gated(installation.engine, self._gate)

    def _picture(self, name):
        self._count += 1
        # As it looks to a user of the pointer.
        self._application.click_beside_everything()
        self._application.picture(self._pictures / f"{self._count:02}-{name}.png")

    def _through_gate(self, running_text, name):
        """Takes the picture of a running step and lets the engine go on."""
        self._application.wait_for_text(running_text)
        self._picture(name)
        self._gate.touch()

    def _close_gate(self):
        self._gate.unlink(missing_ok=True)

    def recover(self, sample):
        """From the first screen to the last. Gives the folder that was exported."""
        application, texts = self._application, self._texts
        self._picture("choose")
        application.choose_package(sample.package)
        application.wait_for_text(sample.package.name)
        application.type_credential(sample.passphrase, by_keyboard=True)
        wait_for("“inspect”", lambda: application.is_enabled(texts["recovery.inspect.action"]))
        # Out of the field, where the caret blinks.
        application.key("Tab")
        self._picture("filled")
        application.press_inspect()
        self._through_gate(texts["recovery.inspecting"], "inspecting")
        application.wait_for_snapshots()
        self._picture("snapshots")
        self._close_gate()
        destination = self._scratch / "Ambrel Recovered"
        application.choose_destination(destination)
        self._through_gate(texts["files-export.running"], "exporting")
        application.wait_for_completion()
        self._picture("complete")
        application.press(texts["recovery.choose-another-package.action"])
        application.button(texts["recovery.inspect.action"])
        return destination

    def alert(self, sample):
        """A passphrase that does not fit."""
        self._application.choose_package(sample.package)
        self._application.inspect("not the passphrase")
        expected = self._texts.failure("wrong-passphrase")
        shown = self._application.wait_for_alert()
        assert shown == expected, f"the alert shows {shown}"
        self._picture("alert")
        self._application.dismiss_alert()

    def fork(self, sample):
        """A backup with two histories."""
        self._application.choose_package(sample.package)
        self._application.inspect(sample.passphrase)
        self._application.wait_for_text(self._texts["recovery.branch.fork.title"])
        self._picture("fork")

    def snapshots_in(self, sample, language):
        """The screen of the snapshots alone, of an application in another language."""
        title = self._texts["recovery.choose-package.action"]
        self._application.press(title)
        # The keyboard would need the window by its title, which xdotool reads in few languages only.
        self._application.answer_open_panel_without_keyboard(title, sample.package)
        self._application.inspect(sample.passphrase)
        self._application.wait_for_snapshots()
        self._picture(f"snapshots-{language}")


def walk_in_arabic(desktop, application_directory, ordinary, pictures, scratch, packages):
    """What is mirrored, from right to left. The gate of the engine is open since the first walk."""
    installation = Installation(application_directory, scratch / "Arabic", "ar")
    environment = environment_of(desktop, scratch, LANGUAGE="ar", LC_ALL="ar_EG.UTF-8")
    application = RecoveryApplication(desktop, installation, environment, scratch, packages)
    try:
        earlier = len(list(pictures.iterdir()))
        Walkthrough(application, installation, scratch, pictures, earlier).snapshots_in(ordinary, "ar")
    finally:
        application.stop()
    assert not processes.running(str(installation.directory)), "processes were left"


def walk(desktop, application_directory, ordinary, forked, pictures, scratch):
    """The whole walk. Raises AssertionError where something is not as it should be."""
    packages = PackageGuard()
    installation = Installation(application_directory, scratch / "AmbrelRecovery")
    application = RecoveryApplication(desktop, installation, environment_of(desktop, scratch), scratch,
                                      packages)
    try:
        walkthrough = Walkthrough(application, installation, scratch, pictures)
        exported = walkthrough.recover(ordinary)
        walkthrough.alert(ordinary)
        walkthrough.fork(forked)
    finally:
        application.stop()
    walk_in_arabic(desktop, application_directory, ordinary, pictures, scratch, packages)
    assert not packages.changes(), f"a package was changed: {packages.changes()}"
    originals, recovered = contents(ordinary.originals), contents(exported)
    assert sorted(recovered.values()) == sorted(originals.values()), "exported files differ from the originals"
    assert not os.listdir(scratch / "temporary"), "files were left in the temporary directory"
    assert not processes.running(str(installation.directory)), "processes were left"
    return len(recovered)


def main(arguments):
    if len(arguments) not in (2, 3):
        print(__doc__, file=sys.stderr)
        return 2
    sample_folder, pictures, *forked = (pathlib.Path(argument).resolve() for argument in arguments)
    shutil.rmtree(pictures, ignore_errors=True)
    pictures.mkdir(parents=True)
    print("Running through a whole recovery on a virtual display…")
    with tempfile.TemporaryDirectory(prefix="ambrel-walk.") as scratch, Desktop() as desktop:
        settings = DesktopSettings(desktop.environment["DBUS_SESSION_BUS_ADDRESS"],
                                   enable_animations=GLib.Variant("b", False))
        try:
            count = walk(desktop, os.environ["AMBREL_APPLICATION"], Sample.read(sample_folder),
                         Sample.read(forked[0]) if forked else sample("forked"), pictures, pathlib.Path(scratch))
        finally:
            settings.close()
    print(f"A picture of every screen is in {pictures}:")
    for path in sorted(pictures.iterdir()):
        print(f"  {path.name}")
    print(f"{count} exported files are byte for byte the originals; the backup is unchanged.")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
