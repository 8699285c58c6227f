"""From the start to the first complete picture, and memory."""

import json
import os
import pathlib

from reporting.display import Display, SessionBus
from reporting.samples import number, ratio, table, time_cell, cell, BINARY_BYTES

TITLE = "From the start to the first complete picture"
_LABELS = {"product": "product", "unwiped": "product, without the wiping of freed memory",
           "labels": "a window with labels alone", "KeePassXC": "KeePassXC", "Déjà Dup": "Déjà Dup"}
_ALONE = ("product", "labels", "KeePassXC")
# No question about updates over the window.
_KEEPASSXC = "[General]\nUpdateCheckMessageShown=true\n\n[GUI]\nCheckForUpdates=false\n"


def measure(laboratory):
    programs = {
        "product": [laboratory.build / "AmbrelRecovery/AmbrelRecoveryApp"],
        "unwiped": [laboratory.build / "Benchmarks/Unwiped/AmbrelRecoveryAppUnwiped"],
        "labels": [laboratory.build / "Benchmarks/AmbrelFortyLabels"],
        "KeePassXC": ["keepassxc"],
        "Déjà Dup": ["deja-dup"],
    }
    if laboratory.is_quick:
        programs = {name: programs[name] for name in _ALONE}
    data = {name: {} for name in programs}
    with laboratory.folder_in_memory() as folder, Display() as display, SessionBus() as bus:
        variables = {name: _environment(display, bus, folder / str(index)) for index, name in enumerate(programs)}
        _configure_keepassxc(variables["KeePassXC"]["HOME"])
        # One start of each is not counted: what it writes into its home is there from then on.
        for turn in range(laboratory.repetitions(9) + 1):
            for name, program in programs.items():
                started = _start(laboratory, program, variables[name])
                for field, value in started.items() if turn > 0 else ():
                    data[name].setdefault(field, []).append(value)
    return data


def _environment(display, bus, home):
    runtime = home / "runtime"
    runtime.mkdir(mode=0o700, parents=True)
    # Without a graphics card, the toolkit of Déjà Dup draws fastest in software.
    return {"PATH": os.environ["PATH"], "DBUS_SESSION_BUS_ADDRESS": bus, "DISPLAY": display, "HOME": str(home),
            "LANG": "C.UTF-8", "QT_QPA_PLATFORM": "xcb", "GDK_BACKEND": "x11", "GSK_RENDERER": "cairo", "TZ": "UTC",
            "XDG_RUNTIME_DIR": str(runtime)}


def _configure_keepassxc(home):
    configuration = pathlib.Path(home, ".config/keepassxc/keepassxc.ini")
    configuration.parent.mkdir(parents=True)
    configuration.write_text(_KEEPASSXC, encoding="utf-8")


def _start(laboratory, program, variables):
    started = json.loads(laboratory.run([laboratory.build / "Benchmarks/AmbrelFirstPicture", *program], env=variables))
    values = {"wall": started["wallMilliseconds"] / 1000, "processor": started["processorMilliseconds"] / 1000,
              "proportional": started["proportionalKiB"] * 1024, "private": started["privateDirtyKiB"] * 1024}
    # Memory that may not be read is negative.
    return {field: value for field, value in values.items() if value >= 0}


def reaches(data):
    for field, what, limit in (("wall", "time", 0.4), ("proportional", "memory", 0.45)):
        if field in data["product"] and field in data["KeePassXC"]:
            value = ratio(data["product"][field], data["KeePassXC"][field])
            yield f"{what}, to KeePassXC's", f"at most {limit}", number(value), value <= limit


def plots(data):
    yield from ()


def section(data):
    rows = []
    for name, measured in data.items():
        row = [_LABELS[name]]
        for field, written in (("wall", time_cell), ("processor", time_cell),
                               ("proportional", lambda values: cell(values, BINARY_BYTES)),
                               ("private", lambda values: cell(values, BINARY_BYTES))):
            is_compared = name != "product" and field in measured and field in data["product"]
            own = f", {number(ratio(data['product'][field], measured[field]))}" if is_compared else ""
            row.append(written(measured[field]) + own if field in measured else "not readable")
        rows.append(row)
    yield from table(["", "time", "processor time", "proportional memory (PSS)", "private memory written to"], rows)
    yield ""
    yield ("After each value, the ratio of the product's to it. A picture counts as complete when it first equals the "
           "one that is left when nothing has been drawn for a while; it is observed from outside, through the display. "
           "Proportional memory depends on how many other programs share the libraries at that moment: here, only the "
           "display.")
    yield ""
    yield ("More than half of the product's additional instructions create its fonts: for each size and weight, the "
           "toolkit asks the font configuration once. The rest is the layout and painting of texts, and the wiping. "
           "While the first picture is drawn, a thread searches the temporary directory for files that killed "
           "applications left behind.")
