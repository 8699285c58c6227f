"""The application under test, driven through its accessibility tree."""

import pathlib
import re
import shutil
import subprocess

from accessibility import Gone
from catalogue import OKAY, SHOW_IN_FINDER, Catalogue
from waiting import wait_for
import processes
import window_manager

PRESS = ("press", "toggle", "click", "select")


class Installation:
    """A copy of the built application, away from where it was built."""

    def __init__(self, built, place):
        self.directory = pathlib.Path(place)
        shutil.copytree(built, self.directory)
        self.executable = self.directory / "AmbrelRecoveryApp"
        self.engine = self.directory / "Resources" / "bin" / "ambrel-recovery"
        self.catalogue = Catalogue(self.directory)


class Application:
    """One running application. Every wait in here has an end and says what it waited for."""

    def __init__(self, desktop, installation, environment, directory):
        self._desktop = desktop
        self.catalogue = installation.catalogue
        self.executable = str(installation.executable)
        self.log = pathlib.Path(directory) / "application.log"
        with open(self.log, "ab") as log:
            self.process = processes.start(
                processes.with_permissions_enforced([self.executable]), env=environment, cwd=directory,
                stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        self._root = None
        wait_for("the application in the accessibility tree", self._registered)
        self.window = wait_for("the main window", self._main_window)

    def _registered(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the application ended with {self.process.returncode}: {self.log.read_text()}")
        self._root = self._desktop.accessibility.application_of(self.process.pid)
        return self._root

    def _main_window(self):
        return next((window for window in self._root.children
                     if window.name == "Ambrel Recovery" and window.is_showing), None)

    def stop(self):
        """Ends the application whatever it is doing."""
        return processes.stop(self.process)

    # What is shown

    def shown(self):
        """Every object that is shown, window by window, as (object, role, name)."""
        try:
            return [(item, item.role, item.name) for item in self._root.walk()]
        except Gone:
            return []  # Something went away meanwhile; the next look tells what is there now.

    def describe(self):
        """What is shown, for messages."""
        return "\n".join(f"  {role} “{name}”" for _, role, name in self.shown() if name)

    def texts(self):
        """Every text that is shown."""
        return [name for _, _, name in self.shown() if name]

    def find(self, name, *roles):
        """The shown object of a name (a text or a pattern) and one of the roles, or None."""
        for item, role, item_name in self.shown():
            matches = name.search(item_name) if isinstance(name, re.Pattern) else item_name == name
            if matches and (not roles or role in roles):
                return item
        return None

    def wait_for_object(self, name, *roles, seconds=30.0):
        try:
            return wait_for(f"{' or '.join(roles) or 'an object'} “{name}”", lambda: self.find(name, *roles), seconds)
        except AssertionError as error:
            raise AssertionError(f"{error}; shown is:\n{self.describe()}") from None

    def wait_for_text(self, text, seconds=30.0):
        return self.wait_for_object(text, seconds=seconds)

    def button(self, name):
        return self.wait_for_object(name, "push button")

    def is_enabled(self, name):
        """Whether the button of this name can be pressed now."""
        button = self.find(name, "push button")
        return bool(button) and "enabled" in button.states

    def press(self, name):
        """Presses a button as soon as it is there and can be pressed."""
        button = self.button(name)
        wait_for(f"“{name}” to become enabled", lambda: "enabled" in button.states)
        button.do_action(*PRESS)

    def picture(self, path):
        """Writes a picture of the main window and what lies over it, with nothing left to be drawn."""
        self._desktop.picture(str(path), self.window.extents)

    # The road

    def choose_package(self, path):
        """Chooses a package in the open panel and waits until the panel is gone."""
        self.press(self.catalogue["recovery.choose-package.action"])
        self.answer_panel(self.catalogue["recovery.choose-package.action"], path)

    def choose_destination(self, path):
        """Starts an export and names its folder in the save panel."""
        self.press(self.catalogue["files-export.start"])
        self.answer_panel(self.catalogue["files-export.choose-destination"], path)

    def panel(self, title):
        return self.wait_for_object(title, "dialog", "file chooser")

    def panel_name_field(self, title):
        panel = self.panel(title)
        return wait_for(f"the file name in “{title}”", lambda: _editable_text(panel))

    def answer_panel(self, title, path):
        """Types a path into a file panel and confirms it with the return key."""
        field = self.panel_name_field(title)
        field.set_text(str(path))
        self._confirm(title, field, "Return")
        self.wait_until_gone(title, "dialog", "file chooser")

    def _confirm(self, title, field, key):
        self._focus(title, field)
        self._desktop.keys("key", key)

    def dismiss_panel(self, title):
        """Leaves a file panel with the escape key."""
        self._confirm(title, self.panel_name_field(title), "Escape")
        self.wait_until_gone(title, "dialog", "file chooser")

    def _focus(self, title, field):
        """Directs the keyboard to a field in the window of a title."""
        window_manager.give_keyboard(self._desktop.environment["DISPLAY"], self._window_identifier(title))
        field.grab_focus()
        wait_for(f"the keyboard in {field!r}", lambda: "focused" in field.states)

    def wait_until_gone(self, name, *roles):
        wait_for(f"the end of “{name}”", lambda: self.process.poll() is not None or not self.find(name, *roles))

    def choose_factor(self, factor):
        """Picks "passphrase" or "recovery-key"."""
        name = self.catalogue[f"backup.factor.{factor}"]
        segment = self.wait_for_object(name, "radio button", "page tab", "push button", "toggle button")
        segment.do_action(*PRESS)
        wait_for(f"“{name}” to be picked", lambda: {"checked", "selected"} & segment.states)

    def secure_field(self):
        return wait_for("the secure field", lambda: next(
            (item for item, role, _ in self.shown() if role == "password text"), None))

    def type_credential(self, text, by_keyboard=False):
        """Enters the secret; key by key where that is what the test is about."""
        field = self.secure_field()
        if by_keyboard:
            self._focus("Ambrel Recovery", field)
            self._desktop.keys("type", "--delay", "5", "--", text)
        else:
            field.set_text(text)

    # The keyboard alone

    def key(self, name):
        """Presses a key in the window that has the keyboard."""
        self._desktop.keys("key", name)

    def type_text(self, text):
        self._desktop.keys("type", "--delay", "5", "--", text)

    def keyboard_to(self, name):
        """Presses the tab key until the control of this name has the keyboard."""
        self._tab_to(f"“{name}”", lambda item, item_name: item_name == name)

    def keyboard_to_secure_field(self):
        self._tab_to("the secure field", lambda item, _: item.role == "password text")

    def _tab_to(self, what, is_wanted):
        window_manager.give_keyboard(self._desktop.environment["DISPLAY"], self._window_identifier())
        for _ in range(40):
            focused = wait_for("the keyboard in the window", self._focused)
            if is_wanted(*focused):
                return
            self.key("Tab")
            wait_for("the keyboard to move on", lambda: self._focused() not in (None, focused), 5.0)
        raise AssertionError(f"the tab key does not lead to {what}")

    def _focused(self):
        for item, role, name in self.shown():
            if role in ("push button", "radio button", "password text", "list", "list item", "scroll pane"):
                try:
                    if "focused" in item.states:
                        return item, name
                except Gone:
                    return None
        return None

    def type_path(self, title, path):
        """Types a path into a file panel key by key and confirms it."""
        field = self.panel_name_field(title)
        self._focus(title, field)
        self._desktop.keys("key", "ctrl+a")
        self._desktop.keys("type", "--delay", "5", "--", str(path))
        wait_for("the typed path", lambda: field.text == str(path))
        self._desktop.keys("key", "Return")
        self.wait_until_gone(title, "dialog", "file chooser")

    def press_inspect(self):
        self.press(self.catalogue["recovery.inspect.action"])

    def inspect(self, credential):
        """Enters the secret and starts an inspection."""
        self.type_credential(credential)
        self.press_inspect()

    def wait_for_snapshots(self):
        self.wait_for_text(re.compile(f"^{re.escape(self.catalogue['recovery.fact.items'])}: "
                                      f"|, {re.escape(self.catalogue['recovery.fact.items'])}: "))

    def wait_for_completion(self):
        """Waits for the last screen. Its title stands in the side rail all the time; its button does not."""
        self.wait_for_object(SHOW_IN_FINDER, "push button", seconds=300.0)

    def rows(self):
        """The rows of the list of snapshots, top first."""
        fact = self.catalogue["recovery.fact.items"] + ": "
        return [(item, name) for item, role, name in self.shown()
                if role in ("push button", "list item", "radio button", "table cell") and fact in name]

    def choose_row(self, name):
        """Picks the snapshot whose row has this name."""
        next(item for item, row_name in self.rows() if row_name == name).do_action(*PRESS)

    def alert(self):
        """(title, body) of the alert that is shown, or None."""
        for item, role, name in self.shown():
            if role in ("alert", "dialog"):
                texts = [text for part, part_role, text in ((part, part.role, part.name) for part in item.walk())
                         if text and part_role in ("label", "static", "heading", "text")]
                if any(part.name == OKAY for part in item.walk()) and len(texts) >= 2:
                    return texts[0], texts[1]
        return None

    def wait_for_alert(self, seconds=30.0):
        def look():
            try:
                return self.alert()
            except Gone:
                return None
        try:
            return wait_for("an alert", look, seconds)
        except AssertionError as error:
            raise AssertionError(f"{error}; shown is:\n{self.describe()}") from None

    def dismiss_alert(self):
        """Presses the alert's button and waits until the alert is gone."""
        self.press(OKAY)
        self.wait_until_gone(OKAY, "push button")

    # The window

    def _window_identifier(self, title="Ambrel Recovery"):
        found = subprocess.run(
            ["xdotool", "search", "--all", "--onlyvisible", "--pid", str(self.process.pid), "--name",
             f"^{re.escape(title)}$"],
            env=self._desktop.environment, check=True, capture_output=True, text=True, timeout=60)
        return int(found.stdout.split()[0])

    def close_window(self):
        """Presses the close button of the main window's title bar."""
        window_manager.request_close(self._desktop.environment["DISPLAY"], self._window_identifier())

    def wait_for_end(self, seconds=30.0):
        """The exit status of the application, once it has ended by itself."""
        return self.process.wait(seconds)


def _editable_text(panel):
    try:
        for item in panel.walk():
            if item.role in ("text", "entry") and "editable" in item.states:
                return item
    except Gone:
        pass
    return None


def environment_of(desktop, scratch, **changes):
    """The environment of an application with a home and a temporary directory of its own below `scratch`."""
    home = scratch / "home"
    temporary = scratch / "temporary"
    for directory in (home, temporary):
        directory.mkdir(exist_ok=True)
    return dict(desktop.environment, HOME=str(home), TMPDIR=str(temporary), XDG_CONFIG_HOME=str(home / ".config"),
                XDG_CACHE_HOME=str(home / ".cache"), XDG_DATA_HOME=str(home / ".local/share"), **changes)
