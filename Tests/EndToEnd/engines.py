"""Recovery engines made for one test each: they note what they were given, then do as they were told."""

import json
import os
import pathlib
import re
import shlex

from waiting import wait_for

_SCRIPT = """#!/bin/sh
runs={runs}
run=$runs/$(date +%s%N)
mkdir "$run.new" || exit 70
printf '%s\\0' "$@" >"$run.new/arguments"
env -0 >"$run.new/environment"
grep '^Sig' /proc/self/status >"$run.new/signals"
grep '^Max core' /proc/self/limits >"$run.new/core-limit"
ls -l /proc/self/fd 2>/dev/null >"$run.new/descriptors"
output=$(readlink /proc/$$/fd/1)
stat --format='%a %n' "$(dirname "$output")" "$output" "$(readlink /proc/$$/fd/2)" >"$run.new/outputs"
readlink /proc/$$/fd/0 >"$run.new/input-kind"
pwd -P >"$run.new/directory"
echo $$ >"$run.new/pid"
{read_input}
mv "$run.new" "$run"
case $1 in
inspect) {inspect} ;;
export) {export} ;;
self-test) {self_test} ;;
esac
"""
READ_INPUT = 'cat >"$run.new/input"'
LEAVE_INPUT = ":"


def prints(text):
    """Writes a text to standard output and succeeds."""
    return f"printf '%s' {shlex.quote(text)}"


def fails(text, status=1):
    """Writes a line to standard error and ends with a status."""
    return f"printf '%s\\n' {shlex.quote(text)} >&2; exit {status}"


def prints_and_fails(output, error, status):
    return f"{prints(output)}; {fails(error, status)}"


def dies(signal_number, text=""):
    """Writes a text to standard error and dies by a signal."""
    return f"printf '%s' {shlex.quote(text)} >&2; kill -{int(signal_number)} $$; sleep 60"


def waits():
    """Works until it is told to end."""
    return "exec sleep 3600"


def ignores_requests_to_end(ready):
    """Works on where it is told to end; the file `ready` says from when on."""
    return f"trap '' TERM; : >{shlex.quote(str(ready))}; exec sleep 3600"


def floods(megabytes):
    """Fills both outputs with zero bytes and succeeds."""
    return f"head -c {megabytes}M /dev/zero; head -c {megabytes}M /dev/zero >&2"


def snapshot(code="tip", milliseconds=1_781_430_060_000, retained_tip=True, items=3, resources=5, size=4_200_000,
             complete=True, **changes):
    """One snapshot of an inspection document."""
    required = resources
    return dict({
        "selectionCode": code, "createdAtUTCMilliseconds": milliseconds, "writerEpoch": 1, "generation": 1,
        "retainedTip": retained_tip,
        "counts": {"items": items, "resources": resources, "folders": 0, "albums": 0, "memberships": 0,
                   "tombstones": 0},
        "logicalPlaintextByteCount": size, "encryptedPayloadByteCount": size,
        "payloadFileEvidence": {"complete": complete, "requiredFileCount": required,
                                "matchingFileCount": required if complete else 0,
                                "missingFileCount": 0 if complete else required,
                                "mismatchedFileCount": 0, "unreadableFileCount": 0},
    }, **changes)


def inspection(snapshots=None, disposition="single-branch", **changes):
    """The text of an inspection document."""
    snapshots = [snapshot()] if snapshots is None else snapshots
    return json.dumps(dict({
        "schemaIdentifier": "com.ambrel.recovery.cli-inspection.v1", "formatIdentifier": "com.ambrel.backup.v1",
        "formatVersion": 1, "unlockedFactor": "backup-passphrase", "branchDisposition": disposition,
        "authenticatedCommitCount": len(snapshots), "authenticatedHeadCount": 1, "maximumWriterEpoch": 1,
        "preservedBranches": [], "snapshots": snapshots,
    }, **changes))


def export_report(recovered=3, **changes):
    """The text of an export document."""
    return json.dumps(dict({
        "schemaIdentifier": "com.ambrel.recovery.cli-export.v1", "status": "complete",
        "selectedSnapshotCode": "tip", "totalItemCount": recovered, "recoveredItemCount": recovered,
        "totalResourceCount": 5, "recoveredResourceCount": 5, "failedResourceCount": 0,
    }, **changes))


