"""The application under test: the steps of a recovery with it, by the names that its catalogue gives them."""

from application import WINDOW_TITLE, Application
from catalogue import OKAY, SHOW_IN_FINDER
from role import Role
from waiting import wait_for


class RecoveryApplication(Application):
    def __init__(self, desktop, installation, environment, directory, packages, arguments=()):
        """`packages` watches over every package that is chosen."""
        self._packages = packages
        self.catalogue = installation.catalogue
        super().__init__(desktop, installation, environment, directory, arguments)

    # File panels

    def choose_package(self, path):
        """Chooses a package in the open panel and waits until the panel is gone."""
        title = self.catalogue["recovery.choose-package.action"]
        self.press(title)
        self.answer_panel(title, path)

    def choose_destination(self, path):
        """Starts an export and names its folder in the save panel."""
        self.press(self.catalogue["files-export.start"])
        self.answer_panel(self.catalogue["files-export.choose-destination"], path)

    def panel_name_field(self, title):
        """Waits for the file panel of a title and gives the field with the file's name."""
        def field():
            return next((shown.item for shown in self._in_panel(title) if shown.role == Role.TEXT), None)

        return self.wait_for_shown(f"the file name in “{title}”", field)

    def _in_panel(self, title):
        """What is shown in the file panel of a title; nothing where there is none."""
        return next((inner for outer, inner in self.inside(Role.DIALOG) if outer.name == title), [])

    def answer_panel(self, title, path, by_keyboard=False):
        """Enters a path into a file panel, key by key where that is what the test is about, and confirms it."""
        if title == self.catalogue["recovery.choose-package.action"]:
            self._packages.watch(path)
        field = self.panel_name_field(title)
        self.focus(title, field)
        if by_keyboard:
            self.key("ctrl+a")
            self.type_text(str(path))
            wait_for("the typed path", lambda: field.text == str(path))
        else:
            field.set_text(str(path))
        self.key("Return")
        self.wait_until_gone(title, Role.DIALOG)

    def answer_panel_without_keyboard(self, title, path, button_name=None):
        """Enters a path into a panel and presses its button, which in the open panel is named as the panel is."""
        if button_name is None:
            self._packages.watch(path)
        self.panel_name_field(title).set_text(str(path))

        def button():
            return next((shown.item for shown in self._in_panel(title)
                         if (shown.role, shown.name) == (Role.PUSH_BUTTON, button_name or title)
                         and "enabled" in shown.states), None)

        self.wait_for_shown(f"the button of “{title}”", button).do_action("press")
        self.wait_until_gone(title, Role.DIALOG)

    def dismiss_panel(self, title):
        """Leaves a file panel with the escape key."""
        self.focus(title, self.panel_name_field(title))
        self.key("Escape")
        self.wait_until_gone(title, Role.DIALOG)

    # The first screen

    def choose_factor(self, factor):
        """Picks "passphrase" or "recovery-key"."""
        name = self.catalogue[f"backup.factor.{factor}"]
        segment = self.wait_for_object(name, Role.RADIO_BUTTON)
        segment.do_action("toggle")
        wait_for(f"“{name}” to be picked", lambda: "checked" in segment.states)

    def secure_field(self):
        def field():
            return next((shown.item for shown in self.shown() if shown.role == Role.PASSWORD_TEXT), None)

        return self.wait_for_shown("the secure field", field)

    def type_credential(self, text, by_keyboard=False):
        """Enters the secret, key by key where that is what the test is about."""
        field = self.secure_field()
        if by_keyboard:
            self.focus(WINDOW_TITLE, field)
            self.type_text(text)
        else:
            # What is entered while a step has not quite ended is not taken.
            wait_for("the secure field to be enabled", lambda: "enabled" in field.states)
            field.set_text(text)

    def press_inspect(self):
        self.press(self.catalogue["recovery.inspect.action"])

    def inspect(self, credential):
        """Enters the secret and starts an inspection."""
        self.type_credential(credential)
        self.press_inspect()

    # The snapshots, and the last screen

    def row_states(self):
        """The states of each row in the list of snapshots, top first."""
        return [shown.states for shown in self._rows()]

    def rows(self):
        """The names of the rows in the list of snapshots, top first."""
        return [shown.name for shown in self._rows()]

    def _rows(self):
        return self._items_of(self.catalogue["recovery.snapshots.title"])

    def _items_of(self, list_name):
        """The items of the list with this name."""
        return next(([shown for shown in inner if shown.role == Role.LIST_ITEM]
                     for outer, inner in self.inside(Role.LIST) if outer.name == list_name), [])

    # The side rail

    def steps(self):
        """The three steps, each with its name, its description and which of "selected" and "checked" it is."""
        return [(shown.name, shown.item.description, shown.states & {"selected", "checked"})
                for shown in self._items_of("")]

    def wait_for_snapshots(self):
        self.wait_for_shown("the list of snapshots", self.rows)

    def choose_row(self, name):
        """Picks the snapshot whose row has this name."""
        self.wait_for_object(name, Role.LIST_ITEM).do_action("press")

    def wait_for_completion(self):
        """Waits for the last screen. Its title stands in the side rail all the time; its button does not."""
        self.wait_for_object(SHOW_IN_FINDER, Role.PUSH_BUTTON, seconds=300.0)

    # The alert

    def alert(self):
        """(title, body) of the alert that is shown, or None."""
        for _, parts in self.inside(Role.ALERT):
            texts = [shown.name for shown in parts if shown.role == Role.LABEL]
            if any(shown.name == OKAY for shown in parts) and len(texts) == 2:
                return tuple(texts)
        return None

    def wait_for_alert(self):
        return self.wait_for_shown("an alert", self.alert)

    def dismiss_alert(self):
        """Presses the alert's button and waits until the alert is gone."""
        self.press(OKAY)
        self.wait_until_gone(OKAY, Role.PUSH_BUTTON)
