"""A service on a message bus, as far as the application speaks to it: it notes every call, and a test may answer."""

import threading

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from waiting import wait_for  # noqa: E402

_BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus")


class BusService:
    """Owns `name` on the bus at an address, with an object of some interfaces, until it is closed.

    `calls` are (method, arguments) in the order of their arrival, `callers` the connections that made them. `answer`
    is called for each on a thread of the service's own.
    """

    def __init__(self, bus_address, name, path, interfaces):
        self.calls = []
        self.callers = []
        self._name = name
        self._path = path
        self._interfaces = interfaces
        self._bus = None
        self._context = GLib.MainContext()
        self._loop = GLib.MainLoop(self._context)
        self._ready = threading.Event()
        self._address = bus_address
        self._thread = threading.Thread(target=self._serve, name=name, daemon=True)
        self._thread.start()
        if not self._ready.wait(20):
            raise RuntimeError(f"{name} could not be taken on the bus")

    def wait_for_call(self, method=None):
        """The first call, of a method where one is named, since `calls` was cleared, as (method, arguments)."""
        return wait_for(f"a call of {method or self._name}",
                        lambda: next((call for call in self.calls if method in (None, call[0])), None))

    def is_connected(self, caller):
        """Whether a connection that made a call is still there."""
        return self._bus.call_sync(*_BUS, "NameHasOwner", GLib.Variant("(s)", (caller,)), None,
                                   Gio.DBusCallFlags.NONE, -1, None).unpack()[0]

    def process_of(self, caller):
        """The identifier of the process that has a connection."""
        return self._bus.call_sync(*_BUS, "GetConnectionUnixProcessID", GLib.Variant("(s)", (caller,)), None,
                                   Gio.DBusCallFlags.NONE, -1, None).unpack()[0]

    def register(self, path, interfaces, called):
        """Has calls to another object taken. On the service's own thread."""
        for interface in Gio.DBusNodeInfo.new_for_xml(f"<node>{interfaces}</node>").interfaces:
            self._bus.register_object(path, interface, called, None, None)

    def close(self):
        self._loop.quit()
        self._thread.join(10)

    def answer(self, method, invocation):
        """Answers a call; in the simplest case with nothing."""
        invocation.return_value(None)

    def _serve(self):
        self._context.push_thread_default()
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self._bus = Gio.DBusConnection.new_for_address_sync(self._address, flags, None, None)
        self.register(self._path, self._interfaces, self._called)
        self._bus.call_sync(*_BUS, "RequestName", GLib.Variant("(su)", (self._name, 0)), None,
                            Gio.DBusCallFlags.NONE, -1, None)
        # From inside the loop: one that is ended before it runs would run for ever.
        ready = GLib.idle_source_new()
        ready.set_callback(lambda *_: self._ready.set())
        ready.attach(self._context)
        self._loop.run()
        self._bus.close_sync(None)

    def _called(self, _bus, sender, _path, _interface, method, arguments, invocation):
        self.callers.append(sender)
        self.calls.append((method, arguments.unpack()))
        self.answer(method, invocation)
