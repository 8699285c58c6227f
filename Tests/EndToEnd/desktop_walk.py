"""A whole recovery on a real desktop, with pictures, and what the desktop knows about the window.

Usage: desktop_walk.py gnome|kde wayland|x11 SCALE PREFIX SAMPLE-FOLDER PICTURE-FOLDER

Needs AMBREL_APPLICATION, the folder of the built application. Below PREFIX, its desktop entry, icons and command are
installed.
"""

import os
import pathlib
import sys
import tempfile

from catalogue import SHOW_IN_FINDER
from engines import gated
from gnome_desktop import GnomeDesktop
from installation import Installation, environment_of
from kde_desktop import KdeDesktop
from package_digest import contents
from package_guard import PackageGuard
from recovery_application import RecoveryApplication
from samples import Sample
from waiting import wait_for

_DESKTOPS = {"gnome": GnomeDesktop, "kde": KdeDesktop}


class DesktopWalk:
    """Walks with one running application. The engine waits at each step until its picture is taken."""

    def __init__(self, desktop, application, installation, scratch, pictures):
        self._desktop = desktop
        self._application = application
        self._texts = application.catalogue
        self._scratch = scratch
        self._pictures = pictures
        self._count = 0
        self._gate = scratch / "gate"
        gated(installation.engine, self._gate)

    def _tell_windows(self):
        for window in self._desktop.windows():
            print(f"  window: {window}")

    def _picture(self, name):
        self._count += 1
        self._desktop.picture(self._pictures / f"{self._count:02}-{name}.png")

    def recover(self, sample):
        """From the first screen to the file manager. Gives the folder that was exported."""
        application, texts = self._application, self._texts
        self._picture("choose")
        self._tell_windows()
        title = texts["recovery.choose-package.action"]
        application.press(title)
        application.panel_name_field(title)
        self._picture("open-panel")
        application.answer_panel_without_keyboard(title, sample.package)
        application.wait_for_text(sample.package.name)
        application.type_credential(sample.passphrase)
        self._picture("filled")
        application.press_inspect()
        application.wait_for_text(texts["recovery.inspecting"])
        self._gate.touch()
        application.wait_for_snapshots()
        self._picture("snapshots")
        self._gate.unlink()
        destination = self._scratch / "Ambrel Recovered"
        application.press(texts["files-export.start"])
        title = texts["files-export.choose-destination"]
        application.panel_name_field(title)
        self._picture("save-panel")
        application.answer_panel_without_keyboard(title, destination, texts["files-export.start"])
        application.wait_for_text(texts["files-export.running"])
        self._picture("exporting")
        wait_for("the lock of the login manager", lambda: self._desktop.locks == 1)
        print(f"  awake: {self._desktop.inhibitions()}")
        self._gate.touch()
        application.wait_for_completion()
        wait_for("the end of what keeps the machine awake",
                 lambda: not self._desktop.locks and not self._desktop.inhibitions())
        self._picture("complete")
        application.press(SHOW_IN_FINDER)
        wait_for("the window of the file manager",
                 lambda: any(self._scratch.name in title for title in self._desktop.titles()))
        self._picture("revealed")
        self._tell_windows()
        return destination


def main(arguments):
    if len(arguments) != 6:
        print(__doc__, file=sys.stderr)
        return 2
    name, display, scale, prefix, sample_folder, pictures = arguments
    pictures = pathlib.Path(pictures).resolve()
    pictures.mkdir(parents=True, exist_ok=True)
    sample = Sample.read(sample_folder)
    packages = PackageGuard()
    with tempfile.TemporaryDirectory(prefix="ambrel-walk.") as scratch, \
            _DESKTOPS[name](display == "wayland", float(scale), prefix, pictures) as desktop:
        scratch = pathlib.Path(scratch)
        installation = Installation(os.environ["AMBREL_APPLICATION"], scratch / "AmbrelRecovery")
        # X11's desktops find the entry by the name of the command, with which the entry starts the application.
        command = scratch / "ambrel-recovery-app"
        command.symlink_to(installation.executable)
        installation.executable = command
        application = RecoveryApplication(desktop, installation, environment_of(desktop, scratch), scratch, packages)
        try:
            exported = DesktopWalk(desktop, application, installation, scratch, pictures).recover(sample)
        finally:
            application.stop()
        assert sorted(contents(exported).values()) == sorted(contents(sample.originals).values()), "files differ"
    assert not packages.changes(), "the package was changed"
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
