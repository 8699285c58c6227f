"""The processes that an engine starts."""

import ctypes
import os
import pathlib
import signal
import time

_BECOME_SUBREAPER = 36


def adopt_orphans():
    """From now on, processes whose parent ends become children of this one. None of the engine's gets away."""
    if ctypes.CDLL(None, use_errno=True).prctl(_BECOME_SUBREAPER, 1, 0, 0, 0) != 0:
        raise OSError(ctypes.get_errno(), "orphans cannot be adopted")


def children_of(pid):
    children = []
    try:
        for thread in os.listdir(f"/proc/{pid}/task"):
            children += map(int, pathlib.Path(f"/proc/{pid}/task/{thread}/children").read_text("ascii").split())
    except OSError:  # ended meanwhile
        pass
    return children


def with_descendants(pid):
    """A process and all that it has started, as far as they live."""
    found = [pid]
    for known in found:
        found += children_of(known)
    return found


def _read(pid, name):
    try:
        return pathlib.Path(f"/proc/{pid}/{name}").read_bytes()
    except PermissionError:
        return None
    except OSError:  # ended meanwhile
        return b""


class Observation:
    """Looks at the command lines and environments of processes while they run."""

    def __init__(self, secrets):
        self._secrets = secrets
        self.seen = set()
        self.unreadable = set()
        self.showing = set()

    def look(self, pid):
        for each in with_descendants(pid):
            self.seen.add(each)
            for name, place in (("cmdline", "on its command line"), ("environ", "in its environment")):
                content = _read(each, name)
                if content is None:
                    self.unreadable.add(each)
                elif any(secret in content for secret in self._secrets):
                    self.showing.add(f"a process has a secret {place}")


def end_orphans(seconds):
    """Ends this process's children after they had time to end by themselves. Returns the names of what was ended."""
    deadline = time.monotonic() + seconds
    while _living_children() and time.monotonic() < deadline:
        time.sleep(0.005)
    ended = []
    while living := _living_children():
        for pid in living:
            ended.append(os.fsdecode(_read(pid, "comm") or b"?").strip())
            os.kill(pid, signal.SIGKILL)
            os.waitpid(pid, 0)
    return ended


def _living_children():
    """The children of this process that live. Those that have ended are reaped."""
    living = []
    for pid in children_of(os.getpid()):
        if os.waitpid(pid, os.WNOHANG)[0] == 0:
            living.append(pid)
    return living
