"""Closing the window ends the application, whatever it is doing, and takes the engine with it."""

import signal
import unittest

from engines import waits
from recovery_test_case import RecoveryTestCase
from waiting import wait_for
import processes


class Closing(RecoveryTestCase):
    def setUp(self):
        super().setUp()
        self.engine = self.scripted_engine(inspect=waits())

    def assert_ends_well(self, application):
        application.close_window()
        self.assert_ended_well(application)

    def assert_ended_well(self, application):
        self.assertEqual(0, application.wait_for_end())
        wait_for("the end of the engine", lambda: not processes.running(str(self.installation.engine)), 10.0)
        self.assertEqual([], self.temporary_files())

    def test_at_the_start(self):
        self.assert_ends_well(self.start())

    def test_during_an_inspection(self):
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        self.engine.wait_for_run(1)
        self.assert_ends_well(application)

    def test_during_an_export(self):
        self.engine.behave(export=waits())
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_snapshots()
        application.choose_destination(self.scratch / "Recovered")
        self.engine.wait_for_run(2)
        self.assert_ends_well(application)
        self.assertFalse((self.scratch / "Recovered").exists())

    def test_at_a_logout(self):
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        self.engine.wait_for_run(1)
        application.process.send_signal(signal.SIGTERM)
        self.assert_ended_well(application)

    def test_right_after_a_cancellation(self):
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        self.engine.wait_for_run(1)
        application.press(self.catalogue["recovery.action.cancel-restore"])
        self.assert_ends_well(application)

    def test_after_the_whole_road(self):
        self.engine.behave()
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_snapshots()
        application.choose_destination(self.scratch / "Recovered")
        application.wait_for_completion()
        self.assert_ends_well(application)


if __name__ == "__main__":
    unittest.main()
