"""GNOME's desktop, as its own Shell draws it."""

import json

from gi.repository import GLib

from real_desktop import RealDesktop
from waiting import wait_for

_SHELL = ("org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell")
_MONITORS = ("org.gnome.Mutter.DisplayConfig", "/org/gnome/Mutter/DisplayConfig", "org.gnome.Mutter.DisplayConfig")
_SETTINGS = """[org/gnome/shell]
welcome-dialog-last-shown-version='99'
[org/gnome/mutter]
experimental-features=['scale-monitor-framebuffer']
[org/gnome/desktop/interface]
enable-animations=false
text-scaling-factor={text_scale}
"""
_SESSION = """[GNOME Session]
Name=Trial
RequiredComponents=
"""
_MANAGER = "org.gnome.SessionManager"
_WINDOWS = """
global.get_window_actors().map(actor => actor.meta_window).filter(window => !window.skip_taskbar).map(window => {
    const {GLib, Shell} = imports.gi;
    const application = Shell.WindowTracker.get_default().get_window_app(window);
    const frame = window.get_frame_rect();
    return {
        title: window.get_title(), class: window.get_wm_class(), entry: application.get_id(),
        name: application.get_name(), icon: application.get_icon()?.to_string() ?? "", active: window.has_focus(),
        frame: [frame.x, frame.y, frame.width, frame.height],
    };
})
"""


class GnomeDesktop(RealDesktop):
    name = "GNOME"
    _file_manager = "/usr/bin/nautilus --gapplication-service"

    def _start_session(self):
        super()._start_session()
        self._write("data/gnome-session/sessions/trial.session", _SESSION)
        self._run("/usr/libexec/gnome-session-binary", "--builtin", "--session=trial",
                  f"--autostart={self._directory}/autostart",
                  XDG_DATA_DIRS=f"{self._directory}/data:{self.environment['XDG_DATA_DIRS']}")
        wait_for("the session manager", lambda: self.has(_MANAGER))
        # On X11 the desktop enlarges everything by whole numbers, and texts by others.
        is_whole = self.is_wayland or self.scale == int(self.scale)
        self._write("config/glib-2.0/settings/keyfile", _SETTINGS, text_scale=1.0 if is_whole else self.scale)
        display = (["--headless", "--wayland", "--no-x11", "--virtual-monitor", f"{self.size[0]}x{self.size[1]}"]
                   if self.is_wayland else ["--x11"])
        self._run("gnome-shell", "--unsafe-mode", *display)
        wait_for("the Shell", self._is_ready)
        if is_whole:
            self._enlarge()
        if not self.is_wayland:
            self._run("/usr/libexec/gsd-xsettings")
        self._evaluate("Main.overview.hide()")
        # Such as that the screen cannot be locked.
        self._evaluate("Main.messageTray.getSources().forEach(source => source.destroy())")

    def _is_ready(self):
        try:
            return self._evaluate("!Main.layoutManager._startingUp")
        except GLib.Error:
            return False  # The object comes after the name.

    def _evaluate(self, code):
        """What a piece of the Shell's own language gives."""
        succeeded, text = self.call(*_SHELL, "Eval", GLib.Variant("(s)", (code,)))
        if not succeeded:
            raise AssertionError(f"the Shell reports {text}")
        return json.loads(text) if text else None

    def _enlarge(self):
        serial, monitors, *_ = self.call(*_MONITORS, "GetCurrentState")
        (connector, *_), modes, _ = monitors[0]
        mode = next(mode for mode in modes if mode[6].get("is-current"))
        scale = min(mode[5], key=lambda supported: abs(supported - self.scale))
        arrangement = [(0, 0, scale, 0, True, [(connector, mode[0], {})])]
        self.call(*_MONITORS, "ApplyMonitorsConfig",
                  GLib.Variant("(uua(iiduba(ssa{sv}))a{sv})", (serial, 1, arrangement, {})))

    def _grab(self, path):
        self.call(_SHELL[0], "/org/gnome/Shell/Screenshot", "org.gnome.Shell.Screenshot", "Screenshot",
                  GLib.Variant("(bbs)", (False, False, str(path))))

    def windows(self):
        return self._evaluate(_WINDOWS)

    def inhibitions(self):
        return [(self._of_inhibitor(path, "GetAppId"), self._of_inhibitor(path, "GetReason"))
                for path in self.call(_MANAGER, "/org/gnome/SessionManager", _MANAGER, "GetInhibitors")[0]]

    def _of_inhibitor(self, path, method):
        return self.call(_MANAGER, path, "org.gnome.SessionManager.Inhibitor", method)[0]
