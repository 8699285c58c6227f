"""Copied and selected texts, and the properties of windows: what programs of a display can read of one another."""

import contextlib
import ctypes
import os
import select
import threading

import window_manager

_PROPERTY_CHANGE_REPLACE = 0
_SELECTION_CLEAR = 29
_SELECTION_REQUEST = 30
_SELECTION_NOTIFY = 31
_ANY_TYPE = 0
_ATOM = 4
_CURRENT_TIME = 0
_LONG_ENOUGH = 1 << 20

_Identifier = ctypes.c_ulong


class _Request(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("owner", _Identifier), ("requestor", _Identifier),
                ("selection", _Identifier), ("target", _Identifier), ("property", _Identifier), ("time", _Identifier)]


class _Notification(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("requestor", _Identifier), ("selection", _Identifier),
                ("target", _Identifier), ("property", _Identifier), ("time", _Identifier)]


class _Event(ctypes.Union):
    _fields_ = [("type", ctypes.c_int), ("request", _Request), ("notification", _Notification),
                ("padding", ctypes.c_long * 24)]


def _declare(x11):
    for name in ("XDefaultRootWindow", "XCreateSimpleWindow", "XGetSelectionOwner"):
        getattr(x11, name).restype = _Identifier
    number, client = ctypes.c_int, ctypes.c_void_p
    x11.XDefaultRootWindow.argtypes = [client]
    x11.XCreateSimpleWindow.argtypes = [client, _Identifier, number, number, ctypes.c_uint, ctypes.c_uint,
                                        ctypes.c_uint, ctypes.c_ulong, ctypes.c_ulong]
    x11.XGetSelectionOwner.argtypes = [client, _Identifier]
    x11.XSetSelectionOwner.argtypes = [client, _Identifier, _Identifier, _Identifier]
    x11.XChangeProperty.argtypes = [client, _Identifier, _Identifier, _Identifier, number, number, ctypes.c_char_p,
                                    number]
    x11.XSendEvent.argtypes = [client, _Identifier, number, ctypes.c_long, ctypes.c_void_p]
    x11.XNextEvent.argtypes = [client, ctypes.c_void_p]
    for name in ("XPending", "XConnectionNumber", "XFlush"):
        getattr(x11, name).argtypes = [client]
    x11.XQueryTree.argtypes = [client, _Identifier] + [ctypes.c_void_p] * 4
    x11.XListProperties.argtypes = [client, _Identifier, ctypes.c_void_p]
    x11.XListProperties.restype = ctypes.POINTER(_Identifier)
    x11.XGetWindowProperty.argtypes = [client, _Identifier, _Identifier, ctypes.c_long, ctypes.c_long, number,
                                       _Identifier] + [ctypes.c_void_p] * 5
    x11.XFree.argtypes = [ctypes.c_void_p]


@contextlib.contextmanager
def copied(display, selection, text):
    """While it lasts, `text` is what "CLIPBOARD" or "PRIMARY" holds: another program answers whoever pastes it."""
    with window_manager.connection(display) as (x11, client):
        _declare(x11)
        window = x11.XCreateSimpleWindow(client, x11.XDefaultRootWindow(client), 0, 0, 1, 1, 0, 0, 0)
        name = x11.XInternAtom(client, os.fsencode(selection), 0)
        x11.XSetSelectionOwner(client, name, window, _CURRENT_TIME)
        if x11.XGetSelectionOwner(client, name) != window:
            raise RuntimeError(f"{selection} cannot be had")
        ending, end = os.pipe()
        owner = threading.Thread(target=_answer, args=(x11, client, text.encode(), ending))
        owner.start()
        try:
            yield
        finally:
            os.close(end)
            owner.join()
            os.close(ending)


def _answer(x11, client, contents, ending):
    """Answers requests for the selection until the other end of the pipe is closed."""
    utf8 = x11.XInternAtom(client, b"UTF8_STRING", 0)
    targets = x11.XInternAtom(client, b"TARGETS", 0)
    offered = (_Identifier * 2)(targets, utf8)
    answers = {utf8: (utf8, 8, contents, len(contents)), targets: (_ATOM, 32, bytes(offered), len(offered))}
    event = _Event()
    while True:
        x11.XFlush(client)
        if not x11.XPending(client):
            ready, _, _ = select.select([x11.XConnectionNumber(client), ending], [], [])
            if ending in ready:
                return
            continue
        x11.XNextEvent(client, ctypes.byref(event))
        if event.type == _SELECTION_REQUEST:
            _answer_one(x11, client, event.request, answers)


def _answer_one(x11, client, request, answers):
    notification = _Event()
    notification.notification = _Notification(_SELECTION_NOTIFY, 0, 0, None, request.requestor, request.selection,
                                              request.target, 0, request.time)
    if request.target in answers:
        kind, width, contents, count = answers[request.target]
        x11.XChangeProperty(client, request.requestor, request.property, kind, width, _PROPERTY_CHANGE_REPLACE,
                            contents, count)
        notification.notification.property = request.property
    x11.XSendEvent(client, request.requestor, 0, 0, ctypes.byref(notification))


def selection_has_owner(display, selection):
    """Whether any program holds a text in this selection."""
    with window_manager.connection(display) as (x11, client):
        _declare(x11)
        return x11.XGetSelectionOwner(client, x11.XInternAtom(client, os.fsencode(selection), 0)) != 0


def properties(display):
    """The contents of every property of every window of a display, in bytes."""
    with window_manager.connection(display) as (x11, client):
        _declare(x11)
        return list(_properties_below(x11, client, x11.XDefaultRootWindow(client)))


def _properties_below(x11, client, window):
    count = ctypes.c_int()
    names = x11.XListProperties(client, window, ctypes.byref(count))
    for name in names[:count.value] if names else ():
        yield _contents_of_property(x11, client, window, name)
    if names:
        x11.XFree(names)
    root, parent, children, number = _Identifier(), _Identifier(), ctypes.POINTER(_Identifier)(), ctypes.c_uint()
    x11.XQueryTree(client, window, *map(ctypes.byref, (root, parent, children, number)))
    below = children[:number.value] if number.value else []
    if number.value:
        x11.XFree(children)
    for child in below:
        yield from _properties_below(x11, client, child)


def _contents_of_property(x11, client, window, name):
    kind, width, count, rest, contents = (_Identifier(), ctypes.c_int(), ctypes.c_ulong(), ctypes.c_ulong(),
                                          ctypes.c_void_p())
    x11.XGetWindowProperty(client, window, name, 0, _LONG_ENOUGH, 0, _ANY_TYPE,
                           *map(ctypes.byref, (kind, width, count, rest, contents)))
    if not contents:
        return b""
    # The library gives 32 bits as what the machine's long is.
    bytes_of_one = {8: 1, 16: 2, 32: ctypes.sizeof(ctypes.c_long)}.get(width.value, 0)
    found = ctypes.string_at(contents, count.value * bytes_of_one)
    x11.XFree(contents)
    return found
