#!/usr/bin/env python3
"""How often the application wakes up while a screen is shown and nothing happens.

    idle_screen.py SCREEN SECONDS

Needs AMBREL_APPLICATION, the folder of the built application, and AMBREL_BUILD, the folder of the build. Prints the
wake-ups of all threads, those of the main thread, and the processor time, each for a second, as JSON.
"""

import json
import os
import pathlib
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "Tests/EndToEnd"))

from display import Desktop  # noqa: E402
from engines import gated  # noqa: E402
from installation import Installation, environment_of  # noqa: E402
from package_guard import PackageGuard  # noqa: E402
from recovery_application import RecoveryApplication  # noqa: E402
from samples import sample  # noqa: E402

SCREENS = ("choose", "filled", "inspecting", "snapshots", "exporting", "complete")
# Until everything that follows the last step is done.
_SETTLING = 3


def walk_to(screen, application, texts, gate, destination):
    steps = SCREENS[:SCREENS.index(screen) + 1]
    ordinary = sample("ordinary")
    if "filled" in steps:
        application.choose_package(ordinary.package)
        application.type_credential(ordinary.passphrase)
    if "inspecting" in steps:
        application.press_inspect()
        application.wait_for_text(texts["recovery.inspecting"])
    if "snapshots" in steps:
        gate.touch()
        application.wait_for_snapshots()
        gate.unlink()
    if "exporting" in steps:
        application.choose_destination(destination)
        application.wait_for_text(texts["files-export.running"])
    if "complete" in steps:
        gate.touch()
        application.wait_for_completion()


def wake_ups(pid):
    """How often each thread of a process has gone to sleep by itself, each of which ended with a wake-up."""
    counts = {}
    for status in pathlib.Path(f"/proc/{pid}/task").glob("*/status"):
        fields = dict(line.split(":", 1) for line in status.read_text(encoding="ascii").splitlines())
        counts[int(fields["Pid"])] = int(fields["voluntary_ctxt_switches"])
    return counts


def processor_seconds(pid):
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text(encoding="utf-8").rpartition(")")[2].split()
    return sum(map(int, fields[11:13])) / os.sysconf("SC_CLK_TCK")


def main():
    screen, seconds = sys.argv[1], float(sys.argv[2])
    with tempfile.TemporaryDirectory(prefix="ambrel-benchmark.") as folder, Desktop() as desktop:
        scratch = pathlib.Path(folder)
        installation = Installation(os.environ["AMBREL_APPLICATION"], scratch / "AmbrelRecovery")
        gate = scratch / "gate"
        gated(installation.engine, gate)
        application = RecoveryApplication(desktop, installation, environment_of(desktop, scratch), scratch,
                                          PackageGuard())
        try:
            walk_to(screen, application, application.catalogue, gate, scratch / "Exported")
            application.click_beside_everything()
            time.sleep(_SETTLING)
            pid = application.process.pid
            before, used_before, begin = wake_ups(pid), processor_seconds(pid), time.monotonic()
            time.sleep(seconds)
            took = time.monotonic() - begin
            # A thread that has ended in between is left out.
            woken = {thread: (count - before.get(thread, 0)) / took for thread, count in wake_ups(pid).items()}
            print(json.dumps({"wake-ups": sum(woken.values()), "main thread": woken[pid],
                              "processor": (processor_seconds(pid) - used_before) / took}))
        finally:
            application.stop()


if __name__ == "__main__":
    main()
