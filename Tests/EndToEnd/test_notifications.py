"""The end of a long step is told to a user who looks at another window."""

from gi.repository import GLib

from bus_service import BusService
from engines import fails, gated
from recovery_test_case import RecoveryTestCase
from waiting import wait_for
import case_results

_INTERFACE = """
<interface name="org.freedesktop.Notifications">
  <method name="GetCapabilities"><arg type="as" direction="out"/></method>
  <method name="Notify">
    <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
    <arg type="a{sv}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/>
  </method>
  <method name="CloseNotification"><arg type="u" direction="in"/></method>
</interface>
"""
_BODY = 4


class NotificationServer(BusService):
    def __init__(self, bus_address):
        super().__init__(bus_address, "org.freedesktop.Notifications", "/org/freedesktop/Notifications", _INTERFACE)

    @property
    def texts(self):
        return [arguments[_BODY] for method, arguments in self.calls if method == "Notify"]

    def answer(self, method, invocation):
        answers = {"GetCapabilities": GLib.Variant("(as)", (["body", "actions"],)), "Notify": GLib.Variant("(u)", (5,))}
        invocation.return_value(answers.get(method))


class Notifications(RecoveryTestCase):
    def setUp(self):
        super().setUp()
        self.server = NotificationServer(self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(self.server.close)
        self.gate = self.scratch / "gate"

    def inspect_elsewhere(self, **behavior):
        """Starts an inspection, and lets it end while no window has the keyboard."""
        self.scripted_engine(**behavior)
        gated(self.installation.engine, self.gate)
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_text(self.catalogue["recovery.inspecting"])
        application.focus_window()
        application.take_keyboard_away()
        self.gate.touch()
        return application

    def test_the_end_of_an_inspection(self):
        application = self.inspect_elsewhere()
        self.server.wait_for_call("Notify")
        self.assertEqual([self.catalogue["recovery.snapshots.title"]], self.server.texts)
        self.assertNotIn("Family Photos", repr(self.server.calls))
        self.assertFalse(application.is_active)
        application.focus_window()
        self.assertEqual((5,), self.server.wait_for_call("CloseNotification")[1])
        wait_for("the end of the connection", lambda: not self.server.is_connected(self.server.callers[0]))

    def test_a_failure(self):
        application = self.inspect_elsewhere(inspect=fails("did not unlock"))
        self.server.wait_for_call("Notify")
        self.assertEqual([self.catalogue.failure("wrong-passphrase")[0]], self.server.texts)
        application.focus_window()
        self.server.wait_for_call("CloseNotification")
        self.assert_alert(application, "wrong-passphrase")

    def test_no_notification_while_the_window_is_active(self):
        self.scripted_engine()
        application = self.start()
        application.choose_package(self.empty_package())
        application.focus_window()
        application.inspect("secret")
        application.wait_for_snapshots()
        application.close_window()
        application.wait_for_end()
        self.assertEqual([], self.server.texts)


if __name__ == "__main__":
    case_results.main()
