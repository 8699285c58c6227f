#!/usr/bin/env python3
"""Time to the first complete picture, and memory, of the application beside itself without the wiping of freed memory,
a minimal window and KeePassXC.

    dbus-run-session -- first_pictures.py BUILD [REPETITIONS] [--pictures FOLDER]

Each on an empty virtual display with a home of its own, taking turns, after one start of each that is not counted.
"""

import argparse
import json
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile

_SCREEN = "1280x900x24"
# No question about updates over the window.
_KEEPASSXC = "[General]\nUpdateCheckMessageShown=true\n\n[GUI]\nCheckForUpdates=false\n"


class Display:
    """A context manager; gives the name of a virtual display that ends with it."""

    def __enter__(self):
        reading, writing = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", _SCREEN, "-nolisten", "tcp", "-noreset"],
            pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading, encoding="utf-8") as announcement:
            return ":" + announcement.readline().strip()

    def __exit__(self, *_):
        self._server.terminate()
        self._server.wait()


def environment(display, home):
    runtime = home / "runtime"
    runtime.mkdir(mode=0o700, parents=True)
    kept = {name: os.environ[name] for name in ("PATH", "DBUS_SESSION_BUS_ADDRESS") if name in os.environ}
    return {"DISPLAY": display, "HOME": str(home), "LANG": "C.UTF-8", "QT_QPA_PLATFORM": "xcb", "TZ": "UTC",
            "XDG_RUNTIME_DIR": str(runtime)} | kept


def start(build, program, variables, picture=None):
    command = [build / "Benchmarks/AmbrelFirstPicture"]
    if picture:
        command += ["--picture", picture]
    finished = subprocess.run([*command, *program], env=variables, check=False, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, encoding="utf-8")
    if finished.returncode != 0:
        sys.exit(f"{program[0]}: {finished.stderr}")
    return json.loads(finished.stdout)


def summary(measured, field, scale=1):
    values = sorted(one[field] / scale for one in measured)
    quartiles = statistics.quantiles(values, n=4)
    return {"least": values[0], "median": statistics.median(values), "spread": (quartiles[0], quartiles[2])}


def cell(values):
    low, high = values["spread"]
    return f"{values['median']:.1f} ({low:.1f} to {high:.1f}; least {values['least']:.1f})"


def report(results):
    fields = {"wall ms": ("wallMilliseconds", 1), "processor ms": ("processorMilliseconds", 1),
              "proportional MiB": ("proportionalKiB", 1024), "private dirty MiB": ("privateDirtyKiB", 1024)}
    for title, (field, scale) in fields.items():
        print(f"{title}: median (quartiles; least), ratio of the application to it")
        own = summary(results["application"], field, scale)
        for name, measured in results.items():
            other = summary(measured, field, scale)
            ratio = "" if name == "application" else (
                f", {own['median'] / other['median']:.2f} (of the least {own['least'] / other['least']:.2f})")
            print(f"  {name:<14}{cell(other)}{ratio}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("repetitions", type=int, nargs="?", default=15)
    parser.add_argument("--pictures", type=pathlib.Path)
    arguments = parser.parse_args()
    build = arguments.build.resolve()
    programs = {
        "application": [build / "AmbrelRecovery/AmbrelRecoveryApp"],
        "unwiped": [build / "Benchmarks/Unwiped/AmbrelRecoveryAppUnwiped"],
        "forty labels": [build / "Benchmarks/AmbrelFortyLabels"],
        "KeePassXC": ["keepassxc"],
    }
    results = {name: [] for name in programs}
    folder = pathlib.Path(tempfile.mkdtemp(prefix="ambrel-benchmark."))
    try:
        with Display() as display:
            variables = {name: environment(display, folder / name.replace(" ", "-")) for name in programs}
            configuration = pathlib.Path(variables["KeePassXC"]["HOME"], ".config/keepassxc/keepassxc.ini")
            configuration.parent.mkdir(parents=True)
            configuration.write_text(_KEEPASSXC, encoding="utf-8")
            for name, program in programs.items():
                picture = arguments.pictures / f"{name}.ppm" if arguments.pictures else None
                start(build, program, variables[name], picture)
            for _ in range(arguments.repetitions):
                for name, program in programs.items():
                    results[name].append(start(build, program, variables[name]))
    finally:
        shutil.rmtree(folder, ignore_errors=True)
    report(results)


if __name__ == "__main__":
    main()
