"""What a window manager would do for the user. The test display has none."""

import contextlib
import ctypes
import os
import re
import subprocess

_KEY_PRESS = 2
_KEY_PRESS_MASK = 1
_CLIENT_MESSAGE = 33
_REVERT_TO_PARENT = 2
_CURRENT_TIME = 0
_NO_WINDOW = 0
_ANY_TYPE = 0
_MINIMUM_SIZE = 1 << 4


class _SizeHints(ctypes.Structure):
    _fields_ = [("flags", ctypes.c_long), ("obsolete", ctypes.c_int * 4), ("min_width", ctypes.c_int),
                ("min_height", ctypes.c_int), ("others", ctypes.c_int * 11)]


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5)]


class _Event(ctypes.Union):
    _fields_ = [("client", _ClientMessage), ("padding", ctypes.c_long * 24)]


def _library():
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
    x11.XInternAtom.restype = ctypes.c_ulong
    x11.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    x11.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long, ctypes.POINTER(_Event)]
    x11.XSetInputFocus.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_ulong]
    x11.XGetInputFocus.argtypes = [ctypes.c_void_p, ctypes.POINTER(ctypes.c_ulong), ctypes.POINTER(ctypes.c_int)]
    x11.XGetWMNormalHints.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.POINTER(_SizeHints),
                                      ctypes.POINTER(ctypes.c_long)]
    x11.XDefaultRootWindow.restype = ctypes.c_ulong
    x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
    x11.XQueryTree.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.POINTER(ctypes.c_ulong),
                               ctypes.POINTER(ctypes.c_ulong), ctypes.POINTER(ctypes.POINTER(ctypes.c_ulong)),
                               ctypes.POINTER(ctypes.c_uint)]
    x11.XGetWindowProperty.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_ulong, ctypes.c_long, ctypes.c_long,
                                       ctypes.c_int, ctypes.c_ulong, *[ctypes.c_void_p] * 5]
    x11.XFree.argtypes = [ctypes.c_void_p]
    x11.XCreateSimpleWindow.restype = ctypes.c_ulong
    x11.XCreateSimpleWindow.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint,
                                        ctypes.c_uint, ctypes.c_uint, ctypes.c_ulong, ctypes.c_ulong]
    x11.XMapRaised.argtypes = [ctypes.c_void_p, ctypes.c_ulong]
    x11.XSelectInput.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_long]
    x11.XPending.argtypes = [ctypes.c_void_p]
    x11.XNextEvent.argtypes = [ctypes.c_void_p, ctypes.POINTER(_Event)]
    x11.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
    x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
    return x11


@contextlib.contextmanager
def connection(display):
    """(library, connection) of a client of its own at a display; what was asked for is done when it ends."""
    x11 = _library()
    client = x11.XOpenDisplay(os.fsencode(display))
    if not client:
        raise RuntimeError(f"cannot open display {display}")
    try:
        yield x11, client
        x11.XSync(client, 0)
    finally:
        x11.XCloseDisplay(client)


def window_of(environment, pid, title):
    """The window of a process that is shown and has this title, or None; `environment` names the display."""
    found = subprocess.run(
        ["xdotool", "search", "--all", "--onlyvisible", "--pid", str(pid), "--name", f"^{re.escape(title)}$"],
        env=environment, capture_output=True, text=True, timeout=60)
    return int(found.stdout.split()[0]) if found.stdout else None


def windows_of_class(environment, name):
    """The windows that are shown and have this class; `environment` names the display."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", f"^{re.escape(name)}$"], env=environment,
                           capture_output=True, text=True, timeout=60, check=False)
    return [int(window) for window in found.stdout.split()]


def minimum_size(display, window):
    """The least (width, height) that a window asks its window manager for."""
    with connection(display) as (x11, client):
        hints, supplied = _SizeHints(), ctypes.c_long()
        if not x11.XGetWMNormalHints(client, window, ctypes.byref(hints), ctypes.byref(supplied)):
            raise AssertionError("the window has no size hints")
        if not hints.flags & _MINIMUM_SIZE:
            raise AssertionError("the window has no least size")
        return hints.min_width, hints.min_height


def icon_sizes(display, window):
    """(width, height) of each picture that a window has for task bars and switchers."""
    with connection(display) as (x11, client):
        kind, width, count, rest = ctypes.c_ulong(), ctypes.c_int(), ctypes.c_ulong(), ctypes.c_ulong()
        contents = ctypes.POINTER(ctypes.c_ulong)()
        x11.XGetWindowProperty(client, window, x11.XInternAtom(client, b"_NET_WM_ICON", 0), 0, 1 << 20, 0, _ANY_TYPE,
                               *map(ctypes.byref, (kind, width, count, rest, contents)))
        sizes, position = [], 0
        while position < count.value:
            sizes.append((contents[position], contents[position + 1]))
            position += 2 + contents[position] * contents[position + 1]
        if contents:
            x11.XFree(contents)
        return sizes


def windows_from_below(display):
    """The top-level windows, the one that covers the others last."""
    with connection(display) as (x11, client):
        root, parent, count = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_uint()
        children = ctypes.POINTER(ctypes.c_ulong)()
        x11.XQueryTree(client, x11.XDefaultRootWindow(client), ctypes.byref(root), ctypes.byref(parent),
                       ctypes.byref(children), ctypes.byref(count))
        found = list(children[:count.value])
        if count.value:
            x11.XFree(children)
        return found


def keyboard_owner(display):
    """The window that the keyboard is directed to."""
    with connection(display) as (x11, client):
        window, reverting = ctypes.c_ulong(), ctypes.c_int()
        x11.XGetInputFocus(client, ctypes.byref(window), ctypes.byref(reverting))
        return window.value


@contextlib.contextmanager
def window_over_everything(display):
    """The identifier of another program's window that covers the whole display and has the keyboard, while it is open."""
    with connection(display) as (x11, client):
        window = x11.XCreateSimpleWindow(client, x11.XDefaultRootWindow(client), 0, 0, 4000, 4000, 0, 0, 0)
        x11.XMapRaised(client, window)
        x11.XSync(client, 0)
        x11.XSetInputFocus(client, window, _REVERT_TO_PARENT, _CURRENT_TIME)
        x11.XSync(client, 0)
        yield window


def request_close(display, window):
    """Asks the program to close a window, as the close button in the title bar does."""
    with connection(display) as (x11, client):
        event = _Event()
        event.client.type = _CLIENT_MESSAGE
        event.client.window = window
        event.client.message_type = x11.XInternAtom(client, b"WM_PROTOCOLS", 0)
        event.client.format = 32
        event.client.data[0] = x11.XInternAtom(client, b"WM_DELETE_WINDOW", 0)
        x11.XSendEvent(client, window, 0, 0, ctypes.byref(event))


def give_keyboard(display, window):
    """Directs the keyboard to a window, as a click into it does."""
    with connection(display) as (x11, client):
        x11.XSetInputFocus(client, window, _REVERT_TO_PARENT, _CURRENT_TIME)


@contextlib.contextmanager
def key_presses(display, window):
    """A function that gives how many key presses a window has got, those of a key that is held among them."""
    with connection(display) as (x11, client):
        x11.XSelectInput(client, window, _KEY_PRESS_MASK)
        x11.XSync(client, 0)
        count = 0

        def presses():
            nonlocal count
            event = _Event()
            while x11.XPending(client):
                x11.XNextEvent(client, ctypes.byref(event))
                count += event.client.type == _KEY_PRESS
            return count

        yield presses


def take_keyboard_away(display):
    """Directs the keyboard to no window at all."""
    give_keyboard(display, _NO_WINDOW)
