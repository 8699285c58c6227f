"""The window follows the text size of the desktop while it is open, and keeps what was typed."""

from gi.repository import GLib

from desktop_settings import DesktopSettings
from recovery_test_case import RecoveryTestCase
from waiting import wait_for
import case_results


class TextSize(RecoveryTestCase):
    def wait_for_height(self, application, height):
        wait_for(f"a field {height} high", lambda: application.secure_field().extents[3] == height)

    def test_is_followed_while_the_window_is_open(self):
        settings = DesktopSettings(self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"],
                                   text_scaling_factor=GLib.Variant("d", 1.5))
        self.addCleanup(settings.close)
        application = self.start()
        application.choose_package(self.empty_package())
        self.wait_for_height(application, 63)
        application.type_credential("correct horse")
        settings.change("text-scaling-factor", GLib.Variant("d", 1.0))
        self.wait_for_height(application, 42)
        self.assertEqual("•" * len("correct horse"), application.secure_field().text)
        self.assertEqual((980, 720), tuple(application.window.extents[2:]))


if __name__ == "__main__":
    case_results.main()
