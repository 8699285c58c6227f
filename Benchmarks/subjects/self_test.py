"""The mode that runs the engine's self-test without a window."""

import shutil

from reporting.laboratory import used
from reporting.samples import TIME, median, table, time_cell, with_unit

TITLE = "Self-test mode until the engine runs"
_LIMIT = 5e-3
_ENGINE = "/bin/true"
_LABELS = {"product": "product with this engine", "engine": "the engine alone",
           "libraries": "a program that only loads the product's libraries"}


def measure(laboratory):
    data = {name: {"processor": [], "wall": []} for name in _LABELS}
    with laboratory.folder_in_memory() as folder:
        shutil.copytree(laboratory.build / "AmbrelRecovery", folder / "AmbrelRecovery")
        shutil.copy(_ENGINE, folder / "AmbrelRecovery/Resources/bin/ambrel-recovery")
        commands = {"product": [folder / "AmbrelRecovery/AmbrelRecoveryApp", "--self-test"], "engine": [_ENGINE],
                    "libraries": [laboratory.build / "Benchmarks/AmbrelLibrariesAlone"]}
        for _ in range(laboratory.repetitions(51)):
            for name, command in commands.items():
                wall, processor = used(command)
                data[name]["wall"].append(wall)
                data[name]["processor"].append(processor)
    return data


def reaches(data):
    value = median(data["product"]["processor"]) - median(data["engine"]["processor"])
    yield "processor time beyond the engine's", "at most 5 ms", with_unit(value, TIME), value <= _LIMIT


def plots(data):
    yield from ()


def section(data):
    rows = [[label, time_cell(data[name]["processor"]), time_cell(data[name]["wall"])]
            for name, label in _LABELS.items()]
    yield from table(["", "processor time", "time"], rows)
    yield ""
    yield ("The engine is a copy of `/bin/true`. The executable is the one that opens the window, so the dynamic linker "
           "loads and binds the toolkit's libraries before `main`. Most of the difference is that.")
