"""The stand-in engine: inspecting a package, and exporting all of it."""

import json
import os
import shutil

from reporting.laboratory import used
from reporting.samples import BINARY_BYTES, BYTES, TIME, cell, median, number, table, time_cell, with_unit

TITLE = "The stand-in engine"
_PICTURE = 4_000_000
_SIZES = (10_000_000, 100_000_000, 1_000_000_000, 4_000_000_000)
_LIMIT = 0.8


def measure(laboratory):
    sizes = _SIZES[:1] if laboratory.is_quick else _SIZES
    alone = laboratory.google_benchmark("AmbrelCipherBenchmarks", repetitions=laboratory.repetitions(9))
    data = {"cipher": alone["decrypt"]["bytes_per_second"], "hash": alone["hash"]["bytes_per_second"]}
    for size in sizes:
        with laboratory.folder_in_memory() as folder:
            data[str(size)] = _measured(laboratory, size, folder)
    return data


def _measured(laboratory, size, folder):
    package, secret = _package(laboratory, size, folder)
    engine = laboratory.build / "StandInEngine/ambrel-recovery"
    factor = ["--backup-passphrase", "--credential-stdin"]
    inspect = [engine, "inspect", package, *factor]
    document = json.loads(laboratory.run(inspect, input=secret))
    newest = max(document["snapshots"], key=lambda snapshot: snapshot["generation"])["selectionCode"]
    values = {"inspect": [], "export": [], "copy": []}
    exported, copied = folder / "exported", folder / "copied"
    for _ in range(laboratory.repetitions(5 if size < 1_000_000_000 else 3)):
        export = [engine, "export", package, "--snapshot", newest, "--destination", exported, *factor]
        copy = ["cp", "-r", package / "payloads", copied]
        for name, command, given, result in (("inspect", inspect, secret, None), ("export", export, secret, exported),
                                             ("copy", copy, None, copied)):
            # What the system itself counts for a new process begins with the memory of the one that starts it.
            note = folder / "kibibytes"
            seconds, _ = used(["/usr/bin/time", "--format=%M", f"--output={note}", *command], given)
            values[name].append(seconds)
            values.setdefault(f"{name} memory", []).append(int(note.read_text(encoding="ascii")) * 1024)
            if result:
                shutil.rmtree(result)
    return values


def _package(laboratory, size, folder):
    pictures = folder / "Pictures"
    pictures.mkdir()
    content = os.urandom(_PICTURE)
    for index in range(size // _PICTURE or 1):
        (pictures / f"{index:05}.jpg").write_bytes(index.to_bytes(8, "big") + content[8:])
    told = laboratory.run([laboratory.build / "StandInEngine/make-sample-backup", "--pictures", pictures, "--output",
                           folder / "Sample.ambrel", "--fast"])
    shutil.rmtree(pictures)
    secrets = dict(line.split(": ", 1) for line in told.splitlines())
    return folder / "Sample.ambrel", secrets["passphrase"] + "\n"


def _sizes(data):
    return [size for size in data if size.isdigit()]


def _export_speed(data, size):
    return int(size) / median(data[size]["export"])


def reaches(data):
    size = _sizes(data)[-1]
    slower = min(median(data["cipher"]), int(size) / median(data[size]["copy"]))
    value = _export_speed(data, size) / slower
    yield (f"export of {with_unit(int(size), BYTES)}, speed to the slower of cipher and copy", f"at least {_LIMIT}",
           number(value), value >= _LIMIT)


def plots(data):
    sizes = _sizes(data)
    lines = {label: {int(size): data[size][label] for size in sizes} for label in ("inspect", "export", "copy")}
    yield "stand-in.svg", "The stand-in engine", "originals in the package", BYTES, "time", "time", lines


def section(data):
    sizes = _sizes(data)
    rows = [[label, *(time_cell(data[size][name]) for size in sizes)]
            for name, label in (("inspect", "inspect"), ("export", "export of the newest snapshot"),
                                ("copy", "`cp -r` of the encrypted originals"))]
    for label, seconds in (("the cipher alone", 1 / median(data["cipher"])),
                           ("the cipher and the hash alone", 1 / median(data["cipher"]) + 1 / median(data["hash"]))):
        rows.append([label, *(with_unit(int(size) * seconds, TIME) for size in sizes)])
    for name in ("inspect", "export"):
        rows.append([f"peak memory of {name}", *(cell(data[size][f"{name} memory"], BINARY_BYTES) for size in sizes)])
    yield from table(["", *(with_unit(int(size), BYTES) for size in sizes)], rows)
    yield ""
    yield (f"Originals of {with_unit(_PICTURE, BYTES)} each, in memory (tmpfs), and a cheap key derivation "
           f"(`--fast`): with the usual one, each run takes longer by the same amount. In memory, the cipher decrypts "
           f"{with_unit(median(data['cipher']), BYTES)} a second, and the hash reads "
           f"{with_unit(median(data['hash']), BYTES)}. The engine does both with every original, one after the other: "
           f"an original has to be authentic, and the one that was backed up. The hash is what keeps the export below "
           f"the speed of the cipher.")
