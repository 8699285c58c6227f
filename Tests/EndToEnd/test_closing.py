"""Closing the window ends the application, whatever it is doing, and takes the engine with it."""

import os
import signal

from application import WINDOW_TITLE
from catalogue import SHOW_IN_FINDER
from engines import ignores_requests_to_end, waits
from recovery_test_case import RecoveryTestCase
from waiting import wait_for
import case_results
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
        wait_for("the end of the engine", lambda: not processes.running(str(self.installation.engine)))
        self.assertEqual([], self.temporary_files())

    def test_at_the_start(self):
        self.assert_ends_well(self.start())

    def test_during_an_inspection(self):
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        self.engine.wait_for_run(1)
        self.assert_ends_well(application)

    def exporting(self):
        """(application, destination) while the engine exports."""
        self.engine.behave(export=waits())
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_snapshots()
        destination = self.scratch / "Recovered"
        application.choose_destination(destination)
        self.engine.wait_for_run(2)
        return application, destination

    def test_during_an_export(self):
        application, destination = self.exporting()
        self.assert_ends_well(application)
        self.assertFalse(destination.exists())

    def test_at_a_logout(self):
        for number, ending in enumerate((signal.SIGTERM, signal.SIGHUP, signal.SIGINT), start=1):
            with self.subTest(ending.name):
                application = self.start()
                application.choose_package(self.empty_package(f"{number}.ambrel"))
                application.inspect("secret")
                self.engine.wait_for_run(number)
                application.process.send_signal(ending)
                self.assert_ended_well(application)

    def test_during_an_export_at_a_logout(self):
        application, destination = self.exporting()
        application.process.send_signal(signal.SIGTERM)
        self.assert_ended_well(application)
        self.assertFalse(destination.exists())

    def test_right_after_a_cancellation(self):
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        self.engine.wait_for_run(1)
        application.press(self.catalogue["recovery.action.cancel-restore"])
        self.assert_ends_well(application)

    def test_after_a_whole_recovery(self):
        self.engine.behave()
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_snapshots()
        application.choose_destination(self.scratch / "Recovered")
        application.wait_for_completion()
        self.assert_ends_well(application)

    def test_while_the_session_bus_does_not_answer(self):
        self.engine.behave()
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_snapshots()
        application.choose_destination(self.scratch / "Recovered")
        application.wait_for_completion()
        with self.desktop.silent_session_bus():
            # By a key, which the window gets before the request to close; a press would come after that.
            application.focus(WINDOW_TITLE, application.button(SHOW_IN_FINDER))
            application.key("space")
            application.close_window()
            # Less than the application waits at its end for an engine.
            self.assertEqual(0, application.wait_for_end(4.0))


class DeafEngineTestCase(RecoveryTestCase):
    """An engine that goes on when it is asked to end does not outlive the application."""

    def inspecting(self):
        """(application, the engine's process identifier) while an engine inspects that ignores requests to end."""
        ready = self.scratch / "deaf"
        engine = self.scripted_engine(inspect=ignores_requests_to_end(ready))
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        wait_for("an engine that is deaf", ready.exists)
        pid = engine.wait_for_run(1).pid
        self.assertIn(pid, processes.descendants(os.getpid()))
        return application, pid

    def assert_gone(self, pid):
        self.assertNotIn(pid, processes.descendants(os.getpid()))
        self.assertEqual([], self.temporary_files())


class DeafEngine(DeafEngineTestCase):
    def test_when_the_window_is_closed(self):
        application, pid = self.inspecting()
        application.close_window()
        self.assertEqual(0, application.wait_for_end())
        self.assert_gone(pid)


class DeafEngineAtTheEndOfTheDisplay(DeafEngineTestCase):
    def test_at_the_end_of_the_display(self):
        application, pid = self.inspecting()
        self.desktop.end_display()
        application.wait_for_end()
        self.assert_gone(pid)


class EndOfTheDisplay(RecoveryTestCase):
    """A session that takes its display away without asking; the toolkit ends the process then."""

    def test_during_an_inspection(self):
        engine = self.scripted_engine(inspect=waits())
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        engine.wait_for_run(1)
        self.desktop.end_display()
        application.wait_for_end()
        self.assertEqual(set(), processes.running(str(self.installation.engine)))
        self.assertEqual([], self.temporary_files())


if __name__ == "__main__":
    case_results.main()