def gated(path, gate):
    """Makes the engine at `path` wait for the file `gate` before it begins, so that its step can be looked at."""
    path = pathlib.Path(path)
    engine = path.with_name("gated-engine")
    path.rename(engine)
    path.write_text(f"""#!/bin/sh
while [ ! -e {shlex.quote(str(gate))} ]; do sleep 0.02; done
exec {shlex.quote(str(engine))} "$@"
""", encoding="utf-8")
    path.chmod(0o755)


def held_back(path, gate):
    """Makes the engine at `path` unable to report an export before the file `gate` is there: nobody reads what it says.

    By then it has written everything, and nothing has its final name.
    """
    path = pathlib.Path(path)
    engine = path.with_name("held-back-engine")
    path.rename(engine)
    full = path.with_name("full-pipe")
    os.mkfifo(full)
    path.write_text(f"""#!/bin/sh
if [ "$1" = export ] && [ ! -e {shlex.quote(str(gate))} ]; then
    exec 3<>{shlex.quote(str(full))}
    head -c 65536 /dev/zero >&3
    exec {shlex.quote(str(engine))} "$@" >&3 3>&-
fi
exec {shlex.quote(str(engine))} "$@"
""", encoding="utf-8")
    path.chmod(0o755)
    return engine


class Run:
    """What one run of a scripted engine was given."""

    def __init__(self, directory):
        self._directory = pathlib.Path(directory)

    def _bytes(self, name):
        return (self._directory / name).read_bytes()

    def _list(self, name):
        return [os.fsdecode(item) for item in self._bytes(name).split(b"\0")[:-1]]

    @property
    def arguments(self):
        return self._list("arguments")

    @property
    def environment(self):
        return dict(item.split("=", 1) for item in self._list("environment"))

    @property
    def input(self):
        return self._bytes("input")

    @property
    def input_kind(self):
        """What standard input is: "pipe" or a path."""
        link = self._bytes("input-kind").decode().strip()
        return "pipe" if link.startswith("pipe:") else link

    @property
    def pid(self):
        return int(self._bytes("pid"))

    @property
    def working_directory(self):
        return self._bytes("directory").decode().rstrip("\n")

    @property
    def signals(self):
        """The sets of blocked and of ignored signals, as numbers.

        Without the two signals that the C library keeps to itself: posix_spawn leaves them ignored, and no program can
        see or change them.
        """
        lines = dict(line.split(":\t") for line in self._bytes("signals").decode().splitlines())
        masks = {"blocked": int(lines["SigBlk"], 16), "ignored": int(lines["SigIgn"], 16)}
        return {name: {number for number in range(1, 65) if mask >> (number - 1) & 1} - {32, 33}
                for name, mask in masks.items()}

    @property
    def core_limits(self):
        """How long a core dump may be, as the soft and the hard limit."""
        return tuple(self._bytes("core-limit").decode().split()[4:6])

    @property
    def extra_descriptors(self):
        """Descriptors beyond the three streams, and what they are."""
        found = {}
        for number, target in re.findall(r"(\d+) -> (.*)$", self._bytes("descriptors").decode(), re.MULTILINE):
            listing_itself = re.fullmatch(r"/proc/\d+/fd", target)
            if int(number) > 2 and not listing_itself:
                found[int(number)] = target
        return found

    @property
    def outputs(self):
        """(permissions, path) of the private directory, of standard output and of standard error."""
        return [tuple(line.split(" ", 1)) for line in self._bytes("outputs").decode().splitlines()]


class ScriptedEngine:
    """Stands in the application's place for the engine and keeps a note of every run."""

    def __init__(self, path, runs_directory):
        self._path = pathlib.Path(path)
        self._runs = pathlib.Path(runs_directory)
        self._runs.mkdir()

    def behave(self, inspect=None, export=None, self_test="exit 0", read_input=READ_INPUT):
        """Decides what the next runs do. The file is replaced in one step, so a running engine is not disturbed."""
        script = _SCRIPT.format(runs=shlex.quote(str(self._runs)), read_input=read_input,
                                inspect=inspect or prints(inspection()),
                                export=export or prints(export_report()), self_test=self_test)
        new = self._path.with_name("new-engine")
        new.write_text(script, encoding="utf-8")
        new.chmod(0o755)
        new.replace(self._path)

    @property
    def runs(self):
        """The runs that have read their input, oldest first."""
        return [Run(path) for path in sorted(self._runs.iterdir()) if path.suffix != ".new"]

    def wait_for_run(self, number):
        """Waits for the run of this number, counted from 1."""
        wait_for(f"run {number} of the engine", lambda: len(self.runs) >= number)
        return self.runs[number - 1]
