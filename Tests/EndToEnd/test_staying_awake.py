"""The machine stays awake while the engine works, and not a moment longer, however the work or the application ends."""

import shutil

from engines import waits
from recovery_test_case import RecoveryTestCase
from sleep_services import LoginManager, Portal
from waiting import wait_for
import case_results
import processes


class StayingAwake:
    """What holds whoever keeps the machine awake: `self.service`."""

    def use(self, service):
        self.service = service
        self.addCleanup(service.close)
        self.engine = self.scripted_engine(inspect=waits())

    def inspecting(self):
        application = self.start()
        application.choose_package(self.empty_package())
        self.assertEqual(0, self.service.held)
        application.inspect("secret")
        self.engine.wait_for_run(1)
        self.wait_until_held(1)
        return application

    def requests(self):
        return sum(method == "Inhibit" for method, _ in self.service.calls)

    def wait_until_held(self, number):
        wait_for(f"{number} granted requests", lambda: self.service.held == number and
                 (number == 0 or self.requests() > 0))

    def test_until_an_inspection_is_cancelled(self):
        application = self.inspecting()
        application.press(self.catalogue["recovery.action.cancel-restore"])
        self.wait_until_held(0)
        self.assertEqual(1, self.requests())

    def test_until_an_inspection_and_an_export_are_over(self):
        self.engine.behave(export=waits())
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_snapshots()
        self.wait_until_held(0)
        application.choose_destination(self.scratch / "Recovered")
        self.engine.wait_for_run(2)
        self.wait_until_held(1)
        application.press(self.catalogue["recovery.action.cancel-restore"])
        self.wait_until_held(0)
        for secret in ("secret", "Family Photos", "Recovered"):
            self.assertNotIn(secret, repr(self.service.calls))

    def test_until_the_window_is_closed(self):
        application = self.inspecting()
        application.close_window()
        self.assertEqual(0, application.wait_for_end())
        self.wait_until_held(0)

    def test_until_the_application_is_killed(self):
        application = self.inspecting()
        run = self.engine.wait_for_run(1)
        application.process.kill()
        application.wait_for_end()
        self.wait_until_held(0)
        # Nobody was left to end the engine and to remove its outputs.
        processes.end_all({run.pid})
        for name in self.temporary_files():
            shutil.rmtree(self.scratch / "temporary" / name)


class ThroughThePortal(StayingAwake, RecoveryTestCase):
    def setUp(self):
        super().setUp()
        self.use(Portal(self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"]))

    def start(self, *arguments, **environment):
        """Waits until the portal knows the application's connections: it refuses those that come too late."""
        application = super().start(*arguments, **environment)
        wait_for("two known connections", lambda: self.service.known == 2)
        return application

    def test_while_the_application_is_closed_to_other_programs(self):
        application = self.inspecting()
        self.assertFalse(processes.may_look_into(application.process.pid))
        self.assertEqual(0, self.service.refused)


class ThroughTheLoginManager(StayingAwake, RecoveryTestCase):
    def setUp(self):
        super().setUp()
        self.desktop.start_system_bus()
        self.use(LoginManager(self.desktop.environment["DBUS_SYSTEM_BUS_ADDRESS"]))


if __name__ == "__main__":
    case_results.main()
