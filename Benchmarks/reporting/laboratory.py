"""What every subject measures with: the build, folders, and programs to run."""

import contextlib
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time

TOP = pathlib.Path(__file__).resolve().parents[2]


class Laboratory:
    """Where the built programs are, how often to measure, and a folder on each of two file systems."""

    def __init__(self, build, is_quick):
        self.build = build
        self.is_quick = is_quick

    def repetitions(self, usual):
        return 2 if self.is_quick else usual

    @contextlib.contextmanager
    def folder_in_memory(self):
        with tempfile.TemporaryDirectory(prefix="ambrel-benchmark.", dir="/dev/shm") as folder:
            yield pathlib.Path(folder)

    @contextlib.contextmanager
    def folder_on_disk(self):
        with tempfile.TemporaryDirectory(prefix="benchmark.", dir=self.build) as folder:
            yield pathlib.Path(folder)

    def run(self, command, **options):
        """The standard output of a program; what fails ends everything."""
        finished = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                  encoding="utf-8", check=False, **options)
        if finished.returncode != 0:
            sys.exit(f"{' '.join(map(str, command))} failed with {finished.returncode}:\n{finished.stderr}")
        return finished.stdout

    def google_benchmark(self, program, *arguments, repetitions, minimum_seconds=0.02, names=None, folder=None,
                         **environment):
        """Runs one of the programs, whose alternatives take turns in random order.

        Gives {name: {"time": [seconds of each repetition], counter: [values]}}. `names` is a regular expression.
        """
        command = [self.build / "Benchmarks" / program, *arguments, "--benchmark_format=json",
                   "--benchmark_enable_random_interleaving=true", f"--benchmark_min_time={minimum_seconds}",
                   f"--benchmark_repetitions={repetitions}"]
        if names:
            command.append(f"--benchmark_filter={names}")
        variables = os.environ | {"TMPDIR": str(folder or "/dev/shm")} | environment
        return _parsed(program, json.loads(self.run(command, env=variables)))


def come_first():
    """Gives this process and what it starts priority over everything else, if that is allowed. Returns whether it is."""
    try:
        os.sched_setscheduler(0, os.SCHED_FIFO, os.sched_param(5))
    except PermissionError:
        return False
    return True


def used(command, given=None):
    """Runs a program. Gives the seconds until its end and its seconds of processor time."""
    begin = time.monotonic()
    with subprocess.Popen([str(part) for part in command], stdin=subprocess.PIPE if given else subprocess.DEVNULL,
                          stdout=subprocess.DEVNULL) as process:
        if given:
            process.stdin.write(given.encode())
            process.stdin.close()
        _, status, usage = os.wait4(process.pid, 0)
        seconds = time.monotonic() - begin
        process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))} failed")
    return seconds, usage.ru_utime + usage.ru_stime


def file_system(folder):
    """The name of the file system on which a folder is."""
    return subprocess.run(["stat", "--file-system", "--format=%T", folder], stdout=subprocess.PIPE, encoding="utf-8",
                          check=True).stdout.strip().replace("ext2/ext3", "ext4")


_SECONDS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1}
_OWN_FIELDS = {"family_index", "per_family_instance_index", "repetitions", "repetition_index", "threads", "iterations"}


def _parsed(program, output):
    found = {}
    for entry in output["benchmarks"]:
        if entry.get("error_occurred"):
            sys.exit(f"{program}: {entry['name']}: {entry['error_message']}")
        if entry["run_type"] != "iteration":
            continue
        parts = entry["name"].split("/")
        name = "/".join(part for part in parts if ":" not in part and not part.endswith("_time"))
        values = found.setdefault(name, {})
        values.setdefault("time", []).append(entry["real_time"] * _SECONDS[entry["time_unit"]])
        for field, value in entry.items():
            if isinstance(value, (int, float)) and field not in _OWN_FIELDS and not field.endswith("_time"):
                values.setdefault(field, []).append(value)
    if not found:
        sys.exit(f"{program} measured nothing")
    return found
