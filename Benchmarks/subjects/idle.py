"""What the application does while nothing happens."""

import json
import os
import subprocess
import sys

from reporting.laboratory import TOP
from reporting.samples import number, table

TITLE = "Idle"
_LIMIT = 0.2
_SCREENS = {"choose": "nothing chosen", "filled": "a package and a passphrase, with a blinking caret",
            "inspecting": "inspecting, with an animation", "snapshots": "snapshots",
            "exporting": "exporting, with an animation", "complete": "complete"}
_RESTING = ("choose", "snapshots", "complete")


def measure(laboratory):
    seconds = 5 if laboratory.is_quick else 60
    screens = ("choose",) if laboratory.is_quick else _SCREENS
    variables = os.environ | {"AMBREL_APPLICATION": str(laboratory.build / "AmbrelRecovery"),
                              "AMBREL_BUILD": str(laboratory.build)}
    running = {}
    for screen in screens:
        running[screen] = subprocess.Popen(
            ["/usr/bin/python3", "-B", TOP / "Benchmarks/idle_screen.py", screen, str(seconds)], env=variables,
            stdout=subprocess.PIPE, encoding="utf-8")
    data = {}
    for screen, process in running.items():
        output, _ = process.communicate()
        if process.returncode != 0:
            sys.exit(f"the screen “{screen}” was not reached")
        data[screen] = json.loads(output)
    return data


def reaches(data):
    resting = max(data[screen]["wake-ups"] for screen in _RESTING if screen in data)
    yield "wake-ups a second where nothing moves", f"at most {_LIMIT}", number(resting), resting <= _LIMIT


def plots(data):
    yield from ()


def section(data):
    yield from table(["screen", "wake-ups a second", "of the main thread", "of a processor"],
                     [[_SCREENS[screen], number(measured["wake-ups"]), number(measured["main thread"]),
                       f"{measured['processor']:.1%}"] for screen, measured in data.items()])
    yield ""
    yield ("Counted over a minute on each screen, one application each on a display of its own, all at the same time. "
           "In an animation, the other threads are those that blend the picture and read from the display, for which the "
           "main thread also waits. The frames themselves are not counted.")
