"""A whole recovery with the installed program, which is upgraded in the middle of the export.

Usage: installed_walk.py SAMPLE-FOLDER UPGRADE-COMMAND...
"""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import threading

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "EndToEnd"))

# pylint: disable=wrong-import-position
from catalogue import Catalogue
from display import Desktop
from installation import environment_of
from package_digest import contents
from package_guard import PackageGuard
from recovery_application import RecoveryApplication
from samples import Sample
from waiting import wait_for
import processes

_COMMAND = "ambrel-recovery-app"


class InstalledProgram:
    """The program that the command on the PATH starts, where the package has put it."""

    def __init__(self):
        self.executable = shutil.which(_COMMAND)
        self.directory = pathlib.Path(self.executable).resolve().parent
        self.engine = self.directory / "Resources/bin/ambrel-recovery"
        self.catalogue = Catalogue(self.directory)

    def files(self):
        """The program, its engine and its texts, each as a file that an upgrade replaces: its path and its inode."""
        return {(path, path.stat().st_ino) for path in self.directory.rglob("*") if path.is_file()}


class StoppedExport:
    """A context manager: the first export of an engine that starts inside it is stopped at once, and goes on later."""

    def __init__(self, engine):
        self._engine = str(engine)
        self._ended = threading.Event()
        self._watcher = threading.Thread(target=self._watch)
        self.process = None

    def __enter__(self):
        self._watcher.start()
        return self

    def __exit__(self, *_):
        self._ended.set()
        self._watcher.join()
        if self.process:
            self.go_on()

    def _watch(self):
        while not self._ended.wait(0.001) and self.process is None:
            for process in processes.running(self._engine):
                if " export " in processes.command_of(process):
                    os.kill(process, signal.SIGSTOP)
                    self.process = process

    def go_on(self):
        try:
            os.kill(self.process, signal.SIGCONT)
        except ProcessLookupError:
            pass


def inspect(application, sample):
    application.choose_package(sample.package)
    application.inspect(sample.passphrase)
    application.wait_for_snapshots()


def walk(desktop, program, sample, upgrade, scratch):
    packages = PackageGuard()
    application = RecoveryApplication(desktop, program, environment_of(desktop, scratch), scratch, packages)
    texts = program.catalogue
    destination = scratch / "Ambrel Recovered"
    try:
        inspect(application, sample)
        with StoppedExport(program.engine) as export:
            application.choose_destination(destination)
            wait_for("an export that is stopped", lambda: export.process)
            application.wait_for_text(texts["files-export.running"])
            assert not destination.exists(), "the export was complete before it was stopped"
            before = program.files()
            subprocess.run(upgrade, check=True, stdin=subprocess.DEVNULL)
            assert before.isdisjoint(program.files()), "the running program was not replaced"
        application.wait_for_completion()
        # The program that is no longer there goes on with the texts and the engine of the new one.
        application.press(texts["recovery.choose-another-package.action"])
        inspect(application, sample)
        application.close_window()
        assert application.wait_for_end() == 0
    finally:
        application.stop()
    assert not packages.changes(), f"the backup was changed: {packages.changes()}"
    originals, recovered = contents(sample.originals), contents(destination)
    assert sorted(recovered.values()) == sorted(originals.values()), "exported files differ from the originals"
    assert not os.listdir(scratch / "temporary"), "files were left in the temporary directory"
    assert not processes.running(str(program.directory)), "processes were left"
    return len(recovered)


def main(arguments):
    if len(arguments) < 2:
        sys.exit(__doc__)
    with tempfile.TemporaryDirectory(prefix="ambrel-walk.") as scratch, Desktop() as desktop:
        count = walk(desktop, InstalledProgram(), Sample.read(arguments[0]), arguments[1:], pathlib.Path(scratch))
    print(f"{count} exported files are byte for byte the originals; the program was upgraded while it exported them.")


if __name__ == "__main__":
    main(sys.argv[1:])
