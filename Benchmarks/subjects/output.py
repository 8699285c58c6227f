"""The output of an engine, until it is in the memory of the application."""

from reporting.samples import BINARY_BYTES, cell, median, number, ratio, table, time_cell, with_unit

TITLE = "Output"
_LABELS = {"product": "product", "QProcess": "QProcess", "file": "into a file, and not read"}
_SIZES = (1 << 10, 1 << 15, 1 << 20, 1 << 25, 1 << 30)
_LARGEST = 1 << 30


def measure(laboratory):
    if laboratory.is_quick:
        return laboratory.google_benchmark("AmbrelOutputBenchmarks", repetitions=2, names="/(1024|1048576)/")
    found = laboratory.google_benchmark("AmbrelOutputBenchmarks", repetitions=9, names="/(1024|32768|1048576|33554432)/")
    return found | laboratory.google_benchmark("AmbrelOutputBenchmarks", repetitions=5, minimum_seconds=0.001,
                                               names=f"/{_LARGEST}/")


def _values(data, name, field):
    return {size: data[f"{name}/{size}"][field] for size in _SIZES if f"{name}/{size}" in data}


def reaches(data):
    if f"product/{_LARGEST}" in data:
        value = ratio(_values(data, "product", "time")[_LARGEST], _values(data, "QProcess", "time")[_LARGEST])
        yield "1 GiB, to QProcess", "at most 1.0", number(value), value <= 1
        value = median(_values(data, "product", "memory")[_LARGEST]) / _LARGEST
        yield "1 GiB, memory to the output", "at most 1.02", number(value), value <= 1.02


def plots(data):
    yield ("output.svg", "Output of an engine", "bytes of output", BINARY_BYTES, "time", "time",
           {label: _values(data, name, "time") for name, label in _LABELS.items()})


def section(data):
    sizes = list(_values(data, "product", "time"))
    yield from table(["", *(with_unit(size, BINARY_BYTES) for size in sizes)],
                     [[label, *(time_cell(values) for values in _values(data, name, "time").values())]
                      for name, label in _LABELS.items()])
    yield ""
    yield from table(["peak memory", *(with_unit(size, BINARY_BYTES) for size in sizes)],
                     [[label, *(cell(values, BINARY_BYTES) for values in _values(data, name, "memory").values())]
                      for name, label in _LABELS.items() if name != "file"])
    yield ""
    yield ("The engine is `head -c`, and the files are in memory (tmpfs). Memory is what the application itself needs "
           "besides; a file on a tmpfs counts for the system.")
