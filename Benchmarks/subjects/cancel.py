"""From the request to cancel until the run has returned."""

from reporting.samples import median, table, time_cell, with_unit, TIME

TITLE = "Cancelling"
_LIMIT = 1e-3
_LABELS = {"bare": "the engine alone: a signal, and the wait for its end", "product": "product", "QProcess": "QProcess"}


def measure(laboratory):
    found = laboratory.google_benchmark("AmbrelCancelBenchmarks", repetitions=laboratory.repetitions(15))
    return {name: found[name]["time"] for name in _LABELS}


def reaches(data):
    value = median(data["product"]) - median(data["bare"])
    yield "after the engine's own end", "at most 1 ms", with_unit(max(value, 0), TIME), value <= _LIMIT


def plots(data):
    yield from ()


def section(data):
    yield from table(["", "from the request to the return"],
                     [[label, time_cell(data[name])] for name, label in _LABELS.items()])
    yield ""
    yield "The engine is `/bin/sleep`, which the signal ends at once."
