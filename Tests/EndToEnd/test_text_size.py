"""The window follows the text size of the desktop while it is open, and keeps what was typed."""

from gi.repository import GLib

from bus_service import BusService
from recovery_test_case import RecoveryTestCase
from waiting import wait_for
import case_results

_GROUP = "org.gnome.desktop.interface"
_KEY = "text-scaling-factor"
_SETTINGS = """
<interface name="org.freedesktop.portal.Settings">
  <method name="ReadAll"><arg type="as" direction="in"/><arg type="a{sa{sv}}" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface>
"""
_PATH = "/org/freedesktop/portal/desktop"


class Settings(BusService):
    """A portal that knows the text size alone."""

    def __init__(self, bus_address, factor):
        self._factor = factor
        super().__init__(bus_address, "org.freedesktop.portal.Desktop", _PATH, _SETTINGS)

    def answer(self, method, invocation):
        groups = {_GROUP: {_KEY: GLib.Variant("d", self._factor)}}
        invocation.return_value(GLib.Variant("(a{sa{sv}})", (groups,)))

    def change(self, factor):
        self._bus.emit_signal(None, _PATH, "org.freedesktop.portal.Settings", "SettingChanged",
                              GLib.Variant("(ssv)", (_GROUP, _KEY, GLib.Variant("d", factor))))


class TextSize(RecoveryTestCase):
    def wait_for_height(self, application, height):
        wait_for(f"a field {height} high", lambda: application.secure_field().extents[3] == height)

    def test_is_followed_while_the_window_is_open(self):
        settings = Settings(self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"], 1.5)
        self.addCleanup(settings.close)
        application = self.start()
        application.choose_package(self.empty_package())
        self.wait_for_height(application, 63)
        application.type_credential("correct horse")
        settings.change(1.0)
        self.wait_for_height(application, 42)
        self.assertEqual("•" * len("correct horse"), application.secure_field().text)
        self.assertEqual((980, 720), tuple(application.window.extents[2:]))


if __name__ == "__main__":
    case_results.main()
