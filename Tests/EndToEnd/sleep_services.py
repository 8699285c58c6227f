"""What keeps a machine awake: the desktop's portal and the system's login manager, as far as they are spoken to."""

import os
import select

from gi.repository import Gio, GLib

from bus_service import BusService
import processes

_PORTAL = """
<interface name="org.freedesktop.portal.Inhibit">
  <method name="Inhibit">
    <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="a{sv}" direction="in"/>
    <arg type="o" direction="out"/>
  </method>
</interface>
<interface name="org.freedesktop.portal.Settings">
  <method name="ReadAll"><arg type="as" direction="in"/><arg type="a{sa{sv}}" direction="out"/></method>
</interface>
"""
_REQUEST = """
<interface name="org.freedesktop.portal.Request"><method name="Close"/></interface>
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
    """Grants every request until it is closed or the connection ends that made it.

    Like a real portal, it finds out at the first call of a connection who has that, for which it looks into the
    process, and refuses every call of one that it may not look into.
    """

    def __init__(self, bus_address):
        self._is_known = {}
        self._requests = {}
        self.refused = 0
        super().__init__(bus_address, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", _PORTAL)

    @property
    def held(self):
        """How many requests are granted now."""
        return sum(self.is_connected(caller) for caller in list(self._requests.values()))

    @property
    def known(self):
        """How many connections may call."""
        return sum(self._is_known.values())

    def answer(self, method, invocation):
        caller = invocation.get_sender()
        if caller not in self._is_known:
            self._is_known[caller] = processes.may_look_into(self.process_of(caller))
        if not self._is_known[caller]:
            self.refused += 1
            invocation.return_dbus_error("org.freedesktop.DBus.Error.AccessDenied", "Portal operation not allowed")
        elif method == "ReadAll":
            invocation.return_value(GLib.Variant("(a{sa{sv}})", ({},)))
        else:
            handle = f"/org/freedesktop/portal/desktop/request/{len(self.calls)}"
            self._requests[handle] = caller
            self.register(handle, _REQUEST, self._close_request)
            invocation.return_value(GLib.Variant("(o)", (handle,)))

    def _close_request(self, _bus, _sender, handle, _interface, _method, _arguments, invocation):
        del self._requests[handle]
        invocation.return_value(None)


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
