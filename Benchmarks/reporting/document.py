"""Writes Docs/Performance.md from what was measured."""

import os
import pathlib
import platform
import subprocess
import textwrap

from reporting.plots import growth
from reporting.samples import BINARY_BYTES, TIME, table, with_unit

_UNITS = {"time": TIME}
_PACKAGES = ("libqt6core6", "libicu-dev", "libsimdjson-dev", "rapidjson-dev", "nlohmann-json3-dev", "libboost-dev",
             "libsodium-dev", "keepassxc", "deja-dup")
_INTRODUCTION = """# Performance

Written by `Tools/benchmark` from its last measurements; do not edit. [Benchmarks](../Benchmarks/README.md) says how to
run it and what each program compares.

Always compared in the same run with something else: absolute times depend on the machine, ratios much less. The
alternatives take turns. Values are medians, with the quartiles in brackets. No test depends on a time."""


def write(path, results, subjects):
    """`results` is {name: {"data", "date", "commit", "load"}}, `subjects` {name: module}, in the order of the document."""
    plots = path.with_suffix("")
    measured = {name: module for name, module in subjects.items() if name in results}
    lines = [_INTRODUCTION, "", *_machine(), "", "## What is to be reached", ""]
    lines += table(["", "", "reach", "measured", ""], [
        [module.TITLE, what, limit, value, "held" if is_held else "**not held**"]
        for name, module in measured.items() for what, limit, value, is_held in module.reaches(results[name]["data"])])
    missing = [module.TITLE for name, module in subjects.items() if name not in results]
    if missing:
        lines += ["", "Not measured yet: " + "; ".join(missing) + "."]
    for name, module in measured.items():
        result = results[name]
        lines += ["", f"## {module.TITLE}", "",
                  f"`Tools/benchmark {name}`, {result['date']}, commit {result['commit']}, load {result['load']}.", ""]
        lines += module.section(result["data"])
        for file, title, work, work_units, cost, cost_units, series in module.plots(result["data"]):
            growth(plots / file, title, work, work_units, cost, _UNITS[cost_units], series)
            lines += ["", f"![{title}: {cost} against {work}]({plots.name}/{file})"]
    path.write_text("\n".join(map(_wrapped, lines)) + "\n", encoding="utf-8")


def _wrapped(line):
    return line if line.startswith("|") else "\n".join(textwrap.fill(part, 120) for part in line.split("\n"))


def _machine():
    processor = next((line.split(":", 1)[1].strip() for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines()
                      if line.startswith("model name")), platform.machine())
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES")
    listed = subprocess.run(["dpkg-query", "--show", "--showformat=${Package} ${Version}\n", *_PACKAGES],
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, encoding="utf-8", check=False).stdout
    system = platform.freedesktop_os_release()["PRETTY_NAME"]
    return ["## The machine", "",
            f"{processor}, {os.cpu_count()} processors, {with_unit(memory, BINARY_BYTES)} of memory; Linux "
            f"{platform.release()}, {system}; {', '.join(listed.splitlines())}."]
