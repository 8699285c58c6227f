"""Runs a program where it can do no harm. Changed code may remove the wrong folder, kill the wrong process, or never end:
in the box nothing but temporary folders of its own can be written to, and no processes but its own exist.
"""

import os
import signal
import subprocess

# Every process in the box ends with this shell, which is the first one in there.
_SHELL = """
mount -t tmpfs -o size=3g,mode=1777 tmpfs /tmp && mount -t tmpfs -o size=1g,mode=1777 tmpfs /dev/shm || exit 125
while read -r _ place _; do
    case $place in /proc* | /tmp | /dev/shm) ;; *) mount -o remount,bind,ro "$place" || exit 125 ;; esac
done < /proc/self/mounts
mkdir /tmp/home && ulimit -c 0 && ulimit -v 6291456 && ulimit -t "$1" || exit 125
shift
"$@"
"""
_NO_BOX = 125
# What the shell says of a program that the system has ended for its use of the processor: one signal or the other.
TOO_BUSY = {128 + signal.SIGXCPU, 128 + signal.SIGKILL}


class NoBox(Exception):
    """The system does not let a program be put into a box."""


def run_boxed(command, log, limit, processor_limit, environment=None, place=None):
    """As run(), in the box, where no process may use the processor for more than `processor_limit` seconds. `environment`
    comes on top of that of the caller."""
    rights = [] if os.geteuid() == 0 else ["--map-root-user"]
    box = ["unshare", *rights, "--mount", "--pid", "--fork", "--kill-child", "--mount-proc", "sh", "-c", _SHELL, "sh",
           str(processor_limit)]
    own = {"TMPDIR": "/tmp", "HOME": "/tmp/home"}
    status = run(box + command, log, limit, {**os.environ, **own, **(environment or {})}, place)
    if status == _NO_BOX:
        raise NoBox(f"A program cannot be put into its box; see {log}")
    return status


def run(command, log, limit, environment=None, place=None):
    """The status of a command, whose output goes into the file `log`; None where it was ended after `limit` seconds."""
    with open(log, "wb") as output:
        process = subprocess.Popen(command, cwd=place, env=environment, stdin=subprocess.DEVNULL, stdout=output,
                                   stderr=output, start_new_session=True)
        try:
            return process.wait(limit)
        except subprocess.TimeoutExpired:
            return None
        finally:
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGKILL)
                process.wait()
