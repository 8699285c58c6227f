"""A disk that takes four seconds for each answer about a chosen path: the window answers at once all the same."""

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

    def start_with_slow(self, path):
        return self.start(LD_PRELOAD=str(LIBRARY), AMBREL_SLOW_PATH=str(path), AMBREL_SLOW_LOG=str(self.log))

    def asked(self):
        return self.log.read_text().splitlines() if self.log.exists() else []

    def is_waited_for(self):
        """Whether a thread other than the main one waits for the disk. A panel may have asked before."""
        return self.asked()[-1:] == ["other thread"]

    def wait_for_question(self):
        wait_for("a question to the disk", self.is_waited_for)
        self.assertNotIn("main thread", self.asked())

    def test_a_package(self):
        package = self.empty_package()
        application = self.start_with_slow(package)
        application.choose_package(package)
        self.wait_for_question()
        application.choose_factor("recovery-key")
        application.choose_factor("passphrase")
        self.assertNotIn(package.name, application.texts())
        self.assertTrue(self.is_waited_for(), "the disk answered before the window did")
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
        self.assertTrue(self.is_waited_for(), "the disk answered before the window did")
        application.wait_for_completion()
        self.assertEqual(2, len(self.engine.runs))

    def test_the_window_can_be_closed_meanwhile(self):
        package = self.empty_package()
        application = self.start_with_slow(package)
        application.choose_package(package)
        self.wait_for_question()
        application.close_window()
        self.assertEqual(0, application.wait_for_end())
        self.assertTrue(self.is_waited_for(), "the application waited for the disk")


if __name__ == "__main__":
    case_results.main()
