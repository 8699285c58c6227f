"""What keeps a machine awake: the desktop's portal and the system's login manager, as far as they are spoken to."""

import os
import select

from gi.repository import Gio, GLib

from bus_service import BusService

_PORTAL = """
<interface name="org.freedesktop.portal.Inhibit">
  <method name="Inhibit">
    <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="a{sv}" direction="in"/>
    <arg type="o" direction="out"/>
  </method>
</interface>
"""
_LOGIN_MANAGER = """
<interface name="org.freedesktop.login1.Manager">
  <method name="Inhibit">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="s" direction="in"/><arg type="h" direction="out"/>
  </method>
</interface>
"""


class Portal(BusService):
    """Grants every request for as long as the connection lasts that made it."""

    def __init__(self, bus_address):
        super().__init__(bus_address, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", _PORTAL)

    @property
    def held(self):
        """How many requests are granted now."""
        return sum(self.is_connected(caller) for caller in self.callers)

    def answer(self, method, invocation):
        handle = f"/org/freedesktop/portal/desktop/request/{len(self.calls)}"
        invocation.return_value(GLib.Variant("(o)", (handle,)))


class LoginManager(BusService):
    """Grants every request for as long as somebody holds the descriptor that it gave."""

    def __init__(self, bus_address):
        self._locks = []
        super().__init__(bus_address, "org.freedesktop.login1", "/org/freedesktop/login1", _LOGIN_MANAGER)

    @property
    def held(self):
        """How many requests are granted now."""
        waiting = select.poll()
        for lock in self._locks:
            waiting.register(lock, select.POLLIN)
        ended = [lock for lock, events in waiting.poll(0) if events & select.POLLHUP]
        return len(self._locks) - len(ended)

    def close(self):
        super().close()
        for lock in self._locks:
            os.close(lock)

    def answer(self, method, invocation):
        kept, given = os.pipe2(os.O_CLOEXEC)
        self._locks.append(kept)
        descriptors = Gio.UnixFDList.new()
        index = descriptors.append(given)
        os.close(given)
        invocation.return_value_with_unix_fd_list(GLib.Variant("(h)", (index,)), descriptors)
