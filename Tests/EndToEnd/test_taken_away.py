"""The application's folder is taken away while it runs: by an update, or with the disk that it is on.

The application that was built lies where it was, and its texts would stand in. So this file gives itself a mount
namespace in which that is hidden, as on a machine that did not build it; where the system forbids that, it is skipped.
"""

import os
import shlex
import subprocess
import sys

from engines import export_report, prints
from recovery_test_case import BUILT_APPLICATION, RecoveryTestCase
import case_results

_IN_NAMESPACE = "AMBREL_TEST_IN_NAMESPACE"


class TakenAway(RecoveryTestCase):
    def setUp(self):
        if _IN_NAMESPACE not in os.environ:
            self.skipTest("this system grants the test no mount namespace")
        super().setUp()
        subprocess.run(["mount", "-t", "tmpfs", "none", BUILT_APPLICATION], check=True)
        self.addCleanup(subprocess.run, ["umount", BUILT_APPLICATION], check=True)
        self.assertEqual([], os.listdir(BUILT_APPLICATION))

    def test_in_the_middle_of_an_export(self):
        gate = self.scratch / "gate"
        engine = self.scripted_engine(
            export=f"while [ ! -e {shlex.quote(str(gate))} ]; do sleep 0.02; done; {prints(export_report())}")
        application = self.start()
        package = self.empty_package()
        application.choose_package(package)
        application.inspect("secret")
        application.wait_for_snapshots()
        application.choose_destination(self.scratch / "Recovered")
        engine.wait_for_run(2)
        self.installation.directory.rename(self.scratch / "elsewhere")
        gate.touch()
        application.wait_for_completion()
        application.wait_for_text(self.catalogue["recovery.choose-another-package.action"])

        # Only the next run of the engine needs what is gone.
        application.press(self.catalogue["recovery.choose-another-package.action"])
        application.choose_package(package)
        application.inspect("secret")
        self.assert_alert(application, "generic")
        self.assertEqual(2, len(engine.runs))
        application.close_window()
        self.assertEqual(0, application.wait_for_end())


if __name__ == "__main__":
    if _IN_NAMESPACE not in os.environ:
        namespace = ["unshare", "--mount"] if os.geteuid() == 0 else ["unshare", "--user", "--map-root-user", "--mount"]
        if subprocess.run([*namespace, "true"], check=False).returncode == 0:
            os.environ[_IN_NAMESPACE] = "1"
            os.execvp("unshare", [*namespace, sys.executable, "-B", *sys.argv])
    case_results.main()
