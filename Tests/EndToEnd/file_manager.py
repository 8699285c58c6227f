"""The desktop's file manager, as far as the application speaks to it: it remembers what it was asked to show."""

import threading

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from waiting import wait_for  # noqa: E402

_INTERFACE = """
<node>
  <interface name="org.freedesktop.FileManager1">
    <method name="ShowItems"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>
    <method name="ShowFolders"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>
  </interface>
</node>
"""


class FileManager:
    """Owns org.freedesktop.FileManager1 on a session bus until it is closed."""

    def __init__(self, bus_address):
        self.calls = []
        self._context = GLib.MainContext()
        self._loop = GLib.MainLoop(self._context)
        self._ready = threading.Event()
        self._address = bus_address
        self._thread = threading.Thread(target=self._serve, name="file manager", daemon=True)
        self._thread.start()
        if not self._ready.wait(20):
            raise RuntimeError("the file manager could not take its name on the bus")

    def wait_for_call(self):
        """The first call since `calls` was cleared, as (method, locations)."""
        wait_for("a call of the file manager", lambda: self.calls)
        return self.calls[0]

    def close(self):
        self._loop.quit()
        self._thread.join(10)

    def _serve(self):
        self._context.push_thread_default()
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        bus = Gio.DBusConnection.new_for_address_sync(self._address, flags, None, None)
        interface = Gio.DBusNodeInfo.new_for_xml(_INTERFACE).interfaces[0]
        bus.register_object("/org/freedesktop/FileManager1", interface, self._called, None, None)
        bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                      GLib.Variant("(su)", ("org.freedesktop.FileManager1", 0)), None,
                      Gio.DBusCallFlags.NONE, -1, None)
        self._ready.set()
        self._loop.run()
        bus.close_sync(None)

    def _called(self, _bus, _sender, _path, _interface, method, arguments, invocation):
        self.calls.append((method, arguments.unpack()[0]))
        invocation.return_value(None)
