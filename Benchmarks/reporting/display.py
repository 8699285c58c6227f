"""A virtual display, and a session bus."""

import os
import subprocess

_SCREEN = "1280x900x24"


class Display:
    """A context manager; gives the name of a virtual display that ends with it."""

    def __enter__(self):
        reading, writing = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", _SCREEN, "-nolisten", "tcp", "-noreset"],
            pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading, encoding="utf-8") as announcement:
            return ":" + announcement.readline().strip()

    def __exit__(self, *_):
        self._server.terminate()
        self._server.wait()


class SessionBus:
    """A context manager; gives the address of a message bus that ends with it."""

    def __enter__(self):
        self._bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"],
                                     stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, encoding="utf-8")
        return self._bus.stdout.readline().strip()

    def __exit__(self, *_):
        self._bus.terminate()
        self._bus.stdout.close()
        self._bus.wait()
