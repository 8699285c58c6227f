"""A real desktop without a display card: what is common to all of them."""

import abc
import os
import pathlib
import subprocess

from gi.repository import Gio, GLib

from display import Desktop
from sleep_services import LoginManager
import processes

_CALL_MILLISECONDS = 30_000
_SIZE = (1280, 960)
_FILE_MANAGER = """[D-BUS Service]
Name=org.freedesktop.FileManager1
Exec={command}
"""


class RealDesktop(Desktop, abc.ABC):
    """With services of its own, on Wayland or on an X11 server in memory, with everything enlarged by `scale`.

    The application's desktop entry, icons and command are installed below `prefix`. What the programs of the desktop
    print is kept in the folder `logs`.
    """

    # The first of several services of a name counts.
    _services = "<servicedir>{directory}/services</servicedir><standard_session_servicedirs/>"
    name = ""
    _file_manager = ""
    # How its windows name their title.
    _title = "title"

    def __init__(self, is_wayland, scale, prefix, logs):
        super().__init__(tuple(int(length * scale) for length in _SIZE))
        self.is_wayland = is_wayland
        self.scale = scale
        self._prefix = prefix
        self._logs = pathlib.Path(logs)
        self._bus = None
        self._login_manager = None

    # Starting

    def _start_display(self):
        if self.is_wayland:
            self.environment = self._environment_of_display(WAYLAND_DISPLAY="wayland-0", QT_QPA_PLATFORM="wayland")
        else:
            super()._start_display()
        self.environment |= {
            "HOME": self._directory,
            "GSETTINGS_BACKEND": "keyfile",
            "XDG_CONFIG_HOME": os.path.join(self._directory, "config"),
            "XDG_CURRENT_DESKTOP": self.name,
            # An entry whose command cannot be found is ignored.
            "PATH": f"{self._prefix}/bin:{os.environ['PATH']}",
            "XDG_DATA_DIRS": f"{self._prefix}/share:/usr/local/share:/usr/share",
            "XDG_SESSION_TYPE": "wayland" if self.is_wayland else "x11",
        }

    def _start_session_bus(self):
        # Every file manager that is installed offers this name.
        self._write("services/org.freedesktop.FileManager1.service", _FILE_MANAGER, command=self._file_manager)
        super()._start_session_bus()

    def _start_session(self):
        self.start_system_bus()
        # The real one would put this machine to sleep.
        self._login_manager = LoginManager(self.environment["DBUS_SYSTEM_BUS_ADDRESS"])
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self._bus = Gio.DBusConnection.new_for_address_sync(self._bus_address, flags, None, None)
        # For what the bus starts.
        self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "UpdateActivationEnvironment",
                  GLib.Variant("(a{ss})", (self.environment,)))

    def __exit__(self, *_):
        if self._login_manager:
            self._login_manager.close()
        super().__exit__()

    def _run(self, *command, **changes):
        """Starts a program of the session. What it prints is kept in a file beside the pictures."""
        with open(self._logs / f"{pathlib.Path(command[0]).name}.log", "ab") as log:
            self._started.append(processes.start(command, env=self.environment | changes, stdin=subprocess.DEVNULL,
                                                 stdout=log, stderr=log))
        return self._started[-1]

    # Its services

    def call(self, service, path, interface, method, arguments=None):
        """The unpacked answer to a call on the session bus."""
        return self._bus.call_sync(service, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                                   _CALL_MILLISECONDS, None).unpack()

    def has(self, service):
        """Whether somebody has this name on the session bus."""
        return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
                         GLib.Variant("(s)", (service,)))[0]

    def picture(self, path, area=None):
        """Writes what the whole display shows as a PNG, once it does not change any more."""
        if not self.is_wayland:
            super().picture(path)
            return
        before = None
        for _ in range(8):
            self._grab(path)
            picture = path.read_bytes()
            if picture == before:
                break
            before = picture

    @abc.abstractmethod
    def _grab(self, path):
        """Writes what the display of a Wayland desktop shows now."""

    @abc.abstractmethod
    def windows(self):
        """What the desktop knows about each window in its list of tasks, as dictionaries."""

    def titles(self):
        """The titles of these windows."""
        return [window[self._title] for window in self.windows()]

    @abc.abstractmethod
    def inhibitions(self):
        """What keeps the machine awake, as the desktop tells it: (program, reason) each."""

    @property
    def locks(self):
        """How many locks of the login manager are held."""
        return self._login_manager.held
