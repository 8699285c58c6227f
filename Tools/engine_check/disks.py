"""Disks that only the check sees: small ones in memory, and a package mounted for reading only."""

import ctypes
import os
import pickle
import signal

import processes
from judgement import NotHeld, NotRun

_NEW_MOUNTS = 0x00020000
_NEW_USER = 0x10000000
_READ_ONLY = 1
_REMOUNT = 32
_BIND = 4096
_RECURSIVE = 16384
_PRIVATE = 1 << 18
# What a user may not take away from a mount of the system: how statvfs names it, and how mount does.
_LOCKED = {2: 2, 4: 4, 8: 8, 1024: 1024, 2048: 2048, 4096: 1 << 21}

_library = ctypes.CDLL(None, use_errno=True)


def _call(function, *arguments):
    if function(*arguments) != 0:
        raise OSError(ctypes.get_errno(), os.strerror(ctypes.get_errno()))


def _mount(source, target, kind, flags, data=""):
    _call(_library.mount, os.fsencode(source), os.fsencode(target), kind.encode(), ctypes.c_ulong(flags), data.encode())


def mount_small(folder, kilobytes):
    _mount("none", folder, "tmpfs", 0, f"size={kilobytes}k")


def make_read_only(folder):
    """Whatever is at a folder can only be read from now on, under any user."""
    _mount(folder, folder, "", _BIND | _RECURSIVE)
    flags = os.statvfs(folder).f_flag
    locked = sum(mount for status, mount in _LOCKED.items() if flags & status)
    _mount("none", folder, "", _REMOUNT | _BIND | _READ_ONLY | locked)


def _enter_namespace():
    if os.geteuid() == 0:
        _call(_library.unshare, _NEW_MOUNTS)
    else:
        user, group = os.geteuid(), os.getegid()
        _call(_library.unshare, _NEW_USER | _NEW_MOUNTS)
        for name, text in (("setgroups", "deny"), ("uid_map", f"0 {user} 1"), ("gid_map", f"0 {group} 1")):
            with open(f"/proc/self/{name}", "w", encoding="ascii") as file:
                file.write(text)
    _mount("none", "/", "", _RECURSIVE | _PRIVATE)


def with_mounts(mount, function, engine):
    """Calls both in a process that has mounts of its own, and gives what `function` gives.

    The runs of the engine there count as its runs. Raises NotRun if nothing can be mounted, or what `function` raises.
    """
    reader, writer = os.pipe()
    child = os.fork()
    if child == 0:
        try:
            os.close(reader)
            with open(writer, "wb") as answers:
                pickle.dump(_answer(mount, function, engine), answers)
        finally:  # also when it is asked to end: the rest is the other process's
            os._exit(0)
    os.close(writer)
    try:
        with open(reader, "rb") as answers:
            data = answers.read()
    except BaseException:
        os.kill(child, signal.SIGTERM)
        raise
    finally:
        os.waitpid(child, 0)
    result, outcomes = pickle.loads(data)
    engine.outcomes += outcomes
    if isinstance(result, Exception):
        raise result
    return result


def _answer(mount, function, engine):
    """What the function gave or raised, and the runs of the engine meanwhile."""
    first = len(engine.outcomes)
    try:
        processes.adopt_orphans()
        try:
            _enter_namespace()
            mount()
        except OSError as failure:
            raise NotRun(f"this system does not let the check mount a disk: {failure.strerror}") from failure
        result = function()
    except (NotHeld, NotRun) as finding:
        result = finding
    except Exception as failure:  # whatever it is, the other process is to report it
        result = RuntimeError(f"{type(failure).__name__}: {failure}")
    return result, engine.outcomes[first:]
