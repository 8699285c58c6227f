"""The accessibility tree, read and used as assistive technology does: over its bus, and asking anew for what can change."""

import collections
import functools

import gi

gi.require_version("Atspi", "2.0")
gi.require_version("Gio", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

from role import Role  # noqa: E402

_CALL_MILLISECONDS = 20_000
_MANY_CHILDREN = 100
_REGISTRY = "org.a11y.atspi.Registry"
_REGISTRY_PATH = "/org/a11y/atspi/registry"
_ROOT = "/org/a11y/atspi/accessible/root"
_ACCESSIBLE = "org.a11y.atspi.Accessible"

# The library of the protocol serves only for its numbers. It keeps its own copy of the tree; here every look is fresh.
STATES = {name: int(getattr(Atspi.StateType, name.upper()))
          for name in ("busy", "checked", "editable", "enabled", "focusable", "focused", "selectable",
                       "selected", "sensitive", "showing", "visible")}

Facts = collections.namedtuple("Facts", "role name states child_count")


class Gone(Exception):
    """The object, or the whole application, is no longer there."""


class AccessibilityBus:
    """A connection to the accessibility bus of one desktop session."""

    def __init__(self, session_bus_address):
        self._session = _connect(session_bus_address)
        # A screen reader announces itself so; toolkits then publish their trees.
        self._session.call_sync(
            "org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
            GLib.Variant("(ssv)", ("org.a11y.Status", "IsEnabled", GLib.Variant("b", True))),
            None, Gio.DBusCallFlags.NONE, _CALL_MILLISECONDS, None)
        address = self._session.call_sync(
            "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None,
            None, Gio.DBusCallFlags.NONE, _CALL_MILLISECONDS, None).unpack()[0]
        self._bus = _connect(address)
        self._answers = GLib.MainContext()
        self._roles = {}
        self._events = []
        self._subscriptions = []

    def close(self):
        self._bus.close_sync(None)
        self._session.close_sync(None)

    def call(self, owner, path, interface, method, arguments=None):
        try:
            return self._bus.call_sync(owner, path, interface, method, arguments, None,
                                       Gio.DBusCallFlags.NONE, _CALL_MILLISECONDS, None).unpack()
        except GLib.Error as error:
            raise Gone(f"{interface}.{method}: {error.message}") from error

    def call_all(self, calls):
        """The answers to some (owner, path, interface, method, arguments), all of which are under way at once."""
        answers = {}

        def receive(bus, answer, index):
            try:
                answers[index] = bus.call_finish(answer).unpack()
            except GLib.Error as error:
                answers[index] = error

        # Answers come in a context of their own. Events wait until they are asked for.
        self._answers.push_thread_default()
        for index, call in enumerate(calls):
            self._bus.call(*call, None, Gio.DBusCallFlags.NONE, _CALL_MILLISECONDS, None, receive, index)
        self._answers.pop_thread_default()
        while len(answers) < len(calls):
            self._answers.iteration(True)
        for answer in answers.values():
            if isinstance(answer, GLib.Error):
                raise Gone(answer.message) from answer
        return [answers[index] for index in range(len(calls))]

    def facts_of(self, items):
        """The Facts of each of some objects. An object keeps its role, which is asked for once."""
        new = [item for item in items if item not in self._roles]
        answers = iter(self.call_all([item.question_for_role() for item in new] +
                                     [question for item in items for question in item.questions()]))
        self._roles.update((item, Role(role)) for item, (role,) in zip(new, answers))
        return {item: Facts(self._roles[item], name, _states(bits), count)
                for item, (name,), (bits,), (count,) in zip(items, answers, answers, answers)}

    def children_of(self, counts):
        """The children of each of some objects, given as a dictionary with their number; of very many, the first ones."""
        asked = [(item, index) for item, count in counts.items()
                 for index in ([None] if 0 < count <= _MANY_CHILDREN else range(min(count, _MANY_CHILDREN)))]
        found = {item: [] for item in counts}
        answers = self.call_all([item.question_for_children(index) for item, index in asked])
        for (item, index), (answer,) in zip(asked, answers):
            references = answer if index is None else [answer]
            found[item] += [Accessible(self, *reference) for reference in references if not _is_null(reference)]
        return found

    def ask_for(self, event):
        """Toolkits send only the events that somebody has asked for."""
        self._events.append(event)
        self.call(_REGISTRY, _REGISTRY_PATH, _REGISTRY, "RegisterEvent", GLib.Variant("(s)", (event,)))

    def subscribe(self, interface, signal, receive):
        """Calls `receive` with sender, path and arguments whenever the signal comes and the main context runs."""
        self._subscriptions.append(self._bus.signal_subscribe(
            None, interface, signal, None, None, Gio.DBusSignalFlags.NONE,
            lambda _bus, owner, path, _interface, _signal, arguments: receive(owner, path, arguments.unpack())))

    def stop_listening(self):
        """Takes back everything that was asked for: toolkits do otherwise where somebody listens."""
        while self._subscriptions:
            self._bus.signal_unsubscribe(self._subscriptions.pop())
        while self._events:
            self.call(_REGISTRY, _REGISTRY_PATH, _REGISTRY, "DeregisterEvent",
                      GLib.Variant("(s)", (self._events.pop(),)))

    def application_of(self, pid):
        """The application object of a process, or None while it has not registered."""
        for owner, path in self.call(_REGISTRY, _ROOT, _ACCESSIBLE, "GetChildren")[0]:
            try:
                owner_pid = self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                      "GetConnectionUnixProcessID", GLib.Variant("(s)", (owner,)))[0]
            except Gone:
                continue
            if owner_pid == pid:
                return Accessible(self, owner, path)
        return None


