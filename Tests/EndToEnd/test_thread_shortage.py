"""An application that gets no thread for what it does in the background: it says so, and goes on once there is one."""

import os
import pathlib

from recovery_test_case import RecoveryTestCase
from waiting import wait_for
import case_results

LIBRARY = pathlib.Path(os.environ["AMBREL_BUILD"]) / "Tests" / "EndToEnd" / "libno-threads.so"


class ThreadShortage(RecoveryTestCase):
    def test_from_the_start_on(self):
        self.scripted_engine()
        package = self.empty_package()
        sign = self.scratch / "no threads"
        sign.touch()
        left = self.scratch / "temporary" / "com.ambrel.recovery-output.01234567-89AB-4CDE-8F01-23456789ABCD"
        left.mkdir(parents=True)
        left.chmod(0o700)

        # The library is named without its folder, since a space would end its name.
        application = self.start(LD_PRELOAD=LIBRARY.name, LD_LIBRARY_PATH=str(LIBRARY.parent),
                                 AMBREL_NO_THREADS=str(sign))
        application.choose_package(package)
        self.assert_alert(application, "generic")
        self.assertNotIn(package.name, application.texts())
        self.assertEqual([left.name], self.temporary_files(), "what was left is for the next start to remove")

        sign.unlink()
        application.choose_package(package)
        application.wait_for_text(package.name)
        application.inspect("secret")
        application.wait_for_snapshots()
        application.close_window()
        self.assertEqual(0, application.wait_for_end())
        self.assertEqual([left.name], self.temporary_files())

        self.start()
        wait_for("the removal of what was left", lambda: self.temporary_files() == [])


if __name__ == "__main__":
    case_results.main()
