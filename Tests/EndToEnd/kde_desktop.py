"""KDE's desktop: its window manager and its shell."""

import os
import subprocess

from gi.repository import Gio, GLib

from real_desktop import RealDesktop
from waiting import wait_for

_MANAGER = ("org.kde.KWin", "/KWin", "org.kde.KWin")


class KdeDesktop(RealDesktop):
    name = "KDE"
    _title = "caption"
    _file_manager = "/usr/bin/dolphin --daemon"

    def _start_session(self):
        super()._start_session()
        self.environment |= {"KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5"}
        if self.is_wayland:
            # It enlarges these, too.
            width, height = (int(length / self.scale) for length in self.size)
            self._run("kwin_wayland", "--virtual", "--no-lockscreen", "--socket", self.environment["WAYLAND_DISPLAY"],
                      "--width", str(width), "--height", str(height), "--scale", str(self.scale),
                      KWIN_SCREENSHOT_NO_PERMISSION_CHECKS="1", KWIN_WAYLAND_NO_PERMISSION_CHECKS="1")
        else:
            subprocess.run(["xrdb", "-merge"], input=f"Xft.dpi: {96 * self.scale:g}\n", text=True, check=True,
                           env=self.environment, timeout=60)
            self._run("kwin_x11")
        wait_for("the window manager", lambda: self.has(_MANAGER[0]))
        self._run("plasmashell")
        self._run("/usr/lib/x86_64-linux-gnu/libexec/org_kde_powerdevil")
        wait_for("the shell", lambda: self.has("org.kde.plasmashell") and self.has("org.freedesktop.Notifications"))

    def _grab(self, path):
        raw = f"{path}.raw"
        width, height = (int(length / self.scale) for length in self.size)
        with open(raw, "w+b") as file:
            descriptors = Gio.UnixFDList.new()
            answer, _ = self._bus.call_with_unix_fd_list_sync(
                _MANAGER[0], "/org/kde/KWin/ScreenShot2", "org.kde.KWin.ScreenShot2", "CaptureArea",
                GLib.Variant("(iiuua{sv}h)", (0, 0, width, height, {"native-resolution": GLib.Variant("b", True)},
                                              descriptors.append(file.fileno()))),
                None, Gio.DBusCallFlags.NONE, -1, descriptors, None)
        told = answer.unpack()[0]
        subprocess.run(["convert", "-depth", "8", "-size", f"{told['stride'] // 4}x{told['height']}", f"bgra:{raw}",
                        "-alpha", "off", str(path)], check=True, stdin=subprocess.DEVNULL, timeout=60)
        os.remove(raw)

    def windows(self):
        found = self.call(_MANAGER[0], "/WindowsRunner", "org.kde.krunner1", "Match",
                          GLib.Variant("(s)", ("window",)))[0]
        return [self.call(*_MANAGER, "getWindowInfo", GLib.Variant("(s)", (match[0].split("_", 1)[1],)))[0]
                for match in found]

    def inhibitions(self):
        agent = "org.kde.Solid.PowerManagement.PolicyAgent"
        return self.call("org.kde.Solid.PowerManagement", "/org/kde/Solid/PowerManagement/PolicyAgent", agent,
                         "ListInhibitions")[0]