class Accessible:
    """One object of the tree. Every property is asked for when it is read."""

    def __init__(self, bus, owner, path):
        self._bus = bus
        self._owner = owner
        self._path = path

    def __eq__(self, other):
        return (self._owner, self._path) == (other._owner, other._path)

    def __hash__(self):
        return hash((self._owner, self._path))

    def __repr__(self):
        try:
            return f"{self.role} “{self.name}”"
        except Gone:
            return "(gone)"

    def _call(self, interface, method, arguments=None):
        return self._bus.call(self._owner, self._path, interface, method, arguments)

    def _property(self, interface, name):
        return self._call(*_get(interface, name))[0]

    def questions(self):
        """The calls that ask for the name, the states and the number of children."""
        asked = (_get(_ACCESSIBLE, "Name"), (_ACCESSIBLE, "GetState", None), _get(_ACCESSIBLE, "ChildCount"))
        return [(self._owner, self._path, *question) for question in asked]

    def question_for_role(self):
        return self._owner, self._path, _ACCESSIBLE, "GetRole", None

    def question_for_children(self, index=None):
        """The call that asks for all children, or for the one of an index."""
        if index is None:
            return self._owner, self._path, _ACCESSIBLE, "GetChildren", None
        return self._owner, self._path, _ACCESSIBLE, "GetChildAtIndex", GLib.Variant("(i)", (index,))

    @property
    def name(self):
        return self._property(_ACCESSIBLE, "Name")

    @property
    def description(self):
        return self._property(_ACCESSIBLE, "Description")

    @property
    def role(self):
        return Role(self._call(_ACCESSIBLE, "GetRole")[0])

    @property
    def states(self):
        return _states(self._call(_ACCESSIBLE, "GetState")[0])

    @property
    def interfaces(self):
        """The names of what the object can be asked for, for example "Value"."""
        return {name.rsplit(".", 1)[1] for name in self._call(_ACCESSIBLE, "GetInterfaces")[0]}

    @property
    def is_showing(self):
        return {"showing", "visible"} <= self.states

    @property
    def child_count(self):
        return self._property(_ACCESSIBLE, "ChildCount")

    @property
    def children(self):
        """The children; of very many, the first ones."""
        return self._bus.children_of({self: self.child_count})[self]

    @property
    def character_count(self):
        """How many characters a text object holds; a masked field tells this, too."""
        return self._property("org.a11y.atspi.Text", "CharacterCount")

    @property
    def text(self):
        """What a text object holds, as far as it lets it be read."""
        return self._call("org.a11y.atspi.Text", "GetText", GLib.Variant("(ii)", (0, self.character_count)))[0]

    @property
    def selection(self):
        """(start, end) of what is selected in a text object."""
        return self._call("org.a11y.atspi.Text", "GetSelection", GLib.Variant("(i)", (0,)))

    @property
    def extents(self):
        """(x, y, width, height) on the screen."""
        return self._call("org.a11y.atspi.Component", "GetExtents", GLib.Variant("(u)", (0,)))[0]

    @property
    def actions(self):
        return [action[0] for action in self._call("org.a11y.atspi.Action", "GetActions")[0]]

    def do_action(self, name):
        """Does the action of this name, in lower case."""
        offered = [action.lower() for action in self.actions]
        if name not in offered:
            raise AssertionError(f"{self!r} offers only {offered}, not “{name}”")
        self._call("org.a11y.atspi.Action", "DoAction", GLib.Variant("(i)", (offered.index(name),)))

    def set_text(self, text):
        """Replaces what an editable text holds."""
        if not self._call("org.a11y.atspi.EditableText", "SetTextContents", GLib.Variant("(s)", (text,)))[0]:
            raise AssertionError(f"{self!r} does not take a text")

    def grab_focus(self):
        self._call("org.a11y.atspi.Component", "GrabFocus")


def _states(words):
    bits = words[0] | words[1] << 32
    return {name for name, bit in STATES.items() if bits >> bit & 1}


def _is_null(reference):
    return reference[1].endswith("/null")


@functools.cache
def _get(interface, name):
    return "org.freedesktop.DBus.Properties", "Get", GLib.Variant("(ss)", (interface, name))


def _connect(address):
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
