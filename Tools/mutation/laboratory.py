"""Where mutants live: a copy of the tree with a build of its own."""

import hashlib
import json
import os
import pathlib
import resource
import shutil
import subprocess
import time
from typing import NamedTuple

from mutation.box import TOO_BUSY, run, run_boxed

_LONGEST_BUILD = 900
# Warnings would refuse mutants that compile. Without debug information objects are the same where their code is, and
# without common headers a change of one does not compile everything anew.
_OPTIONS = ("-DCMAKE_CXX_FLAGS=-w", "-DCMAKE_CXX_FLAGS_DEBUG=", "-DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON")


class Failure(Exception):
    """Nothing can be said about any mutant."""


class Verdict(NamedTuple):
    outcome: str
    by: str


class Laboratory:
    """A suite is a program that CTest knows, all of it or, behind a colon, the cases that this filter lets through."""

    def __init__(self, top, folder, suites):
        self.top = top
        self.tree = folder / "tree"
        self.build = self.tree / "build/debug"
        self.suites = suites
        self.programs = list(dict.fromkeys(suite.partition(":")[0] for suite in suites))
        self._log = folder / "output.log"
        self._hashes = {}
        self._users = {}
        self._commands = {}
        self._limits = {}

    def prepare(self, say):
        """Copies what has changed, builds, and runs every program on the unchanged code."""
        if self.top.is_relative_to("/tmp") or self.top.is_relative_to("/dev/shm"):
            raise Failure("The box hides /tmp and /dev/shm: put the clone somewhere else.")
        self._copy()
        say("Building the unchanged code…")
        launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
        self._must(["cmake", "--preset", "debug", *launcher, *_OPTIONS], self.tree)
        self._must(["ninja", f"-j{os.cpu_count()}", *self.programs], self.build)
        self._read_build()
        for suite in self.suites:
            before, started = self._processor_time(), time.monotonic()
            problem = self._run(suite, 1200, 600)
            if problem:
                raise Failure(f"{suite} fails on the unchanged code: {problem}; see {self._log}")
            took, used = time.monotonic() - started, self._processor_time() - before
            # Others may be at work on the machine by then.
            self._limits[suite] = (120 + 10 * took, round(20 + 5 * used))
            say(f"  {suite}: {took:.1f} s, {used:.1f} s of the processor")

    def judge(self, mutant, suites):
        """Whether one of the suites notices the mutant, and which one."""
        file = self.tree / mutant.path
        original = file.read_text(encoding="utf-8")
        try:
            file.write_text(mutant.applied_to(original), encoding="utf-8")
            return self._verdict(self._users.get(mutant.path, []), suites)
        finally:
            file.write_text(original, encoding="utf-8")

    def _verdict(self, objects, suites):
        if not objects:
            return Verdict("not compiled", "")
        if self._make(*objects) != 0:
            return Verdict("not compiled", "")
        if all(self._hash(name) == self._hashes[name] for name in objects):
            return Verdict("identical", "")
        for suite in suites:
            if self._make(suite.partition(":")[0]) != 0:
                return Verdict("found", f"{suite}: does not link")
            problem = self._run(suite, *self._limits[suite])
            if problem:
                return Verdict("found", f"{suite}: {problem}")
        return Verdict("survived", "")

    def _copy(self):
        """Files that are the same keep their times, so that they are not built again."""
        listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=self.top,
                                check=True, capture_output=True, text=True).stdout
        wanted = {name for name in listed.split("\0") if name and (self.top / name).is_file()}
        for name in wanted:
            source, copy = self.top / name, self.tree / name
            if not copy.is_file() or source.read_bytes() != copy.read_bytes():
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, copy)
        for folder, folders, files in os.walk(self.tree):
            if pathlib.Path(folder) == self.tree and "build" in folders:
                folders.remove("build")
            for file in files:
                copy = pathlib.Path(folder, file)
                if str(copy.relative_to(self.tree)) not in wanted:
                    copy.unlink()

    def _read_build(self):
        """Which objects a source goes into, and how CTest calls the programs."""
        needed = set(self._output(["ninja", "-t", "inputs", *self.programs]).splitlines())
        built = None
        for line in self._output(["ninja", "-t", "deps"]).splitlines():
            if line and not line[0].isspace():
                built = line.split(":")[0]
            elif line and built in needed and built.endswith(".o"):
                # Seen from the build, whichever way the compiler was asked to name it.
                path = os.path.relpath(os.path.join(self.build, line.strip()), self.tree)
                self._users.setdefault(path, []).append(built)
        self._hashes = {name: self._hash(name) for names in self._users.values() for name in names}
        tests = json.loads(self._output(["ctest", "--show-only=json-v1"]))["tests"]
        for test in tests:
            program = pathlib.Path(test["command"][0]).name if "command" in test else None
            if program in self.programs:
                properties = {entry["name"]: entry["value"] for entry in test["properties"]}
                # All of its cases at once, also where CTest knows them one by one.
                command = [word for word in test["command"] if not word.startswith("--gtest")]
                self._commands[program] = (command, properties)
        missing = [program for program in self.programs if program not in self._commands]
        if missing:
            raise Failure(f"CTest does not know {', '.join(missing)}.")

    def _run(self, suite, limit, processor_limit):
        """None where all of the suite succeeds, otherwise what happened."""
        program, _, cases = suite.partition(":")
        command, properties = self._commands[program]
        given = dict(line.split("=", 1) for line in properties.get("ENVIRONMENT", []))
        given.pop("GTEST_OUTPUT", None)
        environment = {**given, "GTEST_FAIL_FAST": "1", "GTEST_FILTER": cases or "*", "AMBREL_STORM_RUNS": "50"}
        status = run_boxed(command, self._log, limit, processor_limit, environment, properties.get("WORKING_DIRECTORY"))
        if status is None or status in TOO_BUSY:
            return "takes too long"
        return None if status == 0 else self._first_failure() or f"ends with {status}"

    def _first_failure(self):
        with open(self._log, encoding="utf-8", errors="replace") as log:
            for line in log:
                if line.startswith("[  FAILED  ]"):
                    return line.split("]", 1)[1].split("(")[0].split(",")[0].strip()
        return None

    def _make(self, *targets):
        return run(["ninja", f"-j{os.cpu_count()}", *targets], self._log, _LONGEST_BUILD, place=self.build)

    def _must(self, command, place):
        if run(command, self._log, None, place=place) != 0:
            raise Failure(f"{' '.join(command[:4])} fails; see {self._log}")

    @staticmethod
    def _processor_time():
        usage = resource.getrusage(resource.RUSAGE_CHILDREN)
        return usage.ru_utime + usage.ru_stime

    def _output(self, command):
        return subprocess.run(command, cwd=self.build, check=True, capture_output=True, text=True).stdout

    def _hash(self, name):
        return hashlib.sha256((self.build / name).read_bytes()).digest()
