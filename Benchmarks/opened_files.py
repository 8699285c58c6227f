#!/usr/bin/env python3
"""What the application does until its window stands and the minimal window does not: files opened, programs connected to.

    dbus-run-session -- opened_files.py BUILD

Needs strace, and a display (DISPLAY). Both programs are ended after three seconds.
"""

import pathlib
import re
import subprocess
import sys
import tempfile

_CALL = re.compile(r'(?P<call>openat|connect)\(.*?"(?P<path>[^"]*)"')


def trace(program):
    with tempfile.TemporaryDirectory(prefix="ambrel-benchmark.") as folder:
        log = pathlib.Path(folder, "log")
        subprocess.run(["strace", "-f", "-e", "trace=openat,connect", "-o", log, "timeout", "3", program],
                       stderr=subprocess.DEVNULL, check=False)
        lines = log.read_text(encoding="utf-8", errors="replace").splitlines()
    found = (_CALL.search(line) for line in lines if " = -1 " not in line)
    return {(match["call"], match["path"]) for match in found if match}


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    application = trace(build / "AmbrelRecovery/AmbrelRecoveryApp")
    minimal = trace(build / "Benchmarks/AmbrelFortyLabels")
    if not application or not minimal:
        sys.exit("nothing was traced")
    print(f"application: {len(application)}, minimal window: {len(minimal)}; the application alone:")
    for call, path in sorted(application - minimal):
        print(f"  {call:<8} {path}")


if __name__ == "__main__":
    main()
