"""A desktop portal that knows settings of the desktop and nothing else."""

from gi.repository import GLib

from bus_service import BusService

_INTERFACE = "org.freedesktop.portal.Settings"
_INTERFACES = f"""
<interface name="{_INTERFACE}">
  <method name="ReadAll"><arg type="as" direction="in"/><arg type="a{{sa{{sv}}}}" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface>
"""
_PATH = "/org/freedesktop/portal/desktop"
_GROUP = "org.gnome.desktop.interface"


class DesktopSettings(BusService):
    """Owns the portal's name on the bus at an address. `settings` are GLib.Variant by the name of the setting."""

    def __init__(self, bus_address, **settings):
        self._settings = {name.replace("_", "-"): value for name, value in settings.items()}
        super().__init__(bus_address, "org.freedesktop.portal.Desktop", _PATH, _INTERFACES)

    def answer(self, method, invocation):
        invocation.return_value(GLib.Variant("(a{sa{sv}})", ({_GROUP: self._settings},)))

    def change(self, name, value):
        """Tells everybody who listens that a setting has another value now."""
        self._bus.emit_signal(None, _PATH, _INTERFACE, "SettingChanged", GLib.Variant("(ssv)", (_GROUP, name, value)))
