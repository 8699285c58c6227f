"""Repeated measurements, summed up and written as text."""

import dataclasses
import statistics


@dataclasses.dataclass(frozen=True)
class Summary:
    """The median of some values and the quartiles around it."""

    median: float
    low: float
    high: float

    @staticmethod
    def of(values):
        if len(values) == 1:
            return Summary(values[0], values[0], values[0])
        low, _, high = statistics.quantiles(values, n=4, method="inclusive")
        return Summary(statistics.median(values), low, high)


def median(values):
    return statistics.median(values)


def ratio(values, others):
    """How many times the median of the others the median of the values is."""
    return median(values) / median(others)


def number(value):
    """Three significant digits, without an exponent."""
    if value == 0:
        return "0"
    digits = 0
    while abs(value) < 10 ** (2 - digits) and digits < 4:
        digits += 1
    return f"{value:,.{digits}f}"


def with_unit(value, units):
    """In the largest of the units (factor, name), from small to large, in which the value is 1 or more."""
    factor, name = next(((factor, name) for factor, name in reversed(units) if abs(value) >= factor), units[0])
    return f"{number(value / factor)} {name}"


TIME = ((1e-9, "ns"), (1e-6, "µs"), (1e-3, "ms"), (1, "s"))
BYTES = ((1, "B"), (1e3, "KB"), (1e6, "MB"), (1e9, "GB"))
BINARY_BYTES = ((1, "B"), (1 << 10, "KiB"), (1 << 20, "MiB"), (1 << 30, "GiB"))


def time_cell(values):
    """The median of seconds and, in brackets, its quartiles."""
    return cell(values, TIME)


def cell(values, units):
    summary = Summary.of(values)
    text = with_unit(summary.median, units)
    if len(values) == 1:
        return text
    factor = next(factor for factor, name in units if name == text.split(" ")[1])
    return f"{text} ({number(summary.low / factor)} to {number(summary.high / factor)})"


def table(header, rows):
    """The lines of a table in Markdown."""
    lines = [header, ["---"] * len(header), *rows]
    return ["| " + " | ".join(str(entry) for entry in line) + " |" for line in lines]
