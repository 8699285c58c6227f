"""What the end-to-end tests have in common: a desktop, an application of their own, and nothing left behind."""

import os
import pathlib
import shutil
import tempfile
import unittest

from display import Desktop
from engines import ScriptedEngine
from installation import Installation, environment_of
from package_guard import PackageGuard
from recovery_application import RecoveryApplication
import processes

BUILT_APPLICATION = os.environ["AMBREL_APPLICATION"]


class RecoveryTestCase(unittest.TestCase):
    """One desktop for all tests of a class; for each test a copy of the application and a folder that is checked.

    After each test the temporary directory is empty, nothing but the settings was written into the home directory, no
    process is left, and every package that was chosen is as it was before, whatever happened in the test.
    """

    maxDiff = None
    # A space and a letter beyond ASCII: paths are passed on as they are.
    scratch_prefix = "ambrel recovery é."

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop())

    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp(prefix=self.scratch_prefix))
        self.addCleanup(shutil.rmtree, self.scratch, ignore_errors=True)
        self.installation = Installation(BUILT_APPLICATION, self.scratch / "Ambrel Recovery")
        self.catalogue = self.installation.catalogue
        self.desktop.file_manager.calls.clear()
        self.addCleanup(self.desktop.accessibility.stop_listening)
        self.packages = PackageGuard()
        self.addCleanup(lambda: self.assertEqual([], self.packages.changes(), "a package was changed"))

    def start(self, *arguments, **environment):
        """Starts the application and checks at the end of the test that nothing of it is left."""
        self.environment = environment_of(self.desktop, self.scratch, **environment)
        application = RecoveryApplication(self.desktop, self.installation, self.environment, self.scratch,
                                          self.packages, arguments)
        self.addCleanup(self._end, application)
        return application

    def _end(self, application):
        application.stop()
        left = processes.running(str(self.installation.directory))
        processes.end_all(left)
        self.assertEqual(set(), left, "processes were left")
        self.assertEqual([], self.temporary_files(), "files were left in the temporary directory")
        self.assertEqual([], self.files_at_home(), "files were written into the home directory")

    def temporary_files(self):
        return sorted(os.listdir(self.scratch / "temporary"))

    def files_at_home(self):
        """What is in the home directory besides the settings and what the font library caches."""
        home = self.scratch / "home"
        expected = (".config/Ambrel/Recovery.conf", ".cache/fontconfig/")
        names = [str(path.relative_to(home)) for path in sorted(home.rglob("*")) if not path.is_dir()]
        return [name for name in names if not name.startswith(expected)]

    def scripted_engine(self, **behavior):
        """Puts a scripted engine into the application's place for it."""
        engine = ScriptedEngine(self.installation.engine, self.scratch / "engine runs")
        engine.behave(**behavior)
        return engine

    def empty_package(self, name="Family Photos.ambrel"):
        """A folder that the application takes for a package; scripted engines do not look into it."""
        package = self.scratch / name
        package.mkdir()
        (package / "some file").write_bytes(b"not for the application to read")
        self.packages.watch(package)
        return package

    def assert_alert(self, application, kind):
        """The alert of a failure is shown, with exactly its texts; dismisses it."""
        self.assertEqual(self.catalogue.failure(kind), application.wait_for_alert())
        application.dismiss_alert()
