"""A running application, driven through its accessibility tree and its keyboard."""

import itertools
import pathlib
import re
import subprocess

from accessibility import Gone
from look import look_at
from role import Role
from waiting import DEFAULT_SECONDS, wait_for
import processes
import window_manager

WINDOW_TITLE = "Ambrel Recovery"


class Application:
    """Started when it is made, and then ready. Every wait in here has an end and says what it waited for."""

    def __init__(self, desktop, installation, environment, directory, arguments=()):
        self._desktop = desktop
        self._log = pathlib.Path(directory) / "application.log"
        with open(self._log, "ab") as log:
            self.process = processes.start(
                processes.without_rights([str(installation.executable), *arguments]), env=environment, cwd=directory,
                stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        try:
            self._root = wait_for("the application in the accessibility tree", self._registered)
            self.window = wait_for("the main window", self._main_window)
        except BaseException:
            self.stop()
            raise

    def _registered(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the application ended with {self.process.returncode}: {self._log.read_text()}")
        return self._desktop.accessibility.application_of(self.process.pid)

    def _main_window(self):
        return next((window for window in self._root.children
                     if window.name == WINDOW_TITLE and window.is_showing), None)

    def stop(self):
        """Ends the application whatever it is doing."""
        return processes.stop(self.process)

    def wait_for_end(self, seconds=DEFAULT_SECONDS):
        """The exit status of the application, once it has ended by itself."""
        return self.process.wait(seconds)

    # What is shown

    def shown(self):
        """Everything that is shown, each object followed by what is in it."""
        return wait_for("a look at the whole tree", self._look)

    def _look(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the application has ended with {self.process.returncode}: {self._log.read_text()}")
        try:
            return look_at(self._desktop.accessibility, self._root)
        except Gone:
            return None  # Something went away meanwhile; another look is needed.

    def texts(self):
        """Every text that is shown."""
        return [shown.name for shown in self.shown() if shown.name]

    def find(self, name, *roles):
        """The shown object of a name (a text or a pattern) and one of the roles, or None."""
        for shown in self.shown():
            matches = name.search(shown.name) if isinstance(name, re.Pattern) else shown.name == name
            if matches and (not roles or shown.role in roles):
                return shown.item
        return None

    def inside(self, *roles):
        """Each object of the roles that is shown, with the list of what is shown in it."""
        everything = self.shown()
        return [(outer, list(itertools.takewhile(lambda inner, depth=outer.depth: inner.depth > depth,
                                                 everything[index + 1:])))
                for index, outer in enumerate(everything) if outer.role in roles]

    def wait_for_shown(self, what, condition, seconds=DEFAULT_SECONDS):
        """Waits for a condition on what is shown; a failure tells what was shown instead."""
        try:
            return wait_for(what, condition, seconds)
        except AssertionError as error:
            tree = "\n".join(f"{'  ' * shown.depth}{shown.role} “{shown.name}”" for shown in self.shown())
            raise AssertionError(f"{error}; shown is:\n{tree}") from None

    def wait_for_object(self, name, *roles, seconds=DEFAULT_SECONDS):
        return self.wait_for_shown(f"{' or '.join(map(str, roles)) or 'an object'} “{name}”",
                                   lambda: self.find(name, *roles), seconds)

    def wait_for_text(self, text):
        self.wait_for_object(text)

    def wait_until_gone(self, name, *roles):
        self.wait_for_shown(f"the end of “{name}”", lambda: not self.find(name, *roles))

    def picture(self, path):
        """Writes a picture of the main window and of what lies over it."""
        self._desktop.picture(path, self.window.extents)

    # Controls

    def button(self, name):
        """Waits for the button of this name."""
        return self.wait_for_object(name, Role.PUSH_BUTTON)

    def is_enabled(self, name):
        """Whether the button of this name is there and can be pressed now."""
        return self._enabled_button(name) is not None

    def _enabled_button(self, name):
        return next((shown.item for shown in self.shown()
                     if (shown.role, shown.name) == (Role.PUSH_BUTTON, name) and "enabled" in shown.states), None)

    def press(self, name):
        """Presses a button as soon as it is there and can be pressed."""
        self.wait_for_shown(f"“{name}” to become enabled", lambda: self._enabled_button(name)).do_action("press")

    # Pointer, keyboard and window

    def click_beside_everything(self):
        """Clicks into the window's corner, where nothing is: the ring around what has the keyboard goes."""
        left, top = self.window.extents[:2]
        self._desktop.keys("mousemove", str(left + 8), str(top + 8), "click", "1")

    def key(self, name):
        """Presses a key in the window that has the keyboard."""
        self._desktop.keys("key", name)

    def type_text(self, text):
        """Types a text key by key in the window that has the keyboard."""
        self._desktop.keys("type", "--delay", "5", "--", text)

    def focus(self, title, item):
        """Directs the keyboard to an object in the window of a title."""
        window_manager.give_keyboard(self._desktop.display, self._window_identifier(title))
        item.grab_focus()
        wait_for(f"the keyboard in {item!r}", lambda: "focused" in item.states)

    @property
    def is_active(self):
        """Whether the main window is the active one: only in that has anything the keyboard."""
        return self._focused() is not None

    def focus_window(self):
        """Directs the keyboard to the main window, and waits until that is the active one."""
        window_manager.give_keyboard(self._desktop.display, self._window_identifier())
        wait_for("the main window to be active", lambda: self.is_active)

    def take_keyboard_away(self):
        """Directs the keyboard to no window, and waits until the main window is not active any more."""
        window_manager.take_keyboard_away(self._desktop.display)
        wait_for("the main window to be left", lambda: not self.is_active)

    def tab_to(self, name, role):
        """Presses the tab key in the main window until the control of this name and role has the keyboard."""
        window_manager.give_keyboard(self._desktop.display, self._window_identifier())
        focused = wait_for("the keyboard in the window", self._focused)
        for _ in range(40):
            if (focused.name, focused.role) == (name, role):
                return
            self.key("Tab")
            focused = wait_for("the keyboard to move on", lambda: self._focused_other_than(focused.item))
        raise AssertionError(f"the tab key does not lead to {role} “{name}”")

    def _focused(self):
        return next((shown for shown in self.shown() if "focused" in shown.states), None)

    def _focused_other_than(self, item):
        focused = self._focused()
        return focused if focused is not None and focused.item != item else None

    def wait_for_keyboard_on(self, name, role):
        """Waits until the control of this name and role has the keyboard."""
        self.wait_for_shown(f"the keyboard on {role} “{name}”", lambda: self._has_keyboard(name, role))

    def _has_keyboard(self, name, role):
        focused = self._focused()
        return focused is not None and (focused.name, focused.role) == (name, role)

    @property
    def window_identifier(self):
        """The main window, as its display knows it."""
        return self._window_identifier()

    def close_window(self):
        """Presses the close button of the main window's title bar."""
        window_manager.request_close(self._desktop.display, self._window_identifier())

    def _window_identifier(self, title=WINDOW_TITLE):
        return wait_for(f"the window “{title}”",
                        lambda: window_manager.window_of(self._desktop.environment, self.process.pid, title))
