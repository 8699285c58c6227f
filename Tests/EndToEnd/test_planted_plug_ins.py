"""Plug-ins of the toolkit come from the system's folder, whatever lies beside the application or is named."""

import os
import pathlib
import shutil
import tempfile

from recovery_test_case import RecoveryTestCase
import case_results

_PLANTED = pathlib.Path(os.environ["AMBREL_BUILD"]) / "Tests" / "EndToEnd" / "libPlantedPlugIn.so"


class PlantedPlugIns(RecoveryTestCase):
    # A colon, which separates the folders where several are named.
    scratch_prefix = "ambrel: recovery é."

    def plant(self, folder):
        """Puts the plug-in into a folder of plug-ins, of which it is one that the toolkit is asked for."""
        (folder / "generic").mkdir(parents=True)
        shutil.copy(_PLANTED, folder / "generic")

    def assert_not_loaded(self, **environment):
        application = self.start(QT_QPA_GENERIC_PLUGINS="planted", **environment)
        with open(f"/proc/{application.process.pid}/maps", encoding="utf-8") as maps:
            loaded = {os.path.basename(line.strip()) for line in maps}
        self.assertIn("libqxcb.so", loaded)
        self.assertFalse(_PLANTED.name in loaded, "the planted plug-in is loaded")

    def test_beside_the_executable(self):
        self.plant(self.installation.directory)
        self.assert_not_loaded()

    def test_where_a_configuration_beside_the_executable_leads(self):
        self.plant(self.installation.directory / "planted")
        for name in ("qt.conf", "qt6.conf"):
            (self.installation.directory / name).write_text("[Paths]\nPrefix=.\nPlugins=planted\n")
        self.assert_not_loaded()

    def test_where_the_environment_leads(self):
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.plant(folder)
        self.assert_not_loaded(QT_PLUGIN_PATH=str(folder), QT_QPA_PLATFORM_PLUGIN_PATH=str(folder / "generic"))


if __name__ == "__main__":
    case_results.main()
