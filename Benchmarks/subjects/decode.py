"""Decoding the engine's inspection document."""

import functools

from reporting.samples import BYTES, cell, median, number, ratio, table, time_cell

TITLE = "Decoding an inspection"
_NAMES = {"product": "product", "kept": "simdjson, kept", "fresh": "simdjson, new each time", "RapidJSON": "RapidJSON",
          "QJsonDocument": "QJsonDocument", "nlohmann": "nlohmann"}
_SIZES = (10, 100, 1_000, 10_000, 100_000, 1_000_000)
_REACHES = {100: 2.2, 10_000: 3.9, 1_000_000: 3.9}
_LARGEST = 1_000_000


def measure(laboratory):
    run = functools.partial(laboratory.google_benchmark, "AmbrelDecodeBenchmarks")
    if laboratory.is_quick:
        return run(repetitions=2, names="^time/.*/(10|10000)$") | run(repetitions=1, names="^memory/.*/10000/")
    measured = run(repetitions=9, names="^time/.*/1(0|00|000|0000|00000)$")
    # One turn of these takes as long as all of the others.
    slow = "(QJsonDocument|nlohmann)"
    measured |= run(repetitions=7, minimum_seconds=0.001, names=f"^time/(product|kept|fresh|RapidJSON)/{_LARGEST}$")
    measured |= run(repetitions=1, minimum_seconds=0.001, names=f"^time/{slow}/{_LARGEST}$")
    return measured | run(repetitions=1, names="^memory/")


def _times(data, name):
    return {size: data[f"time/{name}/{size}"]["time"] for size in _SIZES if f"time/{name}/{size}" in data}


def reaches(data):
    for size, limit in _REACHES.items():
        if f"time/product/{size}" in data:
            value = ratio(_times(data, "product")[size], _times(data, "kept")[size])
            yield f"{size:,} snapshots, to the kept parser", f"at most {limit}", number(value), value <= limit


def plots(data):
    yield ("decode.svg", "Decoding an inspection", "snapshots", None, "time", "time",
           {label: _times(data, name) for name, label in _NAMES.items()})


def section(data):
    sizes = list(_times(data, "product"))
    rows = []
    for name, label in _NAMES.items():
        times = _times(data, name)
        rows.append([label, *(time_cell(times[size]) for size in sizes)])
    rows.append(["product to the kept parser",
                 *(number(ratio(_times(data, "product")[size], _times(data, "kept")[size])) for size in sizes)])
    rows.append(["product to the new parser",
                 *(number(ratio(_times(data, "product")[size], _times(data, "fresh")[size])) for size in sizes)])
    yield from table(["", *(f"{size:,}" for size in sizes)], rows)
    yield ""
    yield ("The product decodes into its document; the others only parse. The kept parser has the memory of its last "
           "turn and is the limit. The others allocate theirs in each turn. Up to 1,000 snapshots, the C library still "
           "has it from the turn before; longer texts get it from the system, page by page, because the parser reserves "
           "eight bytes for each byte of text. From 100,000 on, this is most of the product's time. The application "
           "decodes one document at a time, and hardly ever a second one.")
    yield ""
    memory_sizes = [size for size in _SIZES if f"memory/product/{size}" in data]
    rows = [[label, *(_memory_cell(data, name, size) for size in memory_sizes)]
            for name, label in _NAMES.items() if name != "kept"]
    yield from table(["peak memory, and times the text", *(f"{size:,}" for size in memory_sizes)], rows)


def _memory_cell(data, name, size):
    used = data[f"memory/{name}/{size}"]["memory"]
    text = median(data[f"time/{name}/{size}"]["text"])
    return f"{cell(used, BYTES)}, {number(median(used) / text)}"
