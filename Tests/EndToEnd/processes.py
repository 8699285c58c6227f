"""The processes that a test starts: they end with the test, on every way out."""

import ctypes
import os
import signal
import subprocess
import sys

from waiting import wait_for

_PR_SET_CHILD_SUBREAPER = 36
_libc = ctypes.CDLL(None, use_errno=True)


def take_charge():
    """Makes this process the parent of every descendant whose own parent ends, so that none is lost from sight.

    A request to end unwinds it like an error, so that what it started is ended, too. A shell has its background jobs
    ignore SIGINT; what is tested here does not.
    """
    for number in (signal.SIGTERM, signal.SIGINT):
        signal.signal(number, lambda number, _: sys.exit(128 + number))
    if _libc.prctl(_PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0) != 0:
        raise OSError(ctypes.get_errno(), "prctl")


def without_rights(arguments):
    """The command line that runs a program without root's rights, even where root runs the tests.

    File permissions hold for it then, and what another program of the same user may do to it.
    """
    if os.geteuid() != 0:
        return arguments
    return ["setpriv", "--bounding-set=-all", "--inh-caps=-all", *arguments]


def may_look_into(pid):
    """Whether another program of the same user, without root's rights, may look into a process.

    The root directory is what the desktop's portal opens.
    """
    return subprocess.run(without_rights(["test", "-d", f"/proc/{pid}/root/."]), check=False,
                          stdin=subprocess.DEVNULL).returncode == 0


def start(arguments, **options):
    """Starts a program that ends with this process, even if this process is killed."""
    # Not by a function that runs between fork and exec, which is unsafe beside threads.
    return subprocess.Popen(["setpriv", "--pdeathsig=TERM", *arguments], **options)


def stop(process, seconds=10.0):
    """Ends a started program: politely, then by force. Returns its exit status."""
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(seconds)
        except subprocess.TimeoutExpired:
            process.kill()
    return process.wait()


def _status(pid):
    """(state, parent) of a process, or None when it is gone."""
    try:
        with open(f"/proc/{pid}/stat", encoding="utf-8", errors="replace") as stat:
            fields = stat.read().rpartition(")")[2].split()
    except (FileNotFoundError, ProcessLookupError):
        return None
    return fields[0], int(fields[1])


def descendants(ancestor):
    """The identifiers of all living processes that stem from `ancestor`."""
    parents = {}
    for name in os.listdir("/proc"):
        if name.isdigit():
            status = _status(int(name))
            if status and status[0] not in "ZX":
                parents[int(name)] = status[1]
    found = set()
    grown = True
    while grown:
        grown = False
        for pid, parent in parents.items():
            if pid not in found and (parent == ancestor or parent in found):
                found.add(pid)
                grown = True
    return found


def command_of(pid):
    """What a process runs, for messages."""
    try:
        with open(f"/proc/{pid}/cmdline", "rb") as command:
            return command.read().replace(b"\0", b" ").decode(errors="replace").strip()
    except OSError:
        return "(ended)"


def running(path):
    """The processes below this one that run the program or script at `path`."""
    return {pid for pid in descendants(os.getpid()) if path in command_of(pid)}


def end_all(pids):
    """Ends each of these processes and waits until it is gone."""
    for number in (signal.SIGTERM, signal.SIGKILL):
        pids = {pid for pid in pids if _alive(pid)}
        for pid in pids:
            try:
                os.kill(pid, number)
            except ProcessLookupError:
                pass
        try:
            wait_for("the end of every process", lambda: not any(_alive(pid) for pid in pids), 5.0)
            return
        except AssertionError:
            continue


def _alive(pid):
    status = _status(pid)
    if status is None:
        return False
    if status[0] == "Z" and status[1] == os.getpid():
        try:
            os.waitpid(pid, os.WNOHANG)
        except ChildProcessError:
            pass
        return False
    return status[0] not in "ZX"
