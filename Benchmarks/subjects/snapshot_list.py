"""Opening and scrolling the list of snapshots, and redrawing the window."""

import functools

from reporting.display import Display
from reporting.samples import median, number, ratio, table, time_cell, with_unit, TIME

TITLE = "The list of snapshots, and redrawing"
_FRAME = 0.016
_ROWS = (
    ("sorted rows set, laid out, painted", "openSnapshotList/1000", "openSnapshotList/100000"),
    ("sorting, once for each inspection", "sortSnapshots/1000", "sortSnapshots/100000"),
    ("another row selected", "selectAnotherSnapshot/1000", "selectAnotherSnapshot/100000"),
    ("one scrolled frame", "scrollSnapshotList/1000", "scrollSnapshotList/100000"),
    ("the same rows drawn by hand, one scrolled frame", "scrollBareRows/1000", None),
    ("a widget for each row, shown and painted", "openRowWidgets/1000", None),
)
_REDRAWS = (
    ("from a change of the model to the painted window", "redrawAfterModelChange"),
    ("the whole window repainted", "repaintWindow"),
    ("its background", "paintGround/0"),
    ("its background with the glow", "paintGround/1"),
)


def measure(laboratory):
    with Display() as display:
        run = functools.partial(laboratory.google_benchmark, repetitions=laboratory.repetitions(5), DISPLAY=display,
                                QT_QPA_PLATFORM="xcb")
        return {"wiped": run("AmbrelScreenBenchmarks", names="^(openSnapshot|redraw)" if laboratory.is_quick else None),
                "unwiped": run("AmbrelScreenBenchmarksUnwiped", names="^(redraw|repaint|paint)")}


def reaches(data):
    value = median(data["wiped"]["openSnapshotList/100000"]["time"])
    yield "100,000 rows opened", "at most 16 ms", with_unit(value, TIME), value <= _FRAME


def plots(data):
    wiped = data["wiped"]
    lines = {"product": "openSnapshotList", "a widget for each row": "openRowWidgets"}
    yield ("list.svg", "Opening the list of snapshots", "rows", None, "time", "time",
           {label: {int(name.split("/")[1]): values["time"] for name, values in wiped.items()
                    if name.startswith(f"{benchmark}/")} for label, benchmark in lines.items()})


def section(data):
    wiped = data["wiped"]
    time = lambda name: time_cell(wiped[name]["time"]) if name in wiped else ""  # noqa: E731
    yield from table(["", "1,000 rows", "100,000 rows"], [[label, time(few), time(many)] for label, few, many in _ROWS])
    yield ""
    if "openRowWidgets/10000" in wiped:
        yield f"A widget for each of 10,000 rows takes {time('openRowWidgets/10000')}."
    yield ("Only the visible rows are formatted, whatever the number of rows. The toolkit writes the position of every "
           "row into a table, although all rows have the same height; that is what the additional time goes to.")
    yield ""
    rows = [[label, time(name), number(ratio(wiped[name]["time"], data["unwiped"][name]["time"]))]
            for label, name in _REDRAWS if name in wiped]
    yield from table(["the first screen", "time", "to the same without wiping of freed memory"], rows)
