"""One run of an engine that does nothing."""

from reporting.laboratory import file_system
from reporting.samples import BYTES, TIME, median, number, ratio, table, time_cell, with_unit

TITLE = "One run of the engine"
_NAMES = ("bare", "product", "QProcess", "Boost.Process")
_PARENTS = (50, 200, 1_000, 4_000)
_LIMIT = 1.35


def measure(laboratory):
    data = {"memory": {}, "disk": {}, "system": file_system(laboratory.build)}
    parents = _PARENTS[:1] if laboratory.is_quick else _PARENTS
    for parent in parents:
        data["memory"][str(parent)] = _measured(laboratory, parent, "/dev/shm")
    with laboratory.folder_on_disk() as folder:
        data["disk"][str(_PARENTS[0])] = _measured(laboratory, _PARENTS[0], folder)
    return data


def _measured(laboratory, parent, folder):
    found = laboratory.google_benchmark("AmbrelEngineRunBenchmarks", "--parent", parent, folder=folder,
                                        repetitions=laboratory.repetitions(15), minimum_seconds=0.05)
    return {name: found[name]["time"] for name in _NAMES}


def reaches(data):
    times = data["memory"][str(_PARENTS[0])]
    value = ratio(times["product"], times["bare"])
    yield "files in memory (tmpfs), to the bare run", f"at most {_LIMIT}", number(value), value <= _LIMIT


def plots(data):
    lines = {name: {int(parent) * 1_000_000: times[name] for parent, times in data["memory"].items()}
             for name in _NAMES}
    yield "engine-run.svg", "One run of an engine", "memory of the application", BYTES, "time", "time", lines


def section(data):
    kinds = [(f"tmpfs, {int(parent):,} MB", times) for parent, times in data["memory"].items()]
    kinds += [(f"{data['system']}, {int(parent):,} MB", times) for parent, times in data["disk"].items()]
    first = kinds[0][1]
    rows = []
    for name in _NAMES:
        rows.append([name, *(f"{time_cell(times[name])}, {number(ratio(times[name], times['bare']))}"
                             for _, times in kinds)])
    yield from table(["the run's files are on; the application has", *(title for title, _ in kinds)], rows)
    yield ""
    yield ("The engine is `/bin/true`. The bare run is the limit: vfork, execve, wait, and nothing else. The number "
           "after each time is the ratio to it. The product checks the engine, makes a locked private folder and two "
           "files, hands over the secret, and removes everything. QProcess and Boost.Process hand over the secret, too, "
           "and read through pipes. With files in memory, the product takes "
           f"{with_unit(median(first['product']) - median(first['bare']), TIME)} longer than the bare run.")
