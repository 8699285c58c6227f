"""What assistive technology hears: the events of the accessibility bus, noted from the making of a listener on."""

from gi.repository import GLib

from accessibility import Accessible, Gone
from role import Role

_OBJECT_EVENT = "org.a11y.atspi.Event.Object"
_WINDOW_EVENT = "org.a11y.atspi.Event.Window"


class Activations:
    """The names of the windows that have become active from its making on."""

    def __init__(self, bus):
        self._bus = bus
        self._names = []
        bus.ask_for("window:activate")
        bus.subscribe(_WINDOW_EVENT, "Activate", self._on_activate)

    @property
    def names(self):
        _take_events()
        return list(self._names)

    def _on_activate(self, owner, path, _arguments):
        try:
            self._names.append(Accessible(self._bus, owner, path).name)
        except Gone:
            pass


class StateChanges:
    """Every change of some states from its making on, as a list of (name of the object, state, whether it is set)."""

    def __init__(self, bus, *states):
        self._bus = bus
        self._states = states
        self._changes = []
        for state in states:
            bus.ask_for(f"object:state-changed:{state}")
        bus.subscribe(_OBJECT_EVENT, "StateChanged", self._on_state_changed)

    @property
    def changes(self):
        _take_events()
        return list(self._changes)

    def _on_state_changed(self, owner, path, arguments):
        state, is_set = arguments[0], arguments[1]
        if state not in self._states:
            return
        changed = Accessible(self._bus, owner, path)
        try:
            if self._concerns(changed):
                self._changes.append((changed.name, state, bool(is_set)))
        except Gone:
            pass

    def _concerns(self, _changed):
        return True


class Announcements(StateChanges):
    """What a screen reader says of itself: every notification from its making on, as a list of texts."""

    def __init__(self, bus):
        super().__init__(bus, "showing")

    @property
    def texts(self):
        return [name for name, _, is_set in self.changes if is_set]

    def _concerns(self, changed):
        return changed.role == Role.NOTIFICATION


def _take_events():
    context = GLib.MainContext.default()
    while context.iteration(False):
        pass
