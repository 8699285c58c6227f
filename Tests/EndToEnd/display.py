"""A desktop of its own for the tests: a virtual display, a session bus, the accessibility bus and a file manager."""

import contextlib
import os
import pathlib
import select
import shutil
import signal
import subprocess
import tempfile

from accessibility import AccessibilityBus
from file_manager import FileManager
import processes

_SIZE = (1280, 960)
_START_SECONDS = 60
_BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={directory}/{bus}</listen>
  <auth>EXTERNAL</auth>
  {services}
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
_ACCESSIBILITY_SERVICE = """[D-BUS Service]
Name=org.a11y.Bus
Exec=/usr/libexec/at-spi-bus-launcher --launch-immediately
"""
_FONTS = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <include>/etc/fonts/fonts.conf</include>
  <alias binding="strong">
    <family>sans-serif</family>
    <prefer><family>Inter</family><family>Noto Sans</family></prefer>
  </alias>
</fontconfig>
"""


class Desktop:
    """A context manager. Inside it, `environment` is what a program of this desktop is started with."""

    # Where the session bus finds the services that it starts.
    _services = "<servicedir>{directory}/services</servicedir>"

    def __init__(self, size=_SIZE):
        self.size = size
        """(width, height) of the display."""
        self._directory = tempfile.mkdtemp(prefix="ambrel-desktop.")
        self._started = []
        self.environment = {}
        self.accessibility = None
        self.file_manager = None

    def __enter__(self):
        try:
            processes.take_charge()
            self._start_display()
            self._start_session_bus()
            self._start_session()
            self.accessibility = AccessibilityBus(self._bus_address)
            return self
        except BaseException:
            self.__exit__()
            raise

    def __exit__(self, *_):
        if self.file_manager:
            self.file_manager.close()
        if self.accessibility:
            self.accessibility.close()
        for process in reversed(self._started):
            processes.stop(process)
        processes.end_all(processes.descendants(os.getpid()))
        shutil.rmtree(self._directory, ignore_errors=True)

    def _write(self, name, text, **values):
        path = os.path.join(self._directory, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text.format(directory=self._directory, **values))
        return path

    def _start_announcing(self, arguments, descriptor_option, **options):
        """Starts a server that writes one line to a descriptor once it is ready, and returns that line."""
        reading, writing = os.pipe()
        try:
            command = [part.replace(descriptor_option, str(writing)) for part in arguments]
            self._started.append(processes.start(command, pass_fds=[writing], **options))
        finally:
            os.close(writing)
        with os.fdopen(reading, encoding="utf-8") as announcement:
            ready, _, _ = select.select([announcement], [], [], _START_SECONDS)
            line = announcement.readline().strip() if ready else ""
        if not line:
            raise RuntimeError(f"{arguments[0]} did not start")
        return line

    def _start_session(self):
        """Starts what a session brings beside its display and its buses."""
        self.file_manager = FileManager(self._bus_address)

    def _start_display(self):
        screen = f"{self.size[0]}x{self.size[1]}x24"
        with open(os.path.join(self._directory, "display.log"), "wb") as log:
            number = self._start_announcing(
                ["Xvfb", "-displayfd", "DESCRIPTOR", "-screen", "0", screen, "-nolisten", "tcp", "-noreset"],
                "DESCRIPTOR", stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        self._display = self._started[-1]
        self.environment = self._environment_of_display(DISPLAY=f":{number}", QT_QPA_PLATFORM="xcb")

    def _environment_of_display(self, **display):
        return {
            "FONTCONFIG_FILE": self._write("fonts.conf", _FONTS),
            "LANG": "en_US.UTF-8",
            "LANGUAGE": "en_US",
            "PATH": os.environ.get("PATH", "/usr/bin:/bin"),
            "TZ": "UTC",
        } | display

    def _start_session_bus(self):
        self._write("services/org.a11y.Bus.service", _ACCESSIBILITY_SERVICE)
        runtime = os.path.join(self._directory, "runtime")
        os.mkdir(runtime, 0o700)
        self.environment["XDG_RUNTIME_DIR"] = runtime
        # There is no system bus unless a test starts one; never the machine's own.
        self.environment["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={self._directory}/system-bus"
        self._bus_address = self._start_bus("session-bus")
        self._session_bus = self._started[-1]
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._bus_address

    def _start_bus(self, name):
        environment = dict(self.environment, HOME=self._directory, GSETTINGS_BACKEND="memory")
        services = self._services.format(directory=self._directory)
        configuration = self._write(f"{name}.conf", _BUS_CONFIGURATION, bus=name, services=services)
        return self._start_announcing(
            ["dbus-daemon", f"--config-file={configuration}", "--nofork", "--print-address=DESCRIPTOR"],
            "DESCRIPTOR", stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            env=environment)

    def start_system_bus(self):
        """Starts the system bus at the address that the environment names, if it does not run yet."""
        if not os.path.exists(os.path.join(self._directory, "system-bus")):
            self._start_bus("system-bus")

    @contextlib.contextmanager
    def silent_session_bus(self):
        """Inside it the session bus answers nobody; the accessibility bus, which is another one, does."""
        self._session_bus.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self._session_bus.send_signal(signal.SIGCONT)

    def end_display(self):
        """Ends the display as at the end of a session. Nothing can be looked at or pressed on this desktop any more."""
        processes.stop(self._display)

    @property
    def display(self):
        """The name of the display."""
        return self.environment["DISPLAY"]

    def keys(self, *arguments):
        """Sends key and pointer events with xdotool, to whatever window has the keyboard or lies below the pointer."""
        subprocess.run(["xdotool", *arguments], env=self.environment, check=True, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, timeout=60)

    def picture(self, path, area=None):
        """Writes what the display shows, or an (x, y, width, height) of it, as a PNG, once it is drawn completely.

        Complete is what does not change from one look to the next; what never rests (a spinner) is taken as it is.
        """
        command = ["import", "-window", "root", "-define", "png:exclude-chunks=date,time"]
        if area:
            x, y, width, height = area
            command += ["-crop", f"{width}x{height}{x:+d}{y:+d}", "+repage"]
        before = None
        for _ in range(8):
            picture = subprocess.run([*command, "png:-"], env=self.environment, check=True, capture_output=True,
                                     stdin=subprocess.DEVNULL, timeout=60).stdout
            if picture == before:
                break
            before = picture
        pathlib.Path(path).write_bytes(picture)
