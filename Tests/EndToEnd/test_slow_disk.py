"""A disk that does not answer for a while what a chosen path is: the window answers at once all the same."""

import os
import pathlib

from recovery_test_case import RecoveryTestCase
from waiting import wait_for
import case_results

LIBRARY = pathlib.Path(os.environ["AMBREL_BUILD"]) / "Tests" / "EndToEnd" / "libslow-disk.so"


class SlowDisk(RecoveryTestCase):
    def setUp(self):
        super().setUp()
        self.engine = self.scripted_engine()
        self.log = self.scratch / "asked of the disk"
        self.gate = self.scratch / "gate"

    def start_with_slow(self, path):
        """The application, of whose questions about a path none is answered before the gate is open."""
        # The library is named without its folder, since a space would end its name.
        return self.start(LD_PRELOAD=LIBRARY.name, LD_LIBRARY_PATH=str(LIBRARY.parent), AMBREL_SLOW_PATH=str(path),
                          AMBREL_SLOW_LOG=str(self.log), AMBREL_SLOW_GATE=str(self.gate))

    def asked(self):
        return self.log.read_text().splitlines() if self.log.exists() else []

    def wait_for_question(self):
        wait_for("a question to the disk", self.asked)

    def assert_only_other_threads_wait(self):
        self.assertEqual({"other thread"}, set(self.asked()))

    def test_a_package(self):
        package = self.empty_package()
        application = self.start_with_slow(package)
        application.choose_package(package)
        self.wait_for_question()
        application.choose_factor("recovery-key")
        application.choose_factor("passphrase")
        self.assertNotIn(package.name, application.texts())
        self.assert_only_other_threads_wait()
        self.gate.touch()
        application.wait_for_text(package.name)
        application.inspect("secret")
        application.wait_for_snapshots()

    def test_a_destination(self):
        folder = self.scratch / "Slow"
        folder.mkdir()
        application = self.start_with_slow(folder)
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_snapshots()
        application.choose_destination(folder / "Recovered")
        self.wait_for_question()
        self.assertTrue(application.is_enabled(self.catalogue["files-export.start"]))
        self.assert_only_other_threads_wait()
        self.gate.touch()
        application.wait_for_completion()
        self.assertNotIn("main thread", self.asked())
        self.assertEqual(2, len(self.engine.runs))

    def test_the_window_can_be_closed_meanwhile(self):
        package = self.empty_package()
        application = self.start_with_slow(package)
        application.choose_package(package)
        self.wait_for_question()
        application.close_window()
        self.assertEqual(0, application.wait_for_end())
        self.assert_only_other_threads_wait()


if __name__ == "__main__":
    case_results.main()
